#pragma once

#include <QFont>
#include <QImage>
#include <QString>

namespace velmora {

/// One line of white text, drawn once and kept until it reads or looks differently, so that a frame
/// only has to copy it.
class TextPicture {
public:
    /// How the line looks. Lengths are device pixels.
    struct Style {
        double fontSize = 0;
        QFont::Weight weight = QFont::Normal;
        /// Opacity of the text, 0..1.
        double opacity = 1;
        /// Opacity, 0..1, softness (a standard deviation) and downward offset of the black shadow;
        /// a softness of 0 is none.
        double shadowOpacity = 0;
        double shadowDeviation = 0;
        double shadowDrop = 0;
        /// The line is cut with an ellipsis where it would be longer.
        double widest = 0;

        bool operator==(Style const&) const = default;
    };

    /// The height of a line of a style, in device pixels.
    [[nodiscard]] static double lineHeight(Style const& style);

    /// Draws the line unless it is drawn already.
    void set(QString const& text, Style const& style);

    /// Premultiplied, and larger than the text by `margin` on every side.
    [[nodiscard]] QImage const& image() const { return m_image; }
    [[nodiscard]] int margin() const { return m_margin; }
    /// The line's own size, without the margin.
    [[nodiscard]] QSizeF size() const { return m_size; }

private:
    void draw(QString const& text, Style const& style);

    QString m_text;
    Style m_style;
    QImage m_image;
    QSizeF m_size;
    int m_margin = 0;
};

} // namespace velmora
