#include "Velmora/views/SettingsAccessibility.h"

#include "Velmora/views/SettingsCard.h"
#include "Velmora/views/SettingsChip.h"
#include "Velmora/views/SettingsSlider.h"

#include <QAccessibleWidget>

namespace velmora {

namespace {

/// The toolkit's own slider would tell the knob's position instead of the number.
class AccessibleSlider final : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit AccessibleSlider(SettingsSlider& slider)
        : QAccessibleWidget(&slider, QAccessible::Slider)
        , m_slider(slider)
    {
    }

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    [[nodiscard]] QVariant currentValue() const override { return m_slider.current(); }
    void setCurrentValue(QVariant const& value) override { m_slider.enter(value.toDouble()); }
    [[nodiscard]] QVariant maximumValue() const override { return m_slider.scale().maximum; }
    [[nodiscard]] QVariant minimumValue() const override { return m_slider.scale().minimum; }
    [[nodiscard]] QVariant minimumStepSize() const override
    {
        return m_slider.scale().step * m_slider.scale().arrowSteps;
    }

private:
    SettingsSlider& m_slider;
};

/// A press on a chip chooses it, and only the model un-chooses it.
class AccessibleChip final : public QAccessibleWidget {
public:
    explicit AccessibleChip(SettingsChip& chip)
        : QAccessibleWidget(&chip, QAccessible::RadioButton, chip.text())
        , m_chip(chip)
    {
    }

    [[nodiscard]] QAccessible::State state() const override
    {
        auto state = QAccessibleWidget::state();
        state.checkable = true;
        state.checked = m_chip.isChecked();
        return state;
    }

    [[nodiscard]] QStringList actionNames() const override
    {
        return QStringList(pressAction()) + QAccessibleWidget::actionNames();
    }

    void doAction(QString const& action) override
    {
        if (action == pressAction())
            m_chip.click();
        else
            QAccessibleWidget::doAction(action);
    }

private:
    SettingsChip& m_chip;
};

QAccessibleInterface* interfaceFor(QString const& /*className*/, QObject* object)
{
    if (auto* slider = qobject_cast<SettingsSlider*>(object))
        return new AccessibleSlider(*slider);
    if (auto* chip = qobject_cast<SettingsChip*>(object))
        return new AccessibleChip(*chip);
    if (auto* card = qobject_cast<SettingsCard*>(object))
        return new QAccessibleWidget(card, QAccessible::Grouping);
    return nullptr;
}

} // namespace

void installSettingsAccessibility()
{
    QAccessible::installFactory(interfaceFor);
}

} // namespace velmora
