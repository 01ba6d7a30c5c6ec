#include "Velmora/views/SettingsButton.h"

#include "Velmora/views/FocusRing.h"
#include "Velmora/views/SettingsLook.h"

#include <QPainter>

namespace velmora {

namespace {

constexpr double buttonRadius = 7.0;
constexpr QSize facePadding(14, 6);
constexpr QSize plainPadding(0, 0);
constexpr double plainTextSize = 12.0;

} // namespace

SettingsButton::SettingsButton(Kind kind, QString const& text, QWidget* parent)
    : QPushButton(text, parent)
    , m_kind(kind)
    , m_ring(new FocusRing(*this))
{
    setFont(kind == Kind::plain       ? SettingsLook::font(plainTextSize)
            : kind == Kind::prominent ? SettingsLook::controlFont(QFont::DemiBold)
                                      : SettingsLook::controlFont());
    setAutoDefault(true);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize SettingsButton::sizeHint() const
{
    auto const metrics = fontMetrics();
    QSize const words(metrics.horizontalAdvance(text()), metrics.height());
    QSize const around = (m_kind == Kind::plain ? plainPadding : facePadding)
        + QSize(FocusRing::room, FocusRing::room);
    return words + 2 * around;
}

void SettingsButton::drawFace(QPainter& painter) const
{
    QRectF const face = QRectF(rect()).marginsRemoved(FocusRing::margins);
    painter.setPen(Qt::NoPen);
    if (m_kind == Kind::plain)
        return;
    if (m_kind == Kind::prominent) {
        painter.setBrush(SettingsLook::sage());
        painter.drawRoundedRect(face, buttonRadius, buttonRadius);
    } else {
        painter.setPen(QPen(SettingsLook::shade(0.14), 1.0));
        painter.setBrush(Qt::white);
        painter.drawRoundedRect(face.adjusted(0.5, 0.5, -0.5, -0.5), buttonRadius, buttonRadius);
        painter.setPen(Qt::NoPen);
    }
    if (isDown() || underMouse()) {
        painter.setBrush(SettingsLook::shade(isDown() ? 0.12 : 0.06));
        painter.drawRoundedRect(face, buttonRadius, buttonRadius);
    }
}

void SettingsButton::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    drawFace(painter);
    m_ring->draw(painter, rect(), buttonRadius + FocusRing::room);

    auto words = font();
    words.setUnderline(m_kind == Kind::plain && underMouse());
    painter.setFont(words);
    painter.setPen(m_kind == Kind::prominent    ? QColor(Qt::white)
            : m_kind == Kind::plain && isDown() ? SettingsLook::ink(0.6)
                                                : SettingsLook::ink());
    painter.drawText(rect(), Qt::AlignCenter, text());
}

} // namespace velmora
