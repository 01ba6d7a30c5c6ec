#include "Velmora/orb/OrbState.h"
#include "Velmora/views/WidgetView.h"

#include <QImage>

namespace velmora {

namespace {

constexpr OrbColor darkGround = {.red = 26 / 255.0, .green = 34 / 255.0, .blue = 32 / 255.0};

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

void WidgetView::draw(QImage& canvas, double now, Ground ground)
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
            .pressed = m_pressed},
        ground == Ground::dark ? std::optional(darkGround) : std::nullopt);
}

} // namespace velmora
