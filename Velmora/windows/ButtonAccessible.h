#pragma once

#include "Velmora/views/OrbControls.h"

#include <QAccessibleInterface>

namespace velmora {

class WidgetPanel;
class WidgetView;

/// One of the orb's buttons for assistive tools. It can be pressed whether it shows or not: who
/// needs these tools may not have a pointer to bring it up.
class ButtonAccessible final : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    ButtonAccessible(WidgetPanel& panel, OrbControls::Control control);

    [[nodiscard]] bool isValid() const override { return true; }
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QWindow* window() const override;
    [[nodiscard]] QAccessibleInterface* parent() const override;
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override
    {
        return nullptr;
    }
    [[nodiscard]] int indexOfChild(QAccessibleInterface const* /*child*/) const override
    {
        return -1;
    }
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text /*kind*/, QString const& /*text*/) override { }
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::Button; }
    [[nodiscard]] QAccessible::State state() const override { return {}; }
    void* interface_cast(QAccessible::InterfaceType type) override;

    [[nodiscard]] QStringList actionNames() const override;
    void doAction(QString const& name) override;
    [[nodiscard]] QStringList keyBindingsForAction(QString const& /*name*/) const override
    {
        return {};
    }

private:
    WidgetPanel& m_panel;
    WidgetView& m_view;
    OrbControls::Control m_control;
};

} // namespace velmora
