#pragma once

#include "Velmora/orb/OrbFrame.h"
#include "Velmora/orb/PixelTarget.h"

#include <memory>
#include <optional>

namespace velmora {

/// Draws frames. Owns its scratch memory, so that it allocates only when a frame is larger than
/// all before it; the same frame and target always give the same pixels.
class OrbRenderer {
public:
    OrbRenderer();
    ~OrbRenderer();
    OrbRenderer(OrbRenderer const&) = delete;
    OrbRenderer& operator=(OrbRenderer const&) = delete;
    OrbRenderer(OrbRenderer&&) noexcept;
    OrbRenderer& operator=(OrbRenderer&&) noexcept;

    /// Overwrites all of `target` with the frame's layers except the caption, at the stack's
    /// opacity, over an opaque ground if there is one.
    ///
    /// The frame's square is centred in the target, whose edges cut off what reaches beyond. A
    /// square without size, larger than 65536 device pixels or with numbers that are not finite
    /// leaves the ground bare; a target without pixels or wider or higher than 8192 is left alone.
    void render(OrbFrame const& frame, PixelTarget const& target,
        std::optional<OrbColor> const& ground = std::nullopt);

private:
    struct Scratch;
    std::unique_ptr<Scratch> m_scratch;
};

} // namespace velmora
