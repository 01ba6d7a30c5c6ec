#include "Velmora/platform/linux/session/DesktopMotion.h"

#include "Velmora/platform/linux/session/XsettingsDocument.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QFile>
#include <QFileInfo>

#include <utility>

namespace velmora {

namespace {

QString portalService()
{
    return QStringLiteral("org.freedesktop.portal.Desktop");
}

QString portalPath()
{
    return QStringLiteral("/org/freedesktop/portal/desktop");
}

QString portalInterface()
{
    return QStringLiteral("org.freedesktop.portal.Settings");
}

QString appearance()
{
    return QStringLiteral("org.freedesktop.appearance");
}

QString reducedMotion()
{
    return QStringLiteral("reduced-motion");
}

QString gnomeInterface()
{
    return QStringLiteral("org.gnome.desktop.interface");
}

QString enableAnimations()
{
    return QStringLiteral("enable-animations");
}

} // namespace

DesktopMotion::DesktopMotion(QDBusConnection sessionBus, X11Watch& x11, QString kdeSettings)
    : m_bus(std::move(sessionBus))
    , m_portal(portalService(), m_bus, QDBusServiceWatcher::WatchForRegistration)
    , m_x11(x11)
    , m_kdeSettings(std::move(kdeSettings))
{
    connect(&m_x11, &X11Watch::changed, this, &DesktopMotion::readXsettings);
    readXsettings();
    if (!m_kdeSettings.isEmpty()) {
        // The file is replaced whole when it is saved, so that its folder has to be watched too.
        m_kdeWatcher.addPath(QFileInfo(m_kdeSettings).path());
        connect(
            &m_kdeWatcher, &QFileSystemWatcher::fileChanged, this, &DesktopMotion::readKdeSettings);
        connect(&m_kdeWatcher, &QFileSystemWatcher::directoryChanged, this,
            &DesktopMotion::readKdeSettings);
        readKdeSettings();
    }
    if (!m_bus.isConnected())
        return;
    m_bus.connect(portalService(), portalPath(), portalInterface(),
        QStringLiteral("SettingChanged"), this, SLOT(portalSettingChanged(QDBusMessage)));
    connect(
        &m_portal, &QDBusServiceWatcher::serviceRegistered, this, &DesktopMotion::askPortalForAll);
    askPortalForAll();
}

bool DesktopMotion::reduceMotion() const
{
    return m_portalReducedMotion || m_portalAnimationsOff || m_xsettingsAnimationsOff
        || m_kdeAnimationsOff;
}

void DesktopMotion::askPortalForAll()
{
    askPortal(appearance(), reducedMotion());
    askPortal(gnomeInterface(), enableAnimations());
}

void DesktopMotion::askPortal(QString const& area, QString const& key)
{
    auto call = QDBusMessage::createMethodCall(
        portalService(), portalPath(), portalInterface(), QStringLiteral("Read"));
    call << area << key;
    call.setAutoStartService(false);
    auto* const watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
        [this, area, key](QDBusPendingCallWatcher* finished) {
            finished->deleteLater();
            QDBusPendingReply<QDBusVariant> const reply = *finished;
            if (!reply.isError())
                takePortalSetting(area, key, reply.value().variant());
        });
}

void DesktopMotion::portalSettingChanged(QDBusMessage const& message)
{
    auto const arguments = message.arguments();
    if (arguments.size() == 3)
        takePortalSetting(arguments[0].toString(), arguments[1].toString(), arguments[2]);
}

void DesktopMotion::takePortalSetting(QString const& area, QString const& key, QVariant value)
{
    // A signal wraps its value once, the portal's oldest call twice.
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    if (area == appearance() && key == reducedMotion())
        set(m_portalReducedMotion, value.toUInt() == 1);
    else if (area == gnomeInterface() && key == enableAnimations())
        set(m_portalAnimationsOff, value.metaType().id() == QMetaType::Bool && !value.toBool());
}

void DesktopMotion::readXsettings()
{
    auto const manager = m_x11.owner(m_x11.roleOnScreen("_XSETTINGS"));
    auto const property = manager == XCB_NONE ? std::vector<unsigned char>()
                                              : m_x11.property(manager, "_XSETTINGS_SETTINGS");
    set(m_xsettingsAnimationsOff, xsettingsInteger(property, "Gtk/EnableAnimations") == 0);
}

void DesktopMotion::readKdeSettings()
{
    // A replaced file is a new one to the watcher.
    if (QFileInfo::exists(m_kdeSettings))
        m_kdeWatcher.addPath(m_kdeSettings);
    QFile file(m_kdeSettings);
    constexpr qint64 muchMoreThanAnySettings = 1 << 20;
    bool const readable = file.open(QIODevice::ReadOnly);
    set(m_kdeAnimationsOff,
        readable && kdeAnimationsOff(QString::fromUtf8(file.read(muchMoreThanAnySettings))));
}

void DesktopMotion::set(bool& fact, bool value)
{
    bool const before = reduceMotion();
    fact = value;
    if (reduceMotion() != before)
        Q_EMIT reduceMotionChanged(reduceMotion());
}

bool kdeAnimationsOff(QString const& text)
{
    bool inGroup = false;
    bool off = false;
    for (auto const& line : text.split(QLatin1Char('\n'))) {
        auto const trimmed = line.trimmed();
        if (trimmed.startsWith(QLatin1Char('[')))
            inGroup = trimmed == QStringLiteral("[KDE]");
        auto const equals = trimmed.indexOf(QLatin1Char('='));
        if (!inGroup || trimmed.left(equals).trimmed() != QStringLiteral("AnimationDurationFactor"))
            continue;
        bool isNumber = false;
        double const factor = QStringView(trimmed).mid(equals + 1).toDouble(&isNumber);
        off = isNumber && factor == 0;
    }
    return off;
}

} // namespace velmora
