#pragma once

#include "Velmora/views/TextPicture.h"

#include <QString>

class QPainter;

namespace velmora {

/// The word on the orb and the status line below it.
class OrbCaption {
public:
    struct Look {
        QString word;
        QString status;
        /// Side of the orb in points.
        double size = 0;
        /// Device pixels per point.
        double scale = 1;
        /// How far the word is shown, and the status line with the buttons, 0..1.
        double wordShown = 0;
        double statusShown = 0;
        /// How far the caption has moved up to make room for the buttons, 0..1.
        double lifted = 0;
    };

    /// Draws the caption about a centre, both in device pixels.
    void draw(QPainter& painter, QPointF centre, Look const& look);

private:
    TextPicture m_word;
    TextPicture m_status;
};

} // namespace velmora
