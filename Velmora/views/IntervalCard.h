#pragma once

#include "Velmora/views/SettingsCard.h"

#include <vector>

class QLabel;

namespace velmora {

class AppModel;
class SettingsChip;
class SettingsSlider;

/// How often to remind: a slider over all minutes, and chips for the usual ones. A chip starts the
/// countdown over, the slider does not.
class IntervalCard final : public SettingsCard {
    Q_OBJECT

public:
    IntervalCard(AppModel& model, QWidget* parent);

private:
    struct Preset {
        int minutes;
        SettingsChip* chip;
    };

    void addChips();
    void refresh();

    AppModel& m_model;
    // Made in this order, which is the order in which they are read out.
    QLabel* m_every;
    QLabel* m_value;
    SettingsSlider* m_slider;
    std::vector<Preset> m_presets;
};

} // namespace velmora
