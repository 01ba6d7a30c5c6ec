#include "Velmora/views/OrbCaption.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace velmora {

namespace {

constexpr double wordShare = 0.11;
constexpr double smallestWord = 11.0;
constexpr double statusShare = 0.065;
constexpr double smallestStatus = 8.0;
constexpr double spacing = 0.02;
constexpr double lift = 0.04;

TextPicture::Style wordStyle(double size, double scale)
{
    return {.fontSize = std::max(size * wordShare, smallestWord) * scale,
        .weight = QFont::Light,
        .opacity = 0.92,
        .shadowOpacity = 0.22,
        .shadowRadius = 4 * scale,
        .shadowDrop = 1 * scale,
        .widest = size * scale};
}

TextPicture::Style statusStyle(double size, double scale)
{
    return {.fontSize = std::max(size * statusShare, smallestStatus) * scale,
        .weight = QFont::Normal,
        .opacity = 0.72,
        .widest = size * scale};
}

/// Draws a line by the middle of its upper edge. Whole pixels keep the letters sharp.
void drawLine(QPainter& painter, TextPicture const& line, QPointF top, double opacity)
{
    painter.setOpacity(opacity);
    painter.drawImage(QPointF(std::round(top.x() - line.size().width() / 2), std::round(top.y()))
            - QPointF(line.margin(), line.margin()),
        line.image());
}

} // namespace

void OrbCaption::draw(QPainter& painter, QPointF centre, Look const& look)
{
    if (look.wordShown <= 0 && look.statusShown <= 0)
        return;
    auto const unit = look.size * look.scale;
    painter.save();
    m_word.set(look.word, wordStyle(look.size, look.scale));
    auto below = 0.0;
    if (look.statusShown > 0) {
        m_status.set(look.status, statusStyle(look.size, look.scale));
        below = (unit * spacing + m_status.size().height()) * look.statusShown;
    }
    auto const top = centre.y() - unit * lift * look.lifted - (m_word.size().height() + below) / 2;
    drawLine(painter, m_word, QPointF(centre.x(), top), look.wordShown);
    if (look.statusShown > 0) {
        auto const statusTop = top + m_word.size().height() + unit * spacing;
        drawLine(painter, m_status, QPointF(centre.x(), statusTop), look.statusShown);
    }
    painter.restore();
}

} // namespace velmora
