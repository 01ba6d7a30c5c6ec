#pragma once

#include <QColor>
#include <QImage>
#include <QPoint>
#include <QRectF>

#include <functional>

class QPainter;

namespace velmora {

/// Lays a picture over a canvas, both premultiplied ARGB, with its top-left corner at a whole
/// device pixel of the canvas; what reaches beyond the canvas is cut off. `opacity` is 0..1.
///
/// Small pictures that are drawn once and laid over every frame this way cost a frame neither an
/// allocation nor the toolkit's worker threads.
void drawOver(QImage& canvas, QImage const& picture, QPoint corner, double opacity = 1);

/// Lays an opaque colour under all of a canvas.
void drawUnder(QImage& canvas, QColor const& ground);

/// A small picture and where it lies on the canvas, in device pixels.
struct PictureOverlay {
    QImage picture;
    QPoint corner;
};

/// Paints a picture of an area (points, y down). The painter draws in the canvas's points.
[[nodiscard]] PictureOverlay paintedOverlay(
    QRectF const& area, double scale, std::function<void(QPainter&)> const& paint);

} // namespace velmora
