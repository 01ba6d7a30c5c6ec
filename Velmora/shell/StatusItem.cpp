#include "Velmora/shell/StatusItem.h"

#include "Velmora/model/AppModel.h"
#include "Velmora/shell/StatusImage.h"

#include <QCursor>

namespace velmora {

StatusItem::StatusItem(AppModel& model)
    : m_model(model)
{
    m_statusRow = m_menu.addAction(QString());
    m_statusRow->setEnabled(false);
    m_menu.addSeparator();
    m_pauseRow = m_menu.addAction(QString(), this, [this] { m_model.togglePaused(); });
    m_pauseRow->setShortcut(Qt::CTRL | Qt::Key_P);
    auto* now = m_menu.addAction(tr("Velmora Now"), this, [this] { m_model.velmoraNow(); });
    now->setShortcut(Qt::CTRL | Qt::Key_B);
    m_menu.addSeparator();
    auto* settings = m_menu.addAction(tr("Settings…"), this, &StatusItem::openSettings);
    settings->setShortcut(Qt::CTRL | Qt::Key_Comma);
    m_menu.addSeparator();
    auto* quitRow = m_menu.addAction(tr("Quit Velmora"), this, &StatusItem::quit);
    quitRow->setShortcut(Qt::CTRL | Qt::Key_Q);

    connect(&m_menu, &QMenu::aboutToShow, this, &StatusItem::rebuildMenu);
    rebuildMenu();
}

StatusItem::~StatusItem() = default;

void StatusItem::show()
{
    if (m_icon)
        return;
    m_icon = std::make_unique<QSystemTrayIcon>(statusImage(QColor(0xf2, 0xf2, 0xf2)));
    m_icon->setToolTip(QStringLiteral("Velmora"));
    m_icon->setContextMenu(&m_menu);
    connect(m_icon.get(), &QSystemTrayIcon::activated, this,
        [this](QSystemTrayIcon::ActivationReason reason) {
            if (reason == QSystemTrayIcon::Trigger)
                m_menu.popup(QCursor::pos());
        });
    m_icon->show();
}

void StatusItem::refresh()
{
    auto const line = QString::fromStdString(m_model.statusLine());
    if (m_icon)
        m_icon->setToolTip(QStringLiteral("Velmora — ") + line);
    if (m_statusRow->text() != line)
        m_statusRow->setText(line);
}

void StatusItem::rebuildMenu()
{
    m_statusRow->setText(QString::fromStdString(m_model.statusLine()));
    m_pauseRow->setText(m_model.paused() ? tr("Resume Reminders") : tr("Pause Reminders"));
}

} // namespace velmora
