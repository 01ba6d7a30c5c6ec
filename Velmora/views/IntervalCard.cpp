#include "Velmora/views/IntervalCard.h"

#include "Velmora/model/AppModel.h"
#include "Velmora/views/FlowLayout.h"
#include "Velmora/views/SettingsChip.h"
#include "Velmora/views/SettingsLabel.h"
#include "Velmora/views/SettingsSlider.h"

#include <array>
#include <cmath>

namespace velmora {

namespace {

constexpr std::array presets = {5, 10, 15, 20, 30, 45};
constexpr double valueSize = 15.0;
constexpr int chipGap = 6;

} // namespace

IntervalCard::IntervalCard(AppModel& model, QWidget* parent)
    : SettingsCard(tr("Interval"), parent)
    , m_model(model)
    , m_every(SettingsLabel::singleLine(tr("Every", "every 20 minutes"), {}, this))
    , m_value(SettingsLabel::singleLine({}, {.size = valueSize}, this))
    , m_slider(new SettingsSlider(this))
{
    addRow(m_every, m_value);
    m_slider->setScale({.minimum = AppModel::shortestInterval,
        .maximum = AppModel::longestInterval,
        .step = 1,
        .pageSteps = 5});
    m_slider->setAccessibleName(tr("Minutes between reminders"));
    addControl(m_slider);
    addChips();

    connect(m_slider, &SettingsSlider::edited, this, [this](double minutes) {
        m_model.setIntervalMinutes(std::llround(minutes));
        refresh();
    });
    connect(&m_model, &AppModel::changed, this, [this](AppModel::Property property) {
        if (property == AppModel::Property::intervalMinutes)
            refresh();
    });
    refresh();
}

void IntervalCard::addChips()
{
    auto* row = new FlowLayout(FlowLayout::Spread::leading, chipGap, chipGap);
    for (int const minutes : presets) {
        auto* chip = new SettingsChip(tr("%nm", "a chip that sets the interval", minutes), this);
        chip->setAccessibleDescription(tr("Remind every %n minutes", nullptr, minutes));
        connect(chip, &SettingsChip::clicked, this,
            [this, minutes] { m_model.setInterval(minutes, ResetRemaining::yes); });
        row->addWidget(chip);
        m_presets.push_back({.minutes = minutes, .chip = chip});
    }
    addLine(row);
}

void IntervalCard::refresh()
{
    auto const minutes = static_cast<int>(m_model.intervalMinutes());
    m_value->setText(tr("%n min", "the interval", minutes));
    m_slider->showNumber(minutes);
    for (auto const& preset : m_presets)
        preset.chip->setChecked(preset.minutes == minutes);
}

} // namespace velmora
