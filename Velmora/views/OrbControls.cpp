#include "Velmora/views/OrbControls.h"

#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>

#include <algorithm>
#include <utility>

namespace velmora::OrbControls {

namespace {

constexpr double buttonSpacing = 0.06;
constexpr double bottomPadding = 0.22;
constexpr double frameShare = 0.18;
constexpr double smallestFrame = 22.0;
constexpr double symbolShare = 0.09;
constexpr double smallestSymbol = 10.0;
constexpr double circleAlpha = 0.16;
constexpr double symbolAlpha = 0.92;
constexpr double pressedShare = 0.6;

QColor white(double alpha)
{
    return QColor::fromRgbF(1, 1, 1, static_cast<float>(alpha));
}

// The symbols stand in a square from -1 to 1.

QPainterPath bar(double x)
{
    QPainterPath path;
    path.addRoundedRect(QRectF(x - 0.24, -0.8, 0.48, 1.6), 0.16, 0.16);
    return path;
}

QPainterPath pauseBars()
{
    auto path = bar(-0.46);
    path.addPath(bar(0.46));
    return path;
}

/// A triangle whose centre of mass is the origin, so that it looks centred in its circle.
QPolygonF playTriangle()
{
    return {{-0.5, -0.78}, {-0.5, 0.78}, {0.88, 0}};
}

void drawPlay(QPainter& painter, double unit)
{
    // Stroked with round joins over its fill: a triangle with soft corners.
    painter.setPen(QPen(painter.brush(), 0.24 * unit, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    QTransform const scale = QTransform::fromScale(unit, unit);
    QPainterPath triangle;
    triangle.addPolygon(scale.map(playTriangle()));
    triangle.closeSubpath();
    QPainterPathStroker stroker(painter.pen());
    auto const outline = stroker.createStroke(triangle).united(triangle);
    painter.fillPath(outline, painter.brush());
}

/// Three lines with a knob on each, the knobs at different places and clear inside.
QPainterPath sliders()
{
    constexpr std::array<std::pair<double, double>, 3> knobs
        = {{{-0.62, 0.36}, {0.0, -0.4}, {0.62, 0.14}}};
    constexpr double line = 0.085;
    constexpr double radius = 0.25;
    constexpr double gap = 0.11;
    QPainterPath path;
    for (auto const& [y, x] : knobs) {
        QPainterPath rail;
        rail.addRoundedRect(QRectF(-0.98, y - line, 1.96, 2 * line), line, line);
        QPainterPath around;
        around.addEllipse(QPointF(x, y), radius, radius);
        QPainterPath inside;
        inside.addEllipse(QPointF(x, y), radius - gap - 0.03, radius - gap - 0.03);
        path.addPath(rail.subtracted(around));
        path.addPath(around.subtracted(inside));
    }
    return path;
}

} // namespace

Rect frame(Control control, double size, Size bounds)
{
    auto const side = std::max(size * frameShare, smallestFrame);
    auto const gap = size * buttonSpacing;
    auto const left = bounds.width / 2 - side - gap / 2;
    return {.x = control == Control::pause ? left : left + side + gap,
        .y = bounds.height - size * bottomPadding - side,
        .width = side,
        .height = side};
}

std::optional<Control> at(Point p, double size, Size bounds)
{
    for (auto const control : all) {
        auto const square = frame(control, size, bounds);
        if (distance(p, {.x = square.midX(), .y = square.midY()}) <= square.width / 2)
            return control;
    }
    return std::nullopt;
}

double symbolSize(double size)
{
    return std::max(size * symbolShare, smallestSymbol);
}

void drawSymbol(QPainter& painter, Symbol symbol, Point centre, double side)
{
    painter.save();
    painter.translate(centre.x, centre.y);
    painter.setBrush(white(symbolAlpha));
    auto const unit = side / 2;
    auto const scale = QTransform::fromScale(unit, unit);
    if (symbol == Symbol::play)
        drawPlay(painter, unit);
    else
        painter.fillPath(
            scale.map(symbol == Symbol::pause ? pauseBars() : sliders()), painter.brush());
    painter.restore();
}

void draw(QPainter& painter, Symbol symbol, Rect const& frame, double symbolSide, bool pressed)
{
    painter.save();
    if (pressed)
        painter.setOpacity(painter.opacity() * pressedShare);
    painter.setPen(Qt::NoPen);
    painter.setBrush(white(circleAlpha));
    painter.drawEllipse(QRectF(frame.x, frame.y, frame.width, frame.height));
    drawSymbol(painter, symbol, {.x = frame.midX(), .y = frame.midY()}, symbolSide);
    painter.restore();
}

} // namespace velmora::OrbControls
