#pragma once

#include "Velmora/model/AppModel.h"
#include "Velmora/views/SettingsCard.h"

class QGraphicsOpacityEffect;
class QLabel;

namespace velmora {

class SettingsSwitch;
class SettingsTimePicker;

/// When to remind: all day, or from one time of day to another.
class ActiveHoursCard final : public SettingsCard {
    Q_OBJECT

public:
    /// `timeFormat` is the user's form of an hour and a minute.
    ActiveHoursCard(AppModel& model, QString const& timeFormat, QWidget* parent);

private:
    SettingsTimePicker* addPicker(QLayout& row, QString const& caption, QString const& timeFormat);
    void refresh(AppModel::Property property);
    void refreshAllDay();
    void refreshNote();

    AppModel& m_model;
    SettingsSwitch* m_allDay;
    QWidget* m_hours;
    QGraphicsOpacityEffect* m_dimming;
    SettingsTimePicker* m_start = nullptr;
    SettingsTimePicker* m_end = nullptr;
    QLabel* m_overnight;
};

} // namespace velmora
