#pragma once

#include "Velmora/views/SettingsCard.h"

class QLabel;

namespace velmora {

class AppModel;
class SettingsSwitch;

/// Opening at login, with what there is to tell about it, and the pause.
class GeneralCard final : public SettingsCard {
    Q_OBJECT

public:
    GeneralCard(AppModel& model, QWidget* parent);

private:
    void refresh();

    AppModel& m_model;
    SettingsSwitch* m_openAtLogin;
    QLabel* m_loginNote;
    SettingsSwitch* m_paused;
};

} // namespace velmora
