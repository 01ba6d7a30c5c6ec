#include "Velmora/views/SizeCard.h"

#include "Velmora/model/AppModel.h"
#include "Velmora/views/SettingsLabel.h"
#include "Velmora/views/SettingsSlider.h"

#include <algorithm>

namespace velmora {

namespace {

constexpr SettingsLabel::Look hintLook = {.size = 11.0, .opacity = 0.55};

} // namespace

SizeCard::SizeCard(AppModel& model, QWidget* parent)
    : SettingsCard(tr("Size"), parent)
    , m_model(model)
    , m_orb(SettingsLabel::singleLine(tr("Orb"), {}, this))
    , m_value(SettingsLabel::singleLine({}, {}, this))
    , m_slider(new SettingsSlider(this))
{
    addRow(m_orb, m_value);
    m_slider->setAccessibleName(tr("Size of the orb"));
    addControl(m_slider);
    addText(new SettingsLabel(
        tr("Or drag the corner grip on the orb, pinch, or scroll over it."), hintLook, this));

    connect(m_slider, &SettingsSlider::edited, this, [this](double size) {
        m_model.setWidgetSize(size);
        refresh();
    });
    connect(&m_model, &AppModel::changed, this, [this](AppModel::Property property) {
        if (property == AppModel::Property::widgetSize
            || property == AppModel::Property::hostScreen)
            refresh();
    });
    refresh();
}

void SizeCard::refresh()
{
    double const largest = m_model.maxWidgetSize(m_model.hostScreen());
    m_slider->setScale({.minimum = std::min(AppModel::minimumSize, largest),
        .maximum = largest,
        .step = 1,
        .pageSteps = 10});
    m_slider->showNumber(m_model.widgetSize());
    m_value->setText(tr("%n pt", "the side of the orb", static_cast<int>(m_model.widgetSize())));
}

} // namespace velmora
