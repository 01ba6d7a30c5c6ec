#include "Velmora/shell/VelmoraMain.h"

#include "Velmora/platform/FocusRequest.h"
#include "Velmora/platform/Startup.h"
#include "Velmora/platform/posix/EndingSignals.h"
#include "Velmora/platform/posix/HomeFolder.h"
#include "Velmora/platform/posix/StandardStreams.h"
#include "Velmora/services/SingleInstance.h"
#include "Velmora/shell/LibraryNoise.h"
#include "Velmora/shell/Program.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <span>
#include <string_view>
#include <utility>

namespace velmora {

namespace {

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
    auto const startup = Startup::make(arguments);
    StandardErrorStream standardError;
    auto lock = SingleInstance(startup->peers(), standardError).claim(home, request);
    if (!lock)
        return 0;

    if (!startup->displayReachable()) {
        standardError.write("Velmora: no display can be reached.\n");
        return 1;
    }
    return runProgram(argc, argv,
        {.request = request, .startup = *startup, .home = home, .lock = std::move(lock)});
}

} // namespace velmora
