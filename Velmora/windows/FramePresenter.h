#pragma once

#include "Velmora/platform/SharedFrames.h"

#include <QBackingStore>
#include <QImage>

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
    /// whole window, with the window's device pixel ratio. None while the window system gives no
    /// memory. Ends with `present`.
    [[nodiscard]] QImage* begin();
    /// Puts the picture on the screen.
    void present();
    /// What is on the screen has been lost: the next frame is handed on whole.
    void invalidate() { m_shown = {}; }

private:
    [[nodiscard]] QImage* beginStored();
    void presentShared();

    QWindow& m_window;
    SharedFrames* m_shared;
    std::optional<QBackingStore> m_store;
    SharedFrames::Picture m_drawn;
    SharedFrames::Picture m_shown;
    QImage m_picture;
};

} // namespace velmora
