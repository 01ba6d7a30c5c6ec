#include "Velmora/shell/Program.h"

#include "Velmora/model/AppModel.h"
#include "Velmora/platform/PlatformServices.h"
#include "Velmora/platform/Startup.h"
#include "Velmora/platform/posix/ProgramPath.h"
#include "Velmora/platform/posix/SpawnedProcess.h"
#include "Velmora/platform/posix/StandardStreams.h"
#include "Velmora/platform/toolkit/LocalCalendar.h"
#include "Velmora/platform/toolkit/SystemClock.h"
#include "Velmora/platform/toolkit/ToolkitDisplays.h"
#include "Velmora/platform/toolkit/UnixSignals.h"
#include "Velmora/shell/AppDelegate.h"
#include "Velmora/shell/SaveAtExit.h"
#include "Velmora/shell/SystemObservers.h"
#include "Velmora/shell/Translations.h"

#include <QApplication>
#include <QIcon>
#include <QLocale>

#include <unistd.h>

#include <utility>

namespace velmora {

namespace {

/// The icon that panels and switchers show where they do not find the installed one.
QIcon windowIcon()
{
    QIcon icon;
    for (int const side : {16, 32, 48, 64, 128})
        icon.addFile(QStringLiteral(":/icons/com.local.velmora-%1.png").arg(side));
    return icon;
}

std::unique_ptr<QApplication> makeApplication(int& argc, char** argv)
{
    auto application = std::make_unique<QApplication>(argc, argv);
    QApplication::setApplicationName(QStringLiteral("velmora"));
    QApplication::setApplicationDisplayName(QStringLiteral("Velmora"));
    QApplication::setDesktopFileName(QStringLiteral("com.local.velmora"));
    QApplication::setApplicationVersion(QStringLiteral(VELMORA_VERSION));
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setWindowIcon(windowIcon());
    return application;
}

} // namespace

int runProgram(int argc, char** argv, Launch launch)
{
    std::unique_ptr<QApplication> application;
    launch.startup.startToolkit([&] { application = makeApplication(argc, argv); });
    UnixSignals const endings;
    auto const system
        = PlatformServices::make({.home = launch.home, .program = programPath(*argv)});

    SystemClock const clock;
    LocalCalendar const calendar;
    ToolkitDisplays displays;
    Translations const translations(system->resources(), QLocale::system().uiLanguages());
    StandardErrorStream standardError;
    ChimePlayer chime(system->resources(), system->sound(), standardError);
    SpawnedProcess processes;
    LoginItem loginItem(system->loginService(), processes,
        {.home = launch.home, .user = getuid(), .bundle = system->bundle()},
        Translations::loginPhrases());

    AppModel model({.clock = clock,
        .calendar = calendar,
        .displays = displays,
        .motion = system->motion(),
        .defaults = system->defaults(),
        .chime = chime,
        .loginItem = loginItem,
        .phrases = Translations::statusPhrases()});
    AppDelegate delegate(std::move(launch.lock),
        {.model = model,
            .clock = clock,
            .displays = displays,
            .defaults = system->defaults(),
            .chime = chime,
            .desktopPanel = system->desktopPanel(),
            .desktopWindow = system->desktopWindow(),
            .displayPower = system->displayPower(),
            .statusSymbol = [&system](int side) { return system->statusSymbol(side); },
            .timeFormat = calendar.timeFormat()});

    observeSystem(*system, delegate);
    QObject::connect(&endings, &UnixSignals::endRequested, &delegate, &AppDelegate::terminate);
    QObject::connect(
        qApp, &QCoreApplication::aboutToQuit, &delegate, &AppDelegate::applicationWillTerminate);
    SaveAtExit const saveAtExit(delegate);

    delegate.applicationDidFinishLaunching(launch.request);
    return QApplication::exec();
}

} // namespace velmora
