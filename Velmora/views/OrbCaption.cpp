#include "Velmora/views/OrbCaption.h"

#include <QImage>

namespace velmora {

namespace {

TextPicture::Style wordStyle(CaptionLayer const& layer, double widest, double scale)
{
    return {.fontSize = layer.wordFontSize * scale,
        .weight = QFont::Light,
        .opacity = layer.wordOpacity,
        .shadowOpacity = layer.wordShadow.opacity,
        .shadowDeviation = layer.wordShadow.radius * scale,
        .shadowDrop = layer.wordShadow.dy * scale,
        .widest = widest * scale};
}

TextPicture::Style statusStyle(CaptionLayer const& layer, double widest, double scale)
{
    return {.fontSize = layer.statusFontSize * scale,
        .weight = QFont::Normal,
        .opacity = layer.statusOpacity,
        .widest = widest * scale};
}

/// Draws a line by the middle of its upper edge. Whole pixels keep the letters sharp.
void drawLine(
    QImage& canvas, TextPicture const& line, QPointF top, double opacity, PictureStack const& stack)
{
    QPointF const corner(top.x() - line.size().width() / 2, top.y());
    drawOver(canvas, line.image(), corner.toPoint() - QPoint(line.margin(), line.margin()), opacity,
        stack);
}

} // namespace

void OrbCaption::draw(
    QImage& canvas, Place const& place, CaptionLayer const& layer, Texts const& texts)
{
    auto const& [centre, widest, scale, stack] = place;
    auto const wordHeight = TextPicture::lineHeight(wordStyle(layer, widest, scale));
    auto below = 0.0;
    if (layer.statusPresence > 0) {
        m_status.set(texts.status, statusStyle(layer, widest, scale));
        // Coming and going, the line makes room for itself.
        below = (layer.spacing * scale + m_status.size().height()) * layer.statusPresence;
    }
    auto const top = centre.y() + layer.dy * scale - (wordHeight + below) / 2;
    for (std::size_t i = 0; i < captionWordCount; ++i) {
        if (layer.presence.at(i) <= 0)
            continue;
        auto& word = m_words.at(i);
        word.set(texts.words.at(i), wordStyle(layer, widest, scale));
        drawLine(canvas, word, QPointF(centre.x(), top), layer.presence.at(i), stack);
    }
    if (layer.statusPresence > 0) {
        auto const statusTop = top + wordHeight + layer.spacing * scale;
        drawLine(canvas, m_status, QPointF(centre.x(), statusTop), layer.statusPresence, stack);
    }
}

} // namespace velmora
