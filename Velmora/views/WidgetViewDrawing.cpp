#include "Velmora/views/WidgetView.h"

#include <QImage>
#include <QPainter>

#include <algorithm>

namespace velmora {

namespace {

constexpr QColor backdrop(26, 34, 32);

} // namespace

QString WidgetView::word() const
{
    if (m_model.isReminding())
        return tr("velmora");
    if (m_model.paused())
        return tr("paused");
    return m_model.inActiveHours() ? tr("relax") : tr("resting");
}

OrbCanvas::Look WidgetView::look(double now)
{
    m_wordFade.set(m_showWord, now);
    m_chromeFade.set(showChrome(), now);
    auto const chrome = m_chromeFade.at(now);
    return {.bounds = m_bounds,
        .size = m_model.widgetSize(),
        .word = word(),
        .status = accessibleValue(),
        .wordShown = std::max(m_wordFade.at(now), chrome),
        .statusShown = m_model.isReminding() ? 0 : chrome,
        .chromeShown = chrome,
        .symbols = {symbol(OrbControls::Control::pause), symbol(OrbControls::Control::settings)},
        .pressed = m_pressed};
}

void WidgetView::draw(QImage& canvas, double now)
{
    m_canvas.draw(canvas, look(now));
}

void WidgetView::drawBackdrop(QImage& canvas)
{
    QPainter painter(&canvas);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOver);
    painter.fillRect(QRectF(QPointF(0, 0), QSizeF(canvas.size())), backdrop);
}

} // namespace velmora
