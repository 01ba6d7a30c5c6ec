#include "Velmora/shell/VelmoraMain.h"

#include "Velmora/platform/FocusRequest.h"
#include "Velmora/platform/linux/DisplayServer.h"
#include "Velmora/platform/linux/session/SessionFocus.h"
#include "Velmora/platform/posix/EndingSignals.h"
#include "Velmora/platform/posix/HomeFolder.h"
#include "Velmora/platform/posix/InstanceLock.h"
#include "Velmora/platform/posix/StandardStreams.h"
#include "Velmora/shell/LibraryNoise.h"
#include "Velmora/shell/Program.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <span>
#include <string_view>
#include <thread>

namespace velmora {

namespace {

using namespace std::chrono_literals;

using Arguments = std::span<char const* const>;

constexpr std::string_view help
    = "Velmora, a breathing reminder for the desktop.\n"
      "\n"
      "  velmora [--settings] [--preview]\n"
      "\n"
      "  --settings  show the settings\n"
      "  --preview   start a reminder now\n"
      "  --help      say this, and end\n"
      "  --version   say the version, and end\n"
      "\n"
      "One copy runs for each user: a second launch hands its request to the first one.\n";

constexpr std::string_view version = "Velmora " VELMORA_VERSION "\n";

constexpr int posts = 3;
constexpr auto pauseAfterPost = 120ms;

bool holds(Arguments arguments, std::string_view flag)
{
    return std::ranges::any_of(
        arguments, [&](std::string_view argument) { return argument == flag; });
}

int answer(std::string_view text)
{
    (void)std::fwrite(text.data(), 1, text.size(), stdout);
    (void)std::fflush(stdout);
    return 0;
}

/// Asks the running copy to come forward. The posts are deliberately more than one, and each is
/// a request of its own.
int signalPeer(FocusRequest const& request)
{
    FocusSender sender(existingSessionBus());
    for (int i = 0; i < posts; ++i) {
        sender.post(request);
        std::this_thread::sleep_for(pauseAfterPost);
    }
    sender.settle();
    StandardErrorStream().write("Velmora: already running — bringing it forward.\n");
    return 0;
}

} // namespace

int VelmoraMain::main(int argc, char** argv)
{
    prepareStandardStreams();
    leaveOnEndingSignals();
    Arguments const arguments(argv, static_cast<std::size_t>(argc));
    if (holds(arguments, "--help"))
        return answer(help);
    if (holds(arguments, "--version"))
        return answer(version);

    quietLibraries();
    auto const request = focusRequest(arguments);
    auto const home = homeFolder();
    auto lock = InstanceLock::acquire(home);
    if (!lock)
        return signalPeer(request);

    auto const session = displaySession(arguments);
    if (!displayReachable(session)) {
        StandardErrorStream().write("Velmora: no display can be reached.\n");
        return 1;
    }
    return runProgram(argc, argv,
        {.request = request, .session = session, .home = home, .lock = std::move(lock)});
}

} // namespace velmora
