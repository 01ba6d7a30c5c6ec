#pragma once

#include <QBackingStore>
#include <QRect>

class QImage;
class QWindow;

namespace velmora {

/// Hands finished frames to a window, through the toolkit's backing store.
class FramePresenter {
public:
    /// The window outlives the presenter.
    explicit FramePresenter(QWindow& window);

    /// The window is that large now, in desktop points.
    void resize(QSize size);

    /// The picture to draw the next frame into: premultiplied ARGB, device pixels, the whole
    /// window. Inside `area`, in device pixels, it is clear and all of it has to be drawn; the rest
    /// keeps what was drawn before. None while the window system gives no memory. Ends with
    /// `present`.
    [[nodiscard]] QImage* begin(QRect area);
    /// Puts what was drawn inside the last `begin`'s area on the screen.
    void present();

private:
    [[nodiscard]] QRect inPoints(QRect area) const;

    QWindow& m_window;
    QBackingStore m_store;
    QRect m_area;
};

} // namespace velmora
