#include "Velmora/views/SettingsSwitch.h"

#include "Velmora/views/FocusRing.h"
#include "Velmora/views/SettingsLook.h"

#include <QPainter>
#include <QScopedValueRollback>
#include <QStyle>

#include <algorithm>

namespace velmora {

namespace {

constexpr QSize trackSize(36, 20);
constexpr int trackGap = 10;
constexpr double knobInset = 2.0;

constexpr int takenByTrack = trackSize.width() + trackGap + 2 * FocusRing::room;
constexpr int leastHeight = trackSize.height() + 2 * FocusRing::room;

} // namespace

SettingsSwitch::SettingsSwitch(QString const& text, QWidget* parent)
    : QCheckBox(text, parent)
    , m_ring(new FocusRing(*this))
{
    setFont(SettingsLook::controlFont());
    setAttribute(Qt::WA_Hover);
    auto policy = QSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    // Assistive programs toggle a switch without a click.
    connect(this, &QCheckBox::toggled, this, [this](bool on) {
        if (!m_showing)
            Q_EMIT edited(on);
    });
}

void SettingsSwitch::showState(bool on)
{
    QScopedValueRollback const quiet(m_showing, true);
    setChecked(on);
}

int SettingsSwitch::heightForWidth(int width) const
{
    QRect const room(0, 0, std::max(1, width - takenByTrack), QWIDGETSIZE_MAX);
    int const text = fontMetrics().boundingRect(room, Qt::TextWordWrap, this->text()).height();
    return std::max(leastHeight, text);
}

QSize SettingsSwitch::sizeHint() const
{
    int const text = fontMetrics().horizontalAdvance(this->text()) + 1;
    return {text + takenByTrack, std::max(leastHeight, fontMetrics().height())};
}

QSize SettingsSwitch::minimumSizeHint() const
{
    return {takenByTrack * 2, leastHeight};
}

bool SettingsSwitch::hitButton(QPoint const& position) const
{
    return rect().contains(position);
}

void SettingsSwitch::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!isEnabled())
        painter.setOpacity(SettingsLook::disabledOpacity);

    QRect const words(FocusRing::room, 0, width() - takenByTrack, height());
    auto const alignment
        = Qt::AlignVCenter | QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft);
    painter.setPen(SettingsLook::ink());
    painter.drawText(QStyle::visualRect(layoutDirection(), rect(), words),
        Qt::TextWordWrap | static_cast<int>(alignment.toInt()), text());

    QRect const track(
        QPoint(width() - trackSize.width() - FocusRing::room, (height() - trackSize.height()) / 2),
        trackSize);
    auto const shown = QRectF(QStyle::visualRect(layoutDirection(), rect(), track));
    drawTrack(painter, shown);
    m_ring->draw(painter, shown.marginsAdded(FocusRing::margins),
        trackSize.height() / 2.0 + FocusRing::room);
}

void SettingsSwitch::drawTrack(QPainter& painter, QRectF const& track) const
{
    double const radius = track.height() / 2;
    painter.setPen(Qt::NoPen);
    painter.setBrush(isChecked() ? SettingsLook::sage() : SettingsLook::shade(0.16));
    painter.drawRoundedRect(track, radius, radius);
    if (isDown() || underMouse()) {
        painter.setBrush(SettingsLook::shade(isDown() ? 0.10 : 0.05));
        painter.drawRoundedRect(track, radius, radius);
    }

    bool const atRight = isChecked() != isRightToLeft();
    double const side = track.height() - 2 * knobInset;
    QRectF const knob(atRight ? track.right() - knobInset - side : track.left() + knobInset,
        track.top() + knobInset, side, side);
    painter.setBrush(SettingsLook::shade(0.14));
    painter.drawEllipse(knob.translated(0.0, 0.75));
    painter.setBrush(Qt::white);
    painter.drawEllipse(knob);
}

} // namespace velmora
