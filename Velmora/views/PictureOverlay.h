#pragma once

#include <QImage>
#include <QPoint>
#include <QRectF>

#include <cstdint>
#include <functional>

class QPainter;

namespace velmora {

/// A stack of pictures that is seen as one: at an opacity, 0..1, over an opaque pixel or none,
/// which is 0.
struct PictureStack {
    double opacity = 1;
    std::uint32_t ground = 0;
};

/// Lays a picture over a canvas, both premultiplied ARGB, with its top-left corner at a whole
/// device pixel of the canvas; what reaches beyond the canvas is cut off. `opacity` is 0..1. A
/// picture that joins a stack hides what the stack already shows there as if both were whole.
///
/// Small pictures that are drawn once and laid over every frame this way cost a frame neither an
/// allocation nor the toolkit's worker threads.
void drawOver(QImage& canvas, QImage const& picture, QPoint corner, double opacity = 1,
    PictureStack const& stack = {});

/// A small picture and where it lies on the canvas, in device pixels.
struct PictureOverlay {
    QImage picture;
    QPoint corner;
};

/// Paints a picture of an area (points, y down). The painter draws in the canvas's points.
[[nodiscard]] PictureOverlay paintedOverlay(
    QRectF const& area, double scale, std::function<void(QPainter&)> const& paint);

} // namespace velmora
