#include "Velmora/platform/linux/session/SessionFocus.h"

#include "tests/platform/linux/session/Eventually.h"
#include "tests/platform/linux/session/PrivateBus.h"

#include <QDBusMessage>
#include <QElapsedTimer>
#include <QVariantMap>

#include <gtest/gtest.h>

#include <vector>

namespace velmora {
namespace {

struct SessionFocusTest : testing::Test {
    SessionFocusTest()
    {
        QObject::connect(&receiver, &FocusReceiver::requested, &receiver,
            [this](FocusRequest const& request) { requests.push_back(request); });
    }

    /// Sends the signal with any arguments, well-formed or not.
    void send(QVariantList const& arguments)
    {
        auto message = QDBusMessage::createSignal(QStringLiteral("/com/local/velmora"),
            QStringLiteral("com.local.velmora"), QStringLiteral("focus"));
        message.setArguments(arguments);
        peer.send(message);
    }

    /// Waits for as many requests, and for one more that must not come in between.
    [[nodiscard]] bool gets(std::vector<FocusRequest> expected)
    {
        sender.post(last);
        expected.push_back(last);
        bool const came = eventually([&] { return requests.size() >= expected.size(); });
        return came && requests == expected;
    }

    PrivateBus bus;
    QDBusConnection peer = bus.connect();
    FocusSender sender{peer};
    FocusReceiver receiver{bus.connect()};
    std::vector<FocusRequest> requests;
    FocusRequest last{.settings = true, .preview = true};
};

TEST_F(SessionFocusTest, CarriesBothFlags)
{
    sender.post({.settings = true});
    sender.post({.preview = true});
    sender.post({});
    EXPECT_TRUE(gets({{.settings = true}, {.preview = true}, {}}));
}

TEST_F(SessionFocusTest, ThreePostsAreThreeRequests)
{
    for (int i = 0; i < 3; ++i)
        sender.post({.settings = true});
    EXPECT_TRUE(gets({{.settings = true}, {.settings = true}, {.settings = true}}));
}

TEST_F(SessionFocusTest, SpeaksTheAgreedWords)
{
    auto const spy = bus.connect();
    QProcess monitor;
    monitor.start(QStringLiteral("dbus-monitor"),
        {QStringLiteral("--address"), bus.address(),
            QStringLiteral("interface='com.local.velmora'")});
    QByteArray heard;
    ASSERT_TRUE(eventually([&] { return (heard += monitor.readAll()).contains("NameLost"); }));
    sender.post({.settings = true});
    EXPECT_TRUE(eventually([&] {
        heard += monitor.readAll();
        return heard.contains("path=/com/local/velmora; interface=com.local.velmora; member=focus")
            && heard.contains("boolean false") && heard.contains("boolean true")
            && heard.contains("\"preview\"") && heard.contains("\"settings\"");
    })) << heard.toStdString();
    monitor.kill();
    monitor.waitForFinished();
}

TEST_F(SessionFocusTest, MissingEntriesCountAsFalse)
{
    send({});
    send({QVariantMap{}});
    send({QVariantMap{{QStringLiteral("preview"), true}}});
    EXPECT_TRUE(gets({{}, {}, {.preview = true}}));
}

TEST_F(SessionFocusTest, EntriesOfAnotherTypeCountAsFalse)
{
    send({QVariantMap{{QStringLiteral("settings"), 1}, {QStringLiteral("preview"), true}}});
    send({QVariantMap{{QStringLiteral("settings"), QStringLiteral("true")}}});
    send({QVariantMap{{QStringLiteral("settings"), QVariantMap{}}}});
    EXPECT_TRUE(gets({{.preview = true}, {}, {}}));
}

TEST_F(SessionFocusTest, ArgumentsOfAnotherShapeCountAsFalse)
{
    send({QStringLiteral("settings")});
    send({true, true});
    send({QVariantMap{{QStringLiteral("settings"), true}}, 1});
    EXPECT_TRUE(gets({{}, {}, {}}));
}

TEST_F(SessionFocusTest, EntriesThatNobodyAskedForAreIgnored)
{
    send({QVariantMap{{QStringLiteral("settings"), true}, {QStringLiteral("other"), 5}}});
    EXPECT_TRUE(gets({{.settings = true}}));
}

TEST_F(SessionFocusTest, AHugeMessageDoesNoHarm)
{
    QVariantMap many;
    for (int i = 0; i < 200'000; ++i)
        many.insert(QStringLiteral("entry %1").arg(i), QString(20, QLatin1Char('x')));
    send({many});
    send({QString(20'000'000, QLatin1Char('x'))});
    EXPECT_TRUE(gets({{}, {}}));
}

TEST_F(SessionFocusTest, OtherSignalsOfTheSameInterfaceAreNoRequests)
{
    peer.send(QDBusMessage::createSignal(QStringLiteral("/com/local/velmora"),
        QStringLiteral("com.local.velmora"), QStringLiteral("blur")));
    peer.send(QDBusMessage::createSignal(QStringLiteral("/com/local/other"),
        QStringLiteral("com.local.velmora"), QStringLiteral("focus")));
    EXPECT_TRUE(gets({}));
}

TEST_F(SessionFocusTest, WhatIsSettledHasReachedTheBus)
{
    sender.post({.settings = true});
    sender.settle();
    // The bus passes messages on in the order in which it got them.
    FocusSender(bus.connect()).post({.preview = true});
    EXPECT_TRUE(gets({{.settings = true}, {.preview = true}}));
}

TEST(SessionFocus, WithoutABusNothingHappensAndQuickly)
{
    QElapsedTimer timer;
    timer.start();
    FocusReceiver const receiver(noBus());
    FocusSender sender(noBus());
    testing::internal::CaptureStderr();
    sender.post({.settings = true});
    sender.settle();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_LT(timer.elapsed(), 500);
}

TEST(SessionFocus, NoBusIsStartedWhereTheEnvironmentNamesNone)
{
    auto const address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    auto const runtime = qgetenv("XDG_RUNTIME_DIR");
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    qputenv("XDG_RUNTIME_DIR", "/nonexistent");
    EXPECT_FALSE(existingSessionBus().isConnected());
    if (!address.isNull())
        qputenv("DBUS_SESSION_BUS_ADDRESS", address);
    if (runtime.isNull())
        qunsetenv("XDG_RUNTIME_DIR");
    else
        qputenv("XDG_RUNTIME_DIR", runtime);
}

} // namespace
} // namespace velmora
