#pragma once

#include "Velmora/views/SettingsCard.h"

namespace velmora {

class AppModel;
class ChimePlayer;
class SettingsSlider;
class SettingsSwitch;

/// The chime, its volume, and a way to see and hear a reminder now.
class AlertCard final : public SettingsCard {
    Q_OBJECT

public:
    AlertCard(AppModel& model, ChimePlayer& chime, QWidget* parent);

private:
    void addVolume();
    void refresh();

    AppModel& m_model;
    SettingsSwitch* m_sound;
    QWidget* m_chimeRows;
    SettingsSlider* m_volume;
};

} // namespace velmora
