#pragma once

#include "Velmora/platform/MotionSetting.h"
#include "Velmora/platform/linux/session/X11Watch.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QFileSystemWatcher>
#include <QObject>
#include <QString>
#include <QVariant>

namespace velmora {

/// Whether the user asked the desktop for less motion, kept current by the desktop's own signals.
///
/// Asked are the desktop portal, the X settings and KDE's settings file. They speak for different
/// desktops, and each but the right one stays at its default: motion is reduced when any of them
/// says so.
class DesktopMotion final : public QObject, public MotionSetting {
    Q_OBJECT

public:
    /// `kdeSettings` is KDE's settings file; empty outside of KDE.
    DesktopMotion(QDBusConnection sessionBus, X11Watch& x11, QString kdeSettings = {});

    [[nodiscard]] bool reduceMotion() const override;

Q_SIGNALS:
    void reduceMotionChanged(bool reduce);

private Q_SLOTS:
    void portalSettingChanged(QDBusMessage const& message);

private:
    void askPortal(QString const& area, QString const& key);
    void askPortalForAll();
    void takePortalSetting(QString const& area, QString const& key, QVariant value);
    void readXsettings();
    void readKdeSettings();
    void set(bool& fact, bool value);

    QDBusConnection m_bus;
    QDBusServiceWatcher m_portal;
    X11Watch& m_x11;
    QString m_kdeSettings;
    QFileSystemWatcher m_kdeWatcher;
    bool m_portalReducedMotion = false;
    bool m_portalAnimationsOff = false;
    bool m_xsettingsAnimationsOff = false;
    bool m_kdeAnimationsOff = false;
};

/// Whether the text of KDE's settings file sets the duration of animations to nothing.
[[nodiscard]] bool kdeAnimationsOff(QString const& text);

} // namespace velmora
