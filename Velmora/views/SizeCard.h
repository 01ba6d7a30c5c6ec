#pragma once

#include "Velmora/views/SettingsCard.h"

class QLabel;

namespace velmora {

class AppModel;
class SettingsSlider;

/// The side of the orb, up to what its display allows.
class SizeCard final : public SettingsCard {
    Q_OBJECT

public:
    SizeCard(AppModel& model, QWidget* parent);

    /// Reads the size and the display's limit again; the limit changes with the displays, of which
    /// the model does not tell.
    void refresh();

private:
    AppModel& m_model;
    // Made in this order, which is the order in which they are read out.
    QLabel* m_orb;
    QLabel* m_value;
    SettingsSlider* m_slider;
};

} // namespace velmora
