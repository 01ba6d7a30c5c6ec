#include "Velmora/views/SettingsChip.h"

#include "Velmora/views/FocusRing.h"
#include "Velmora/views/SettingsLook.h"

#include <QPainter>

namespace velmora {

namespace {

constexpr double chipTextSize = 11.0;
constexpr double textOpacity = 0.85;
constexpr int sidePadding = 7;
constexpr int endPadding = 4;

} // namespace

SettingsChip::SettingsChip(QString const& text, QWidget* parent)
    : QPushButton(text, parent)
    , m_ring(new FocusRing(*this))
{
    setFont(SettingsLook::font(chipTextSize));
    setCheckable(true);
    setAutoDefault(true);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize SettingsChip::sizeHint() const
{
    auto const metrics = fontMetrics();
    return {metrics.horizontalAdvance(text()) + 2 * sidePadding, metrics.height() + 2 * endPadding};
}

void SettingsChip::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);

    QRectF const capsule = rect();
    double const radius = capsule.height() / 2;
    painter.setPen(Qt::NoPen);
    painter.setBrush(isChecked() ? SettingsLook::sage(0.22) : SettingsLook::shade(0.06));
    painter.drawRoundedRect(capsule, radius, radius);
    if (isDown() || underMouse()) {
        painter.setBrush(SettingsLook::shade(isDown() ? 0.10 : 0.05));
        painter.drawRoundedRect(capsule, radius, radius);
    }
    m_ring->draw(painter, capsule, radius);

    painter.setPen(SettingsLook::ink(textOpacity));
    painter.drawText(rect(), Qt::AlignCenter, text());
}

} // namespace velmora
