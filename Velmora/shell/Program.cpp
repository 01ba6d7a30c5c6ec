#include "Velmora/shell/Program.h"

#include "Velmora/model/AppModel.h"
#include "Velmora/platform/linux/TomlDefaultsStore.h"
#include "Velmora/platform/linux/X11DesktopPanel.h"
#include "Velmora/platform/linux/X11DesktopWindow.h"
#include "Velmora/platform/linux/X11DisplayPower.h"
#include "Velmora/platform/linux/session/CanberraSound.h"
#include "Velmora/platform/linux/session/DesktopMotion.h"
#include "Velmora/platform/linux/session/SessionFocus.h"
#include "Velmora/platform/linux/session/UnixSignals.h"
#include "Velmora/platform/linux/session/X11Watch.h"
#include "Velmora/platform/linux/session/XdgAutostart.h"
#include "Velmora/platform/posix/HomeFolder.h"
#include "Velmora/platform/posix/InstalledResources.h"
#include "Velmora/platform/posix/SpawnedProcess.h"
#include "Velmora/platform/posix/StandardStreams.h"
#include "Velmora/platform/toolkit/LocalCalendar.h"
#include "Velmora/platform/toolkit/SystemClock.h"
#include "Velmora/platform/toolkit/ToolkitDisplays.h"
#include "Velmora/shell/AppDelegate.h"
#include "Velmora/shell/SaveAtExit.h"
#include "Velmora/shell/SystemObservers.h"

#include <QApplication>
#include <QDBusConnection>

#include <unistd.h>

#include <utility>

namespace velmora {

namespace {

std::unique_ptr<QApplication> makeApplication(int& argc, char** argv, DisplaySession const& session)
{
    BackendWish const wish(preferredBackend(session));
    auto application = std::make_unique<QApplication>(argc, argv);
    QApplication::setApplicationName(QStringLiteral("velmora"));
    QApplication::setApplicationDisplayName(QStringLiteral("Velmora"));
    QApplication::setDesktopFileName(QStringLiteral("com.local.velmora"));
    QApplication::setApplicationVersion(QStringLiteral(VELMORA_VERSION));
    QApplication::setQuitOnLastWindowClosed(false);
    return application;
}

std::filesystem::path programPath()
{
    return QCoreApplication::applicationFilePath().toStdString();
}

QString kdeSettings(std::filesystem::path const& config)
{
    bool const kde = qEnvironmentVariable("XDG_CURRENT_DESKTOP").contains(QStringLiteral("KDE"));
    return kde ? QString::fromStdString((config / "kdeglobals").string()) : QString();
}

} // namespace

int runProgram(int argc, char** argv, Launch launch)
{
    auto const application = makeApplication(argc, argv, launch.session);
    UnixSignals const endings;
    auto const config = configFolder(launch.home);
    auto const program = programPath();
    auto const sessionBus = existingSessionBus();

    SystemClock const clock;
    LocalCalendar const calendar;
    ToolkitDisplays displays;
    X11Watch x11;
    DesktopMotion const motion(sessionBus, x11, kdeSettings(config));
    TomlDefaultsStore defaults(defaultsFile(config));

    InstalledResources const resources(program);
    CanberraSound sound;
    StandardErrorStream standardError;
    ChimePlayer chime(resources, sound, standardError);
    XdgAutostart autostart(config, program);
    SpawnedProcess processes;
    LoginItem loginItem(
        autostart, processes, {.home = launch.home, .user = getuid(), .bundle = program});

    AppModel model({.clock = clock,
        .calendar = calendar,
        .displays = displays,
        .motion = motion,
        .defaults = defaults,
        .chime = chime,
        .loginItem = loginItem});
    X11DesktopPanel desktopPanel;
    X11DesktopWindow desktopWindow;
    X11DisplayPower displayPower;
    AppDelegate delegate(std::move(launch.lock),
        {.model = model,
            .clock = clock,
            .displays = displays,
            .defaults = defaults,
            .chime = chime,
            .desktopPanel = desktopPanel,
            .desktopWindow = desktopWindow,
            .displayPower = displayPower,
            .timeFormat = calendar.timeFormat()});

    SystemObservers const observers(delegate, sessionBus, QDBusConnection::systemBus(), x11);
    QObject::connect(&endings, &UnixSignals::endRequested, &delegate, &AppDelegate::terminate);
    QObject::connect(
        qApp, &QCoreApplication::aboutToQuit, &delegate, &AppDelegate::applicationWillTerminate);
    SaveAtExit const saveAtExit(delegate);

    delegate.applicationDidFinishLaunching(launch.request);
    return QApplication::exec();
}

} // namespace velmora
