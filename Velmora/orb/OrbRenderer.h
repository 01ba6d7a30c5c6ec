#pragma once

#include "Velmora/orb/OrbFrame.h"
#include "Velmora/orb/PixelTarget.h"

#include <memory>

namespace velmora {

/// What happens to the opacity of the stack.
enum class StackOpacity {
    /// The picture is finished: every pixel is multiplied by it.
    applied,
    /// The picture is left at full strength, for a caption to be drawn on it; afterwards
    /// `multiplyOpacity` finishes it.
    deferred,
};

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

    /// Overwrites all of `target` with the frame's layers except the caption.
    ///
    /// The frame's square is centred in the target, whose edges cut off what reaches beyond. A
    /// square without size, larger than 65536 device pixels or with numbers that are not finite
    /// leaves the target clear; a target without pixels or wider or higher than 8192 is left
    /// alone.
    void render(OrbFrame const& frame, PixelTarget const& target,
        StackOpacity stackOpacity = StackOpacity::applied);

private:
    struct Scratch;
    std::unique_ptr<Scratch> m_scratch;
};

} // namespace velmora
