#pragma once

#include <QMenu>
#include <QObject>
#include <QSystemTrayIcon>

#include <memory>

namespace velmora {

class AppModel;

/// The status item in the desktop's panel: an icon with a tooltip, and the small menu.
class StatusItem final : public QObject {
    Q_OBJECT

public:
    explicit StatusItem(AppModel& model);
    ~StatusItem() override;

    /// Puts the icon into the panel. Call it once a panel is there to take it: the toolkit decides
    /// at its first touch how to speak to the panel, for good.
    void show();

    /// Brings the tooltip and the menu's first row up to the status line.
    void refresh();

Q_SIGNALS:
    void openSettings();
    void quit();

private:
    void rebuildMenu();

    AppModel& m_model;
    QMenu m_menu;
    QAction* m_statusRow = nullptr;
    QAction* m_pauseRow = nullptr;
    std::unique_ptr<QSystemTrayIcon> m_icon;
};

} // namespace velmora
