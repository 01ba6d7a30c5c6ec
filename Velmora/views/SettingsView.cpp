#include "Velmora/views/SettingsView.h"

#include "Velmora/geometry/SettingsPlacement.h"
#include "Velmora/views/ActiveHoursCard.h"
#include "Velmora/views/AlertCard.h"
#include "Velmora/views/FlowLayout.h"
#include "Velmora/views/FocusRing.h"
#include "Velmora/views/GeneralCard.h"
#include "Velmora/views/IntervalCard.h"
#include "Velmora/views/SettingsAccessibility.h"
#include "Velmora/views/SettingsButton.h"
#include "Velmora/views/SettingsLabel.h"
#include "Velmora/views/SettingsLook.h"
#include "Velmora/views/SizeCard.h"

#include <QPainter>
#include <QVBoxLayout>

namespace velmora {

namespace {

constexpr QMargins formPadding(20, 28, 20, 18);
constexpr int cardSpacing = 10;
constexpr int actionGap = 12;

constexpr SettingsLabel::Look introLook = {.size = 12.0, .opacity = 0.7};
constexpr SettingsLabel::Look summaryLook = {.size = 11.0, .opacity = 0.6};

} // namespace

SettingsView::SettingsView(
    AppModel& model, ChimePlayer& chime, QString const& timeFormat, QWidget* parent)
    : QWidget(parent)
    , m_model(model)
{
    installSettingsAccessibility();
    setPalette(SettingsLook::palette());
    setFixedWidth(static_cast<int>(SettingsPlacement::width));

    auto* column = new QVBoxLayout(this);
    // The buttons bring room for their focus rings along, which reaches into the padding.
    column->setContentsMargins(
        formPadding - QMargins(FocusRing::room, 0, FocusRing::room, FocusRing::room));
    column->setSpacing(cardSpacing - FocusRing::room);
    addCards(*column, chime, timeFormat);
    addActions(*column);
    column->addStretch();

    connect(&m_model, &AppModel::changed, this, [this](AppModel::Property property) {
        if (property == AppModel::Property::intervalMinutes
            || property == AppModel::Property::allDay
            || property == AppModel::Property::startMinutes
            || property == AppModel::Property::endMinutes)
            refreshSummary();
    });
    refreshSummary();
}

void SettingsView::addCards(QVBoxLayout& column, ChimePlayer& chime, QString const& timeFormat)
{
    auto* cards = new QVBoxLayout;
    cards->setContentsMargins(FocusRing::room, 0, FocusRing::room, 0);
    cards->setSpacing(cardSpacing);
    cards->addWidget(new SettingsLabel(
        tr("A quiet nudge to unclench, inhale, and come back."), introLook, this));
    cards->addWidget(new IntervalCard(m_model, this));
    cards->addWidget(new ActiveHoursCard(m_model, timeFormat, this));
    cards->addWidget(new AlertCard(m_model, chime, this));
    m_size = new SizeCard(m_model, this);
    cards->addWidget(m_size);
    cards->addWidget(new GeneralCard(m_model, this));
    m_summary = new SettingsLabel({}, summaryLook, this);
    cards->addWidget(m_summary);
    column.addLayout(cards);
}

void SettingsView::addActions(QVBoxLayout& column)
{
    auto* now = new SettingsButton(SettingsButton::Kind::prominent, tr("Velmora now"), this);
    auto* quit = new SettingsButton(SettingsButton::Kind::bordered, tr("Quit"), this);
    connect(now, &SettingsButton::clicked, &m_model, &AppModel::velmoraNow);
    connect(quit, &SettingsButton::clicked, this, &SettingsView::quitRequested);

    auto* row = new FlowLayout(FlowLayout::Spread::apart, actionGap, actionGap);
    row->addWidget(now);
    row->addWidget(quit);
    column.addLayout(row);
}

void SettingsView::displaysChanged()
{
    m_size->refresh();
}

void SettingsView::refreshSummary()
{
    auto const minutes = static_cast<int>(m_model.intervalMinutes());
    QString const schedule = m_model.allDay()
        ? tr("Reminds you every %n minutes, all day.", nullptr, minutes)
        : tr("Reminds you every %n minutes, from %1 to %2.", nullptr, minutes)
              .arg(QString::fromStdString(m_model.formatMinutes(m_model.startMinutes())),
                  QString::fromStdString(m_model.formatMinutes(m_model.endMinutes())));
    m_summary->setText(tr("%1 %2", "the schedule, then how to handle the orb")
                           .arg(schedule,
                               tr("Drag the orb to move it. Drag the corner to resize. Click it "
                                  "during a reminder when you're done.")));
}

void SettingsView::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), SettingsLook::background());
}

void SettingsView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    displaysChanged();
}

} // namespace velmora
