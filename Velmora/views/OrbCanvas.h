#pragma once

#include "Velmora/geometry/Rect.h"
#include "Velmora/orb/OrbFrame.h"
#include "Velmora/orb/OrbRenderer.h"
#include "Velmora/views/OrbCaption.h"
#include "Velmora/views/OrbControls.h"
#include "Velmora/views/PictureOverlay.h"

#include <array>
#include <optional>

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

        bool operator==(Controls const&) const = default;
    };

    /// Overwrites a premultiplied picture that fills `bounds` (points) and whose device pixel ratio
    /// is set. `ground`, if any, is seen through the orb.
    void draw(QImage& canvas, Size bounds, OrbFrame const& frame, OrbCaption::Texts const& texts,
        Controls const& controls, std::optional<OrbColor> const& ground);

private:
    void drawStack(QImage& canvas, Size bounds, OrbFrame const& frame,
        OrbCaption::Texts const& texts, std::optional<OrbColor> const& ground);

    void drawControls(QImage& canvas, Size bounds, double size, Controls const& controls);

    /// What the buttons were drawn for last.
    struct ControlsDrawn {
        Size bounds;
        double size = 0;
        double scale = 0;
        Controls controls;

        bool operator==(ControlsDrawn const&) const = default;
    };

    OrbRenderer m_renderer;
    OrbCaption m_caption;
    ControlsDrawn m_controlsDrawn;
    PictureOverlay m_controls;
};

} // namespace velmora
