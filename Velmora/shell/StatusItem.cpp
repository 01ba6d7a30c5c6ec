#include "Velmora/shell/StatusItem.h"

#include "Velmora/model/AppModel.h"
#include "Velmora/shell/StatusImage.h"

#include <QCursor>

#include <utility>

namespace velmora {

StatusItem::StatusItem(AppModel& model, StatusSymbol symbol)
    : m_model(model)
    , m_symbol(std::move(symbol))
{
    m_statusRow = m_menu.addAction(QString());
    m_statusRow->setEnabled(false);
    m_menu.addSeparator();
    m_pauseRow = addRow(QString(), Qt::CTRL | Qt::Key_P);
    connect(m_pauseRow, &QAction::triggered, this, [this] { m_model.togglePaused(); });
    auto const* now = addRow(tr("Velmora Now"), Qt::CTRL | Qt::Key_B);
    connect(now, &QAction::triggered, this, [this] { m_model.velmoraNow(); });
    m_menu.addSeparator();
    auto const* settings = addRow(tr("Settings…"), Qt::CTRL | Qt::Key_Comma);
    connect(settings, &QAction::triggered, this, &StatusItem::openSettings);
    m_menu.addSeparator();
    auto const* quitRow = addRow(tr("Quit Velmora"), Qt::CTRL | Qt::Key_Q);
    connect(quitRow, &QAction::triggered, this, &StatusItem::quit);

    connect(&m_menu, &QMenu::aboutToShow, this, &StatusItem::rebuildMenu);
    rebuildMenu();
}

StatusItem::~StatusItem() = default;

QAction* StatusItem::addRow(QString const& title, QKeySequence const& shortcut)
{
    auto* const row = m_menu.addAction(title);
    row->setShortcut(shortcut);
    // Some desktops keep shortcuts out of menus like this one unless told otherwise.
    row->setShortcutVisibleInContextMenu(true);
    return row;
}

void StatusItem::show()
{
    if (m_icon)
        return;
    m_icon = std::make_unique<QSystemTrayIcon>(statusImage(m_ink, m_symbol));
    m_icon->setToolTip(QStringLiteral("Velmora"));
    m_icon->setContextMenu(&m_menu);
    connect(m_icon.get(), &QSystemTrayIcon::activated, this,
        [this](QSystemTrayIcon::ActivationReason reason) {
            if (reason == QSystemTrayIcon::Trigger)
                m_menu.popup(QCursor::pos());
        });
    m_icon->show();
}

void StatusItem::setInk(std::optional<QColor> const& ink)
{
    m_ink = ink;
    if (m_icon)
        m_icon->setIcon(statusImage(m_ink, m_symbol));
}

void StatusItem::refresh()
{
    auto const line = QString::fromStdString(m_model.statusLine());
    auto const toolTip = QStringLiteral("Velmora — ") + line;
    if (m_icon && m_icon->toolTip() != toolTip)
        m_icon->setToolTip(toolTip);
    if (m_statusRow->text() != line)
        m_statusRow->setText(line);
}

void StatusItem::rebuildMenu()
{
    m_statusRow->setText(QString::fromStdString(m_model.statusLine()));
    m_pauseRow->setText(m_model.paused() ? tr("Resume Reminders") : tr("Pause Reminders"));
}

} // namespace velmora
