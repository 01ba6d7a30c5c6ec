#pragma once

#include "Velmora/geometry/Rect.h"
#include "Velmora/views/OrbCaption.h"
#include "Velmora/views/OrbControls.h"

#include <array>
#include <optional>

class QImage;

namespace velmora {

/// Draws one frame of the orb's view.
class OrbCanvas {
public:
    /// Everything one frame depends on.
    struct Look {
        /// The space offered and the orb's side, in points.
        Size bounds;
        double size = 0;
        QString word;
        QString status;
        /// How far the word, the status line and the buttons are shown, 0..1.
        double wordShown = 0;
        double statusShown = 0;
        double chromeShown = 0;
        /// In the order of `OrbControls::all`.
        std::array<OrbControls::Symbol, OrbControls::all.size()> symbols = {};
        std::optional<OrbControls::Control> pressed;
    };

    /// Draws into a clear picture whose device pixel ratio is set.
    void draw(QImage& canvas, Look const& look);

private:
    OrbCaption m_caption;
};

} // namespace velmora
