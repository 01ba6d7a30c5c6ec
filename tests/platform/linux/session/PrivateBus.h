#pragma once

#include <QDBusConnection>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

#include <stdexcept>

namespace velmora {

/// A message bus that lives for one test.
class PrivateBus {
public:
    PrivateBus()
    {
        m_daemon.start(QStringLiteral("dbus-daemon"),
            {QStringLiteral("--session"), QStringLiteral("--nofork"),
                QStringLiteral("--address=unix:dir=") + m_folder.path(),
                QStringLiteral("--print-address")});
        if (!m_daemon.waitForReadyRead())
            throw std::runtime_error("no message bus");
        m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
    }
    PrivateBus(PrivateBus const&) = delete;
    PrivateBus& operator=(PrivateBus const&) = delete;
    ~PrivateBus()
    {
        for (auto const& name : m_names)
            QDBusConnection::disconnectFromBus(name);
        m_daemon.kill();
        m_daemon.waitForFinished();
    }

    [[nodiscard]] QString address() const { return m_address; }

    /// A new participant.
    [[nodiscard]] QDBusConnection connect()
    {
        static int count = 0;
        m_names.append(QStringLiteral("participant %1").arg(++count));
        auto connection = QDBusConnection::connectToBus(m_address, m_names.back());
        if (!connection.isConnected())
            throw std::runtime_error("the message bus refuses");
        return connection;
    }

private:
    QTemporaryDir m_folder;
    QProcess m_daemon;
    QString m_address;
    QStringList m_names;
};

/// A connection to no bus at all.
[[nodiscard]] inline QDBusConnection noBus()
{
    return QDBusConnection(QStringLiteral("no bus"));
}

} // namespace velmora
