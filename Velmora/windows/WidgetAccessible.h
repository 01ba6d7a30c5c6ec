#pragma once

#include "Velmora/views/OrbControls.h"

#include <QAccessibleObject>

#include <array>

namespace velmora {

class WidgetPanel;
class WidgetView;

/// The orb for assistive tools: one element with a label, the status line as its text, a hint,
/// three named actions, and the two buttons inside.
class WidgetAccessible final : public QAccessibleObject,
                               public QAccessibleActionInterface,
                               public QAccessibleTextInterface {
public:
    /// Makes the toolkit find this element for every panel.
    static void install();

    /// Tells the tools that the status line, which read `before`, and the buttons read differently.
    static void announce(WidgetPanel& panel, QString const& before);

    explicit WidgetAccessible(WidgetPanel& panel);
    WidgetAccessible(WidgetAccessible const&) = delete;
    WidgetAccessible& operator=(WidgetAccessible const&) = delete;
    WidgetAccessible(WidgetAccessible&&) = delete;
    WidgetAccessible& operator=(WidgetAccessible&&) = delete;

    [[nodiscard]] QAccessibleInterface* parent() const override;
    [[nodiscard]] int childCount() const override;
    [[nodiscard]] QAccessibleInterface* child(int index) const override;
    [[nodiscard]] int indexOfChild(QAccessibleInterface const* wanted) const override;
    [[nodiscard]] QWindow* window() const override;
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::Window; }
    [[nodiscard]] QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    [[nodiscard]] QStringList actionNames() const override;
    [[nodiscard]] QString localizedActionName(QString const& name) const override { return name; }
    void doAction(QString const& name) override;
    [[nodiscard]] QStringList keyBindingsForAction(QString const& /*name*/) const override
    {
        return {};
    }

    void selection(int index, int* start, int* end) const override;
    [[nodiscard]] int selectionCount() const override { return 0; }
    void addSelection(int /*start*/, int /*end*/) override { }
    void removeSelection(int /*index*/) override { }
    void setSelection(int /*index*/, int /*start*/, int /*end*/) override { }
    [[nodiscard]] int cursorPosition() const override { return 0; }
    void setCursorPosition(int /*position*/) override { }
    [[nodiscard]] QString text(int start, int end) const override;
    [[nodiscard]] int characterCount() const override;
    [[nodiscard]] QRect characterRect(int /*offset*/) const override { return rect(); }
    [[nodiscard]] int offsetAtPoint(QPoint const& /*point*/) const override { return 0; }
    void scrollToSubstring(int /*start*/, int /*end*/) override { }
    [[nodiscard]] QString attributes(int offset, int* start, int* end) const override;

private:
    ~WidgetAccessible() override;

    WidgetPanel& m_panel;
    WidgetView& m_view;
    std::array<QAccessible::Id, OrbControls::all.size()> m_buttons = {};
};

} // namespace velmora
