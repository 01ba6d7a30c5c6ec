#pragma once

#include "Velmora/geometry/Rect.h"
#include "Velmora/orb/OrbFrame.h"
#include "Velmora/orb/OrbRenderer.h"
#include "Velmora/views/OrbCaption.h"
#include "Velmora/views/OrbControls.h"

#include <array>
#include <optional>

class QImage;

namespace velmora {

/// Draws one frame of the orb's view: the orb, its caption, and the buttons above them.
class OrbCanvas {
public:
    struct Controls {
        /// 0 hidden ... 1 shown.
        double opacity = 0;
        /// In the order of `OrbControls::all`.
        std::array<OrbControls::Symbol, OrbControls::all.size()> symbols = {};
        std::optional<OrbControls::Control> pressed;
    };

    /// Overwrites a premultiplied picture that fills `bounds` (points) and whose device pixel ratio
    /// is set.
    void draw(QImage& canvas, Size bounds, OrbFrame const& frame, OrbCaption::Texts const& texts,
        Controls const& controls);

private:
    void drawStack(
        QImage& canvas, Size bounds, OrbFrame const& frame, OrbCaption::Texts const& texts);

    OrbRenderer m_renderer;
    OrbCaption m_caption;
};

} // namespace velmora
