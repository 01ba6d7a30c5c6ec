#include "Velmora/orb/OrbState.h"
#include "Velmora/views/PictureOverlay.h"
#include "Velmora/views/WidgetView.h"

#include <QImage>

namespace velmora {

namespace {

constexpr QColor backdrop(26, 34, 32);

} // namespace

OrbState WidgetView::orbState() const
{
    return {.paused = m_model.paused(),
        .isReminding = m_model.isReminding(),
        .inActiveHours = m_model.inActiveHours(),
        .reduceMotion = m_model.reduceMotion(),
        .showWord = m_showWord,
        .showChrome = showChrome(),
        .widgetSize = m_model.widgetSize()};
}

void WidgetView::draw(QImage& canvas, double now)
{
    auto const frame = m_transitions.frame(orbState(), now);
    OrbCaption::Texts texts;
    if (frame.caption) {
        texts = {.words = {tr("velmora"), tr("paused"), tr("relax"), tr("resting")},
            .status = accessibleValue()};
    }
    m_canvas.draw(canvas, m_bounds, frame, texts,
        {.opacity = m_transitions.controlsOpacity(),
            .symbols
            = {symbol(OrbControls::Control::pause), symbol(OrbControls::Control::settings)},
            .pressed = m_pressed});
}

void WidgetView::drawBackdrop(QImage& canvas)
{
    drawUnder(canvas, backdrop);
}

} // namespace velmora
