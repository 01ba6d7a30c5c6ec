#pragma once

#include "tests/fakes/TemporaryFolder.h"

#include <QByteArray>
#include <QProcess>

#include <cstdint>
#include <stdexcept>
#include <vector>

#include <signal.h>

namespace velmora {

/// A sound server with one sink that nobody hears and that can be recorded. The process's
/// environment points to it while it lives.
class PrivateSoundServer {
public:
    PrivateSoundServer()
    {
        auto const folder = QByteArray::fromStdString(m_folder.path().string());
        qputenv("PULSE_RUNTIME_PATH", folder);
        qputenv("PULSE_SERVER", "unix:" + folder + "/native");
        qputenv("PULSE_COOKIE", folder + "/cookie");
        start();
    }
    PrivateSoundServer(PrivateSoundServer const&) = delete;
    PrivateSoundServer& operator=(PrivateSoundServer const&) = delete;
    ~PrivateSoundServer()
    {
        stop();
        for (char const* const name : {"PULSE_RUNTIME_PATH", "PULSE_SERVER", "PULSE_COOKIE"})
            qunsetenv(name);
    }

    void start()
    {
        m_server.start(QStringLiteral("pulseaudio"),
            {QStringLiteral("-n"), QStringLiteral("--daemonize=no"),
                QStringLiteral("--exit-idle-time=-1"), QStringLiteral("--use-pid-file=no"),
                QStringLiteral("--disallow-exit=no"), QStringLiteral("--log-target=null"),
                QStringLiteral("-L"),
                QStringLiteral("module-native-protocol-unix auth-anonymous=1 socket=%1/native")
                    .arg(QString::fromStdString(m_folder.path().string())),
                // Rewinding would have it rendered in blocks of two seconds.
                QStringLiteral("-L"),
                QStringLiteral("module-null-sink sink_name=null norewinds=1 rate=48000")});
        for (int i = 0; i < 200 && !answers(); ++i)
            m_server.waitForFinished(20);
        if (!answers())
            throw std::runtime_error("no sound server");
    }

    void stop()
    {
        kill(static_cast<pid_t>(m_server.processId()), SIGCONT);
        m_server.kill();
        m_server.waitForFinished();
    }

    void hang() { kill(static_cast<pid_t>(m_server.processId()), SIGSTOP); }
    void resume() { kill(static_cast<pid_t>(m_server.processId()), SIGCONT); }

    /// How many sounds are playing now.
    [[nodiscard]] int streams() const
    {
        auto const list
            = ask({QStringLiteral("list"), QStringLiteral("short"), QStringLiteral("sink-inputs")});
        return static_cast<int>(list.count('\n'));
    }

    /// Who is connected, as the server writes it.
    [[nodiscard]] QByteArray clients() const
    {
        return ask({QStringLiteral("list"), QStringLiteral("clients")});
    }

private:
    [[nodiscard]] bool answers() const { return ask({QStringLiteral("info")}).contains("Server"); }

    static QByteArray ask(QStringList const& arguments)
    {
        QProcess client;
        client.start(QStringLiteral("pactl"), arguments);
        client.waitForFinished(2000);
        return client.readAllStandardOutput();
    }

    TemporaryFolder m_folder;
    QProcess m_server;
};

/// Records what the server's sink plays: 48000 signed 16-bit samples a second, mono.
class Recording {
public:
    Recording()
    {
        m_recorder.start(QStringLiteral("parec"),
            {QStringLiteral("-d"), QStringLiteral("null.monitor"), QStringLiteral("--raw"),
                QStringLiteral("--rate=48000"), QStringLiteral("--channels=1"),
                QStringLiteral("--format=s16le"), QStringLiteral("--latency-msec=20")});
        if (!m_recorder.waitForReadyRead())
            throw std::runtime_error("no recording");
    }
    Recording(Recording const&) = delete;
    Recording& operator=(Recording const&) = delete;
    ~Recording()
    {
        m_recorder.kill();
        m_recorder.waitForFinished();
    }

    /// Everything recorded so far.
    [[nodiscard]] std::vector<std::int16_t> const& samples()
    {
        m_bytes += m_recorder.readAllStandardOutput();
        for (auto i = static_cast<qsizetype>(m_samples.size()) * 2; i + 1 < m_bytes.size(); i += 2)
            m_samples.push_back(static_cast<std::int16_t>(static_cast<unsigned char>(m_bytes[i])
                | static_cast<unsigned>(static_cast<unsigned char>(m_bytes[i + 1])) << 8U));
        return m_samples;
    }

private:
    QProcess m_recorder;
    QByteArray m_bytes;
    std::vector<std::int16_t> m_samples;
};

} // namespace velmora
