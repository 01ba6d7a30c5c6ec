#include "Velmora/views/TextPicture.h"

#include <QColor>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

namespace velmora {

namespace {

/// At this density a font's points are its pixels, fractions included.
constexpr int dotsPerMeterAtOnePixelPerPoint = 2835;
constexpr int boxPasses = 3;

QImage canvas(QSize size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.setDotsPerMeterX(dotsPerMeterAtOnePixelPerPoint);
    image.setDotsPerMeterY(dotsPerMeterAtOnePixelPerPoint);
    image.fill(Qt::transparent);
    return image;
}

QFont font(TextPicture::Style const& style)
{
    auto font = QGuiApplication::font();
    font.setPointSizeF(style.fontSize);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setWeight(style.weight);
    // Where the family has no such weight the nearest may be thinner still, too thin to read.
    QFontInfo const found(font);
    if (QFontDatabase::weight(found.family(), found.styleName()) < style.weight)
        font.setWeight(QFont::Normal);
    return font;
}

/// The average of the 2 × radius + 1 neighbours of each element; outside there is nothing.
void boxAverage(std::vector<int>& line, std::vector<int>& scratch, int radius)
{
    auto const count = static_cast<int>(line.size());
    scratch = line;
    auto const at = [&scratch, count](int i) {
        return i < 0 || i >= count ? 0 : scratch[static_cast<std::size_t>(i)];
    };
    int sum = 0;
    for (int i = -radius; i < radius; ++i)
        sum += at(i);
    for (int i = 0; i < count; ++i) {
        sum += at(i + radius);
        line[static_cast<std::size_t>(i)] = sum / (2 * radius + 1);
        sum -= at(i - radius);
    }
}

/// Three box averages are close to a bell curve of standard deviation `sigma`.
void blur(std::vector<int>& line, std::vector<int>& scratch, double sigma)
{
    auto const width = std::sqrt(12 * sigma * sigma / boxPasses + 1);
    auto const radius = std::max(1, static_cast<int>(std::lround((width - 1) / 2)));
    for (int pass = 0; pass < boxPasses; ++pass)
        boxAverage(line, scratch, radius);
}

/// The picture's alpha, blurred, as black of an opacity.
QImage shadow(QImage const& picture, double sigma, double opacity)
{
    constexpr int precision = 64;
    auto const width = picture.width();
    auto const height = picture.height();
    std::vector<int> alpha(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    std::vector<int> line(static_cast<std::size_t>(width));
    std::vector<int> scratch;
    auto const index = [width](int x, int y) {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width)
            + static_cast<std::size_t>(x);
    };
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            line[static_cast<std::size_t>(x)] = qAlpha(picture.pixel(x, y)) * precision;
        blur(line, scratch, sigma);
        std::copy(
            line.begin(), line.end(), alpha.begin() + static_cast<std::ptrdiff_t>(index(0, y)));
    }
    QImage result(picture.size(), QImage::Format_ARGB32_Premultiplied);
    line.resize(static_cast<std::size_t>(height));
    for (int x = 0; x < width; ++x) {
        for (int y = 0; y < height; ++y)
            line[static_cast<std::size_t>(y)] = alpha[index(x, y)];
        blur(line, scratch, sigma);
        for (int y = 0; y < height; ++y) {
            auto const a = line[static_cast<std::size_t>(y)] * opacity / precision;
            result.setPixel(x, y, qRgba(0, 0, 0, static_cast<int>(std::lround(a))));
        }
    }
    return result;
}

} // namespace

double TextPicture::lineHeight(Style const& style)
{
    auto probe = canvas(QSize(1, 1));
    return QFontMetricsF(font(style), &probe).height();
}

void TextPicture::set(QString const& text, Style const& style)
{
    if (text == m_text && style == m_style && !m_image.isNull())
        return;
    m_text = text;
    m_style = style;
    draw(text, style);
}

void TextPicture::draw(QString const& text, Style const& style)
{
    auto probe = canvas(QSize(1, 1));
    auto const face = font(style);
    QFontMetricsF const metrics(face, &probe);
    auto const shown = metrics.elidedText(text, Qt::ElideRight, style.widest);
    m_size = QSizeF(metrics.horizontalAdvance(shown), metrics.height());
    // Accents and italics may leave the line's box; the blur fades out within three deviations.
    m_margin = static_cast<int>(
        std::ceil(style.fontSize / 4 + 3 * style.shadowDeviation + style.shadowDrop));
    m_image = canvas(QSize(static_cast<int>(std::ceil(m_size.width())) + 2 * m_margin,
        static_cast<int>(std::ceil(m_size.height())) + 2 * m_margin));
    QPainter painter(&m_image);
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.setFont(face);
    painter.setPen(QColor::fromRgbF(1, 1, 1, static_cast<float>(style.opacity)));
    painter.drawText(QPointF(m_margin, m_margin + metrics.ascent()), shown);
    if (style.shadowDeviation <= 0)
        return;
    auto const below = shadow(m_image, style.shadowDeviation, style.shadowOpacity);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOver);
    painter.drawImage(QPointF(0, style.shadowDrop), below);
}

} // namespace velmora
