#pragma once

#include "Velmora/orb/OrbFrame.h"
#include "Velmora/views/PictureOverlay.h"
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

    /// Where a caption is drawn.
    struct Place {
        /// Device pixels.
        QPointF centre;
        /// No line is wider than so many points.
        double widest = 0;
        /// Device pixels per point.
        double scale = 1;
        /// What it is the topmost part of.
        PictureStack stack;
    };

    void draw(QImage& canvas, Place const& place, CaptionLayer const& layer, Texts const& texts);

private:
    std::array<TextPicture, captionWordCount> m_words;
    TextPicture m_status;
};

} // namespace velmora
