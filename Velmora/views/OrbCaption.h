#pragma once

#include "Velmora/orb/OrbFrame.h"
#include "Velmora/views/TextPicture.h"

#include <QString>

#include <array>

class QImage;

namespace velmora {

/// The word on the orb and the status line below it.
class OrbCaption {
public:
    struct Texts {
        /// In the order of `CaptionWord`.
        std::array<QString, captionWordCount> words;
        QString status;
    };

    /// Draws the caption about a centre in device pixels, no line wider than `widest` points.
    /// `scale` is device pixels per point.
    void draw(QImage& canvas, QPointF centre, CaptionLayer const& layer, Texts const& texts,
        double widest, double scale);

private:
    std::array<TextPicture, captionWordCount> m_words;
    TextPicture m_status;
};

} // namespace velmora
