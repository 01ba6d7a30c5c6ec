#include "Velmora/views/SettingsSlider.h"

#include "Velmora/views/FocusRing.h"
#include "Velmora/views/SettingsLook.h"

#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>

#include <algorithm>
#include <chrono>
#include <cmath>

namespace velmora {

namespace {

constexpr double knobSide = 18.0;
constexpr double grooveHeight = 4.0;
constexpr int sliderHeight = 24;

/// A wheel that has been quiet for this long has come to rest.
constexpr std::chrono::milliseconds wheelRest(300);

} // namespace

SettingsSlider::SettingsSlider(QWidget* parent)
    : QSlider(Qt::Horizontal, parent)
    , m_ring(new FocusRing(*this))
{
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_wheelRest.setSingleShot(true);
    m_wheelRest.setInterval(wheelRest);
    connect(&m_wheelRest, &QTimer::timeout, this, &SettingsSlider::endEditing);
    connect(this, &QSlider::valueChanged, this, &SettingsSlider::take);
}

void SettingsSlider::setScale(Scale const& scale)
{
    if (scale == m_scale)
        return;
    m_scale = scale;
    {
        QScopedValueRollback const quiet(m_showing, true);
        // A hair less than a whole step is a rounding error, not a step of its own.
        double const steps = std::ceil((scale.maximum - scale.minimum) / scale.step - 1e-6);
        setRange(0, std::max(0, static_cast<int>(steps)));
        setSingleStep(scale.arrowSteps);
        setPageStep(scale.pageSteps);
    }
    setEnabled(maximum() > 0);
    showNumber(m_current);
}

void SettingsSlider::showNumber(double number)
{
    QScopedValueRollback const quiet(m_showing, true);
    m_current = std::clamp(number, std::min(m_scale.minimum, m_scale.maximum), m_scale.maximum);
    setValue(positionOf(m_current));
    update();
}

void SettingsSlider::enter(double number)
{
    if (!isEnabled() || !std::isfinite(number))
        return;
    setValue(positionOf(number));
    Q_EMIT editingEnded();
}

int SettingsSlider::positionOf(double number) const
{
    double const steps = std::round((number - m_scale.minimum) / m_scale.step);
    return static_cast<int>(std::clamp(steps, 0.0, static_cast<double>(maximum())));
}

double SettingsSlider::numberAt(int position) const
{
    return std::min(m_scale.minimum + position * m_scale.step, m_scale.maximum);
}

void SettingsSlider::take(int position)
{
    if (m_showing)
        return;
    m_current = numberAt(position);
    m_editing = true;
    Q_EMIT edited(m_current);
}

void SettingsSlider::endEditing()
{
    m_wheelRest.stop();
    if (!m_editing)
        return;
    m_editing = false;
    Q_EMIT editingEnded();
}

double SettingsSlider::knobX() const
{
    double const extent = m_scale.maximum - m_scale.minimum;
    double const share = extent > 0 ? (m_current - m_scale.minimum) / extent : 0.0;
    double const travel = width() - knobSide - 2 * FocusRing::room;
    double const x = FocusRing::room + knobSide / 2 + share * travel;
    return isRightToLeft() ? width() - x : x;
}

int SettingsSlider::positionUnder(double x) const
{
    double const fromStart = isRightToLeft() ? width() - x : x;
    double const travel = std::max(1.0, width() - knobSide - 2 * FocusRing::room);
    double const share
        = std::clamp((fromStart - FocusRing::room - knobSide / 2) / travel, 0.0, 1.0);
    return positionOf(m_scale.minimum + share * (m_scale.maximum - m_scale.minimum));
}

void SettingsSlider::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    event->accept();
    double const x = event->position().x();
    bool const onKnob = std::abs(x - knobX()) <= knobSide / 2;
    m_grabOffset = onKnob ? x - knobX() : 0.0;
    m_editing = true;
    setSliderDown(true);
    if (!onKnob)
        setSliderPosition(positionUnder(x));
}

void SettingsSlider::mouseMoveEvent(QMouseEvent* event)
{
    if (!isSliderDown()) {
        event->ignore();
        return;
    }
    event->accept();
    setSliderPosition(positionUnder(event->position().x() - m_grabOffset));
}

void SettingsSlider::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !isSliderDown()) {
        event->ignore();
        return;
    }
    event->accept();
    setSliderDown(false);
    update();
    endEditing();
}

void SettingsSlider::keyReleaseEvent(QKeyEvent* event)
{
    QSlider::keyReleaseEvent(event);
    if (!event->isAutoRepeat() && !isSliderDown())
        endEditing();
}

void SettingsSlider::focusOutEvent(QFocusEvent* event)
{
    QSlider::focusOutEvent(event);
    if (!isSliderDown())
        endEditing();
}

void SettingsSlider::hideEvent(QHideEvent* event)
{
    QSlider::hideEvent(event);
    // The release will not come to a window that is gone.
    setSliderDown(false);
    endEditing();
}

void SettingsSlider::wheelEvent(QWheelEvent* event)
{
    if (!hasFocus()) {
        event->ignore();
        return;
    }
    QSlider::wheelEvent(event);
    m_wheelRest.start();
}

QSize SettingsSlider::sizeHint() const
{
    return {120, sliderHeight};
}

QSize SettingsSlider::minimumSizeHint() const
{
    return {60, sliderHeight};
}

void SettingsSlider::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!isEnabled())
        painter.setOpacity(SettingsLook::disabledOpacity);

    double const x = knobX();
    double const middle = height() / 2.0;
    QRectF const groove(
        FocusRing::room, middle - grooveHeight / 2, width() - 2 * FocusRing::room, grooveHeight);
    auto filled = groove;
    if (isRightToLeft())
        filled.setLeft(x);
    else
        filled.setRight(x);

    painter.setPen(Qt::NoPen);
    painter.setBrush(SettingsLook::shade(0.12));
    painter.drawRoundedRect(groove, grooveHeight / 2, grooveHeight / 2);
    painter.setBrush(SettingsLook::sage());
    painter.drawRoundedRect(filled, grooveHeight / 2, grooveHeight / 2);

    QRectF const knob(x - knobSide / 2, middle - knobSide / 2, knobSide, knobSide);
    painter.setBrush(SettingsLook::shade(0.10));
    painter.drawEllipse(knob.translated(0.0, 1.0));
    painter.setPen(QPen(SettingsLook::shade(underMouse() ? 0.28 : 0.16), 1.0));
    painter.setBrush(isSliderDown() ? QColor(0xf1, 0xf2, 0xef) : QColor(Qt::white));
    painter.drawEllipse(knob.adjusted(0.5, 0.5, -0.5, -0.5));
    m_ring->draw(painter, knob.marginsAdded(FocusRing::margins), knobSide / 2 + FocusRing::room);
}

} // namespace velmora
