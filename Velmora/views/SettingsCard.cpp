#include "Velmora/views/SettingsCard.h"

#include "Velmora/views/FlowLayout.h"
#include "Velmora/views/FocusRing.h"
#include "Velmora/views/SettingsLabel.h"

#include <QLocale>
#include <QPainter>
#include <QVBoxLayout>

namespace velmora {

namespace {

constexpr QMargins cardPadding(12, 12, 12, 12);
constexpr int rowSpacing = 8;
constexpr int lineGap = 2;

constexpr double cardRadius = 14.0;
constexpr double faceOpacity = 0.72;

constexpr SettingsLabel::Look titleLook
    = {.size = 10.0, .opacity = 0.45, .weight = QFont::DemiBold, .tracking = 0.6};

} // namespace

SettingsCard::SettingsCard(QString const& title, QWidget* parent)
    : QWidget(parent)
    , m_rows(*new QVBoxLayout(this))
{
    setAccessibleName(title);
    // Every row is larger on all sides than what is seen of it, by the room for a focus ring.
    m_rows.setContentsMargins(cardPadding - FocusRing::margins);
    m_rows.setSpacing(rowSpacing - 2 * FocusRing::room);
    addText(new SettingsLabel(QLocale().toUpper(title), titleLook, this));
}

void SettingsCard::addControl(QWidget* control)
{
    m_rows.addWidget(control);
}

void SettingsCard::addText(QWidget* label)
{
    label->setContentsMargins(FocusRing::margins);
    m_rows.addWidget(label);
}

void SettingsCard::addLine(FlowLayout* line)
{
    line->setContentsMargins(FocusRing::margins);
    m_rows.addLayout(line);
}

void SettingsCard::addRow(QWidget* leading, QWidget* trailing)
{
    auto* row = new FlowLayout(FlowLayout::Spread::apart, rowSpacing, lineGap);
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
    painter.drawRoundedRect(rect(), cardRadius, cardRadius);
}

} // namespace velmora
