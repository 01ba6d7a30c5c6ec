#include "Velmora/views/ActiveHoursCard.h"

#include "Velmora/engine/DayWindow.h"
#include "Velmora/views/FlowLayout.h"
#include "Velmora/views/FocusRing.h"
#include "Velmora/views/SettingsLabel.h"
#include "Velmora/views/SettingsLook.h"
#include "Velmora/views/SettingsSwitch.h"
#include "Velmora/views/SettingsTimePicker.h"

#include <QGraphicsOpacityEffect>
#include <QVBoxLayout>

namespace velmora {

namespace {

constexpr SettingsLabel::Look captionLook = {.size = 11.0, .opacity = 0.7};
constexpr SettingsLabel::Look overnightLook = {.size = 11.0, .opacity = 0.55};
constexpr int columnGap = 12;
constexpr int captionGap = 4;

} // namespace

ActiveHoursCard::ActiveHoursCard(AppModel& model, QString const& timeFormat, QWidget* parent)
    : SettingsCard(tr("Active hours"), parent)
    , m_model(model)
    , m_allDay(new SettingsSwitch(tr("All day"), this))
    , m_hours(new QWidget(this))
    , m_dimming(new QGraphicsOpacityEffect(m_hours))
    , m_overnight(
          new SettingsLabel(tr("Overnight — reminders run through midnight."), overnightLook, this))
{
    auto* columns = new FlowLayout(FlowLayout::Spread::fill, columnGap, columnGap);
    columns->setContentsMargins(FocusRing::margins);
    m_hours->setLayout(columns);
    m_start = addPicker(*columns, tr("From"), timeFormat);
    m_end = addPicker(*columns, tr("To"), timeFormat);
    m_dimming->setOpacity(SettingsLook::disabledOpacity);
    m_hours->setGraphicsEffect(m_dimming);

    addControl(m_allDay);
    addControl(m_hours);
    addText(m_overnight);

    connect(m_allDay, &SettingsSwitch::edited, &m_model, &AppModel::setAllDay);
    connect(m_start, &SettingsTimePicker::edited, &m_model, &AppModel::setStartMinutes);
    connect(m_end, &SettingsTimePicker::edited, &m_model, &AppModel::setEndMinutes);
    connect(&m_model, &AppModel::changed, this, &ActiveHoursCard::refresh);
    for (auto const property : {AppModel::Property::allDay, AppModel::Property::startMinutes,
             AppModel::Property::endMinutes})
        refresh(property);
}

SettingsTimePicker* ActiveHoursCard::addPicker(
    QLayout& row, QString const& caption, QString const& timeFormat)
{
    auto* column = new QWidget(m_hours);
    auto* label = SettingsLabel::singleLine(caption, captionLook, column);
    auto* picker = new SettingsTimePicker(timeFormat, column);
    label->setBuddy(picker);
    picker->setAccessibleName(caption);

    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(captionGap);
    layout->addWidget(label);
    layout->addWidget(picker);
    row.addWidget(column);
    return picker;
}

void ActiveHoursCard::refresh(AppModel::Property property)
{
    switch (property) {
    case AppModel::Property::allDay:
        refreshAllDay();
        break;
    case AppModel::Property::startMinutes:
        m_start->showMinutes(DayWindow::normalize(m_model.startMinutes()));
        break;
    case AppModel::Property::endMinutes:
        m_end->showMinutes(DayWindow::normalize(m_model.endMinutes()));
        break;
    default:
        return;
    }
    refreshNote();
}

void ActiveHoursCard::refreshAllDay()
{
    m_allDay->showState(m_model.allDay());
    m_hours->setEnabled(!m_model.allDay());
    m_dimming->setEnabled(m_model.allDay());
}

void ActiveHoursCard::refreshNote()
{
    m_overnight->setVisible(!m_model.allDay() && m_model.endMinutes() < m_model.startMinutes());
}

} // namespace velmora
