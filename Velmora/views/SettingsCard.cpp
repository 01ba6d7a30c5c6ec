#include "Velmora/views/SettingsCard.h"

#include "Velmora/views/FlowLayout.h"
#include "Velmora/views/FocusRing.h"
#include "Velmora/views/SettingsLabel.h"

#include <QLocale>
#include <QPainter>
#include <QVBoxLayout>

namespace velmora {

namespace {

constexpr int padding = 12;
constexpr int spacing = 8;
constexpr int lineGap = 2;

/// Every row is this much larger on all sides than what is seen of it.
constexpr int ringRoom = FocusRing::room;

constexpr double radius = 14.0;
constexpr double faceOpacity = 0.72;

constexpr SettingsLabel::Look titleLook
    = {.size = 10.0, .opacity = 0.45, .weight = QFont::DemiBold, .tracking = 0.6};

} // namespace

SettingsCard::SettingsCard(QString const& title, QWidget* parent)
    : QWidget(parent)
    , m_rows(*new QVBoxLayout(this))
{
    setAccessibleName(title);
    m_rows.setContentsMargins(
        padding - ringRoom, padding - ringRoom, padding - ringRoom, padding - ringRoom);
    m_rows.setSpacing(spacing - 2 * ringRoom);
    addText(new SettingsLabel(QLocale().toUpper(title), titleLook, this));
}

void SettingsCard::addControl(QWidget* control)
{
    m_rows.addWidget(control);
}

void SettingsCard::addText(QWidget* label)
{
    label->setContentsMargins(ringRoom, ringRoom, ringRoom, ringRoom);
    m_rows.addWidget(label);
}

void SettingsCard::addLine(FlowLayout* line)
{
    line->setContentsMargins(ringRoom, ringRoom, ringRoom, ringRoom);
    m_rows.addLayout(line);
}

void SettingsCard::addRow(QWidget* leading, QWidget* trailing)
{
    auto* row = new FlowLayout(FlowLayout::Spread::apart, spacing, lineGap);
    row->addWidget(leading);
    row->addWidget(trailing);
    addLine(row);
}

void SettingsCard::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor face(Qt::white);
    face.setAlphaF(static_cast<float>(faceOpacity));
    painter.setPen(Qt::NoPen);
    painter.setBrush(face);
    painter.drawRoundedRect(rect(), radius, radius);
}

} // namespace velmora
