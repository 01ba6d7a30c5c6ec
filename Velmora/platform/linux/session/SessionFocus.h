#pragma once

#include "Velmora/platform/FocusRequest.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

namespace velmora {

/// Posts focus requests on the session bus. Needs no display; without a bus nothing happens.
class FocusSender {
public:
    explicit FocusSender(QDBusConnection bus);

    /// Posts the request once and returns at once.
    void post(FocusRequest const& request);

    /// Returns when everything posted has reached the bus, or after a second at most.
    void settle();

private:
    QDBusConnection m_bus;
};

/// Hears the focus requests of later copies on the session bus.
class FocusReceiver final : public QObject {
    Q_OBJECT

public:
    explicit FocusReceiver(QDBusConnection bus, QObject* parent = nullptr);

Q_SIGNALS:
    /// Another copy asks; every post is a request of its own.
    void requested(velmora::FocusRequest const& request);

private Q_SLOTS:
    void receive(QDBusMessage const& message);
};

/// The session bus of the environment, which is never started for the purpose. Where there is
/// none the connection is not connected.
[[nodiscard]] QDBusConnection existingSessionBus();

} // namespace velmora

Q_DECLARE_METATYPE(velmora::FocusRequest)
