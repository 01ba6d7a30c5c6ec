#include "Velmora/views/SettingsAccessibility.h"

#include "Velmora/views/SettingsCard.h"
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

QAccessibleInterface* interfaceFor(QString const& /*className*/, QObject* object)
{
    if (auto* slider = qobject_cast<SettingsSlider*>(object))
        return new AccessibleSlider(*slider);
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
