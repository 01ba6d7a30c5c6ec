#pragma once

#include "Velmora/platform/SharedFrames.h"

#include <QBackingStore>
#include <QImage>

#include <array>
#include <optional>

class QWindow;

namespace velmora {

/// Hands finished frames to a window: through memory shared with the window system where there is
/// such, and else through the toolkit's backing store. Only rows that changed are handed on.
class FramePresenter {
public:
    /// Both outlive the presenter; `shared` may be none.
    FramePresenter(QWindow& window, SharedFrames* shared);

    /// The picture to draw the next frame into, over whatever is in it: premultiplied ARGB, the
    /// whole window of `size` points, with its device pixel ratio `scale`. None while the window
    /// system gives no memory. Ends with `present`.
    [[nodiscard]] QImage* begin(QSize size, double scale);
    /// Puts the picture on the screen.
    void present();
    /// What is on the screen has been lost: the next frame is handed on whole.
    void invalidate() { m_shown = {}; }

private:
    [[nodiscard]] QImage* beginStored(QSize size);
    [[nodiscard]] QImage* viewShared(QSize pixels, double scale);
    void presentShared();

    QWindow& m_window;
    SharedFrames* m_shared;
    std::optional<QBackingStore> m_store;
    SharedFrames::Picture m_drawn;
    SharedFrames::Picture m_shown;
    /// Views of the shared pictures, which take turns: making one costs more than a glance.
    std::array<QImage, 3> m_views;
    std::size_t m_turn = 0;
    QSize m_pixels;
};

} // namespace velmora
