#include "Velmora/platform/linux/session/SessionFocus.h"

#include "tests/fuzz/FuzzInput.h"
#include "tests/platform/linux/session/PrivateBus.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusVariant>
#include <QDBusVirtualObject>

#include <utility>

namespace velmora {
namespace {

/// Takes messages in the place of the bus's own delivery and hands them to the receiver.
class Mouth final : public QDBusVirtualObject {
public:
    explicit Mouth(FocusReceiver& receiver)
        : m_receiver(receiver)
    {
    }

    [[nodiscard]] QString introspect(QString const& /*path*/) const override { return {}; }

    bool handleMessage(QDBusMessage const& message, QDBusConnection const& bus) override
    {
        ++delivered;
        QMetaObject::invokeMethod(
            &m_receiver, "receive", Qt::DirectConnection, Q_ARG(QDBusMessage, message));
        bus.send(message.createReply());
        return true;
    }

    int delivered = 0;

private:
    FocusReceiver& m_receiver;
};

/// A receiver on a bus, and a way to reach it within the process: what is called on one's own
/// name is marshalled and read again as any message, but never leaves the connection.
class Loop {
public:
    Loop()
    {
        QObject::connect(&m_receiver, &FocusReceiver::requested, &m_receiver,
            [this](FocusRequest const& request) { requests.push_back(request); });
        m_connection.registerVirtualObject(path(), &m_mouth);
    }

    /// Sends the arguments; what the receiver asked for is in `requests`.
    void send(QVariantList const& arguments)
    {
        requests.clear();
        m_mouth.delivered = 0;
        auto message = QDBusMessage::createMethodCall(m_connection.baseService(), path(),
            QStringLiteral("com.local.velmora"), QStringLiteral("focus"));
        message.setArguments(arguments);
        m_connection.call(message);
    }

    [[nodiscard]] bool delivered() const { return m_mouth.delivered == 1; }

    std::vector<FocusRequest> requests;

private:
    static QString path() { return QStringLiteral("/com/local/velmora"); }

    PrivateBus m_bus;
    QDBusConnection m_connection = m_bus.connect();
    FocusReceiver m_receiver{m_connection};
    Mouth m_mouth{m_receiver};
};

/// A text without zeros, which no message can carry.
QString text(FuzzInput& input)
{
    QString result;
    for (int left = input.number(0, 12); left > 0; --left)
        result.append(QChar(static_cast<char16_t>(1 + input.byte())));
    return result;
}

/// A value of any type, nested a little.
QVariant value(FuzzInput& input, int depth = 0)
{
    switch (input.number(0, depth < 4 ? 11 : 8)) {
    case 0:
    case 1:
        return input.yes();
    case 2:
        return input.number(-2, 2);
    case 3:
        return static_cast<uint>(input.byte());
    case 4:
        return input.anyDouble();
    case 5:
        return text(input);
    case 6:
        return QByteArray(input.number(0, 20), 'x');
    case 7:
        return QVariant::fromValue(static_cast<uchar>(input.byte()));
    case 8:
        return QVariant::fromValue(static_cast<qlonglong>(input.number(-9, 9)));
    case 9:
        return QVariant::fromValue(QDBusVariant(value(input, depth + 1)));
    case 10: {
        QVariantMap map;
        for (int left = input.number(0, 3); left > 0; --left)
            map.insert(
                input.yes() ? QStringLiteral("settings") : text(input), value(input, depth + 1));
        return map;
    }
    default: {
        QVariantList list;
        for (int left = input.number(0, 3); left > 0; --left)
            list.append(value(input, depth + 1));
        return list;
    }
    }
}

QString key(FuzzInput& input)
{
    switch (input.number(0, 3)) {
    case 0:
        return QStringLiteral("settings");
    case 1:
        return QStringLiteral("preview");
    default:
        return text(input);
    }
}

/// A dictionary in which keys may stand twice, and what it asks for: of two equal keys the last
/// one counts, and only the first 64 entries do.
std::pair<QVariant, FocusRequest> dictionary(FuzzInput& input)
{
    QDBusArgument argument;
    FocusRequest expected;
    argument.beginMap(QMetaType::fromType<QString>(), QMetaType::fromType<QDBusVariant>());
    int const entries = input.yes() ? input.number(0, 4) : input.number(0, 80);
    for (int i = 0; i < entries; ++i) {
        auto const name = key(input);
        auto const held = value(input);
        argument.beginMapEntry();
        argument << name << QDBusVariant(held);
        argument.endMapEntry();
        bool const asks = held.typeId() == QMetaType::Bool && held.toBool();
        if (i < 64 && name == QStringLiteral("settings"))
            expected.settings = asks;
        else if (i < 64 && name == QStringLiteral("preview"))
            expected.preview = asks;
    }
    argument.endMap();
    return {QVariant::fromValue(argument), expected};
}

} // namespace
} // namespace velmora

/// Any message with the right name is one request, and asks for what it says and no more.
extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size)
{
    using namespace velmora;
    static int argc = 0;
    static QCoreApplication const application(argc, nullptr);
    static Loop loop;

    FuzzInput input(data, size);
    FocusRequest expected;
    QVariantList arguments;
    switch (input.number(0, 4)) {
    case 0:
        for (int left = input.number(0, 3); left > 0; --left)
            arguments.append(value(input));
        // One plain dictionary is the right shape.
        if (arguments.size() == 1 && arguments.front().typeId() == QMetaType::QVariantMap)
            arguments.append(true);
        break;
    case 1:
        arguments = {dictionary(input).first, value(input)};
        break;
    default: {
        auto const made = dictionary(input);
        arguments = {made.first};
        expected = made.second;
    }
    }
    loop.send(arguments);
    require(loop.delivered());
    require(loop.requests == std::vector<FocusRequest>{expected});
    return 0;
}
