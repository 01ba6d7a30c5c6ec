#pragma once

#include "Velmora/shell/StatusImage.h"
#include <QColor>

#include <QMenu>
#include <QObject>
#include <QSystemTrayIcon>

#include <memory>
#include <optional>

namespace velmora {

class AppModel;

/// The status item in the desktop's panel: an icon with a tooltip, and the small menu.
class StatusItem final : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(StatusItem)

public:
    StatusItem(AppModel& model, StatusSymbol symbol);
    ~StatusItem() override;

    /// Puts the icon into the panel. Call it once a panel is there to take it: the toolkit decides
    /// at its first touch how to speak to the panel, for good.
    void show();

    /// Draws the icon in the panel's colour for symbols; without one, readable on any panel.
    void setInk(std::optional<QColor> const& ink);

    /// Brings the tooltip and the menu's first row up to the status line.
    void refresh();

Q_SIGNALS:
    void openSettings();
    void quit();

private:
    void rebuildMenu();
    QAction* addRow(QString const& title, QKeySequence const& shortcut);

    AppModel& m_model;
    StatusSymbol m_symbol;
    std::optional<QColor> m_ink;
    QMenu m_menu;
    QAction* m_statusRow = nullptr;
    QAction* m_pauseRow = nullptr;
    std::unique_ptr<QSystemTrayIcon> m_icon;
};

} // namespace velmora
