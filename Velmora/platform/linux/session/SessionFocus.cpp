#include "Velmora/platform/linux/session/SessionFocus.h"

#include <QDBusArgument>
#include <QDBusVariant>
#include <QFileInfo>
#include <QVariantMap>

#include <utility>

namespace velmora {

namespace {

QString path()
{
    return QStringLiteral("/com/local/velmora");
}

QString interfaceName()
{
    return QStringLiteral("com.local.velmora");
}

QString member()
{
    return QStringLiteral("focus");
}

QString settingsKey()
{
    return QStringLiteral("settings");
}

QString previewKey()
{
    return QStringLiteral("preview");
}

/// A value of the dictionary; what is no boolean counts as false.
bool isTrue(QVariant const& value)
{
    return value.metaType().id() == QMetaType::Bool && value.toBool();
}

/// The request in a message; what is missing, superfluous or of another type counts as false.
FocusRequest parse(QDBusMessage const& message)
{
    auto const arguments = message.arguments();
    if (arguments.size() != 1 || message.signature() != QStringLiteral("a{sv}"))
        return {};
    FocusRequest request;
    auto const dictionary = arguments.front().value<QDBusArgument>();
    dictionary.beginMap();
    // A sender gone mad must not keep the program busy.
    constexpr int manyMoreThanNeeded = 64;
    for (int i = 0; i < manyMoreThanNeeded && !dictionary.atEnd(); ++i) {
        QString key;
        QDBusVariant value;
        dictionary.beginMapEntry();
        dictionary >> key >> value;
        dictionary.endMapEntry();
        if (key == settingsKey())
            request.settings = isTrue(value.variant());
        else if (key == previewKey())
            request.preview = isTrue(value.variant());
    }
    // The reader of a map holds the whole message until it is told that the map is over.
    dictionary.endMap();
    return request;
}

} // namespace

FocusSender::FocusSender(QDBusConnection bus)
    : m_bus(std::move(bus))
{
}

void FocusSender::post(FocusRequest const& request)
{
    if (!m_bus.isConnected())
        return;
    auto message = QDBusMessage::createSignal(path(), interfaceName(), member());
    message << QVariantMap{{settingsKey(), request.settings}, {previewKey(), request.preview}};
    m_bus.send(message);
}

void FocusSender::settle()
{
    if (!m_bus.isConnected())
        return;
    // The bus answers in order: after this, it has what was sent before.
    constexpr int milliseconds = 1000;
    m_bus.call(QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"),
                   QStringLiteral("/org/freedesktop/DBus"), QStringLiteral("org.freedesktop.DBus"),
                   QStringLiteral("GetId")),
        QDBus::Block, milliseconds);
}

FocusReceiver::FocusReceiver(QDBusConnection bus, QObject* parent)
    : QObject(parent)
{
    if (bus.isConnected())
        bus.connect(
            QString(), path(), interfaceName(), member(), this, SLOT(receive(QDBusMessage)));
}

void FocusReceiver::receive(QDBusMessage const& message)
{
    Q_EMIT requested(parse(message));
}

QDBusConnection existingSessionBus()
{
    // Without an address the D-Bus library would start a bus of its own.
    bool const known = !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS")
        || QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
    return known ? QDBusConnection::sessionBus()
                 : QDBusConnection(QStringLiteral("no session bus"));
}

} // namespace velmora
