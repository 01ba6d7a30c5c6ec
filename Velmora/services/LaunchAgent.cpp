#include "Velmora/services/LaunchAgent.h"

#include "Velmora/services/AtomicFile.h"
#include "Velmora/services/XmlText.h"

#include <array>
#include <system_error>

namespace velmora {

namespace fs = std::filesystem;

LaunchAgent::LaunchAgent(ProcessRunner& runner, Place place)
    : m_runner(runner)
    , m_place(std::move(place))
{
}

bool LaunchAgent::install()
{
    std::error_code error;
    fs::create_directories(file().parent_path(), error);
    if (error)
        return false;
    auto const list = launchAgentPropertyList(label, m_place.bundle.string());
    if (!list || !replaceFile(file(), *list))
        return false;
    unload();
    return launch(std::array<std::string, 3>{"bootstrap", domain(), file().string()}) == 0;
}

void LaunchAgent::remove()
{
    std::error_code error;
    if (!fs::exists(file(), error))
        return;
    unload();
    fs::remove(file(), error);
}

void LaunchAgent::unload()
{
    // It fails when no such agent is loaded, and that is as good.
    launch(std::array<std::string, 2>{"bootout", domain() + "/" + std::string(label)});
}

int LaunchAgent::launch(std::span<std::string const> arguments)
{
    constexpr int couldNotStart = 1;
    return m_runner.run(m_place.tool, arguments).value_or(couldNotStart);
}

fs::path LaunchAgent::file() const
{
    return m_place.home / "Library/LaunchAgents" / (std::string(label) + ".plist");
}

std::string LaunchAgent::domain() const
{
    return "gui/" + std::to_string(m_place.user);
}

std::optional<std::string> launchAgentPropertyList(std::string_view label, std::string_view bundle)
{
    auto const escapedLabel = xmlText(label);
    auto const escapedBundle = xmlText(bundle);
    if (!escapedLabel || !escapedBundle)
        return std::nullopt;
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
           "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
           "<plist version=\"1.0\">\n"
           "<dict>\n"
           "\t<key>Label</key>\n"
           "\t<string>"
        + *escapedLabel
        + "</string>\n"
          "\t<key>LimitLoadToSessionType</key>\n"
          "\t<string>Aqua</string>\n"
          "\t<key>ProgramArguments</key>\n"
          "\t<array>\n"
          "\t\t<string>/usr/bin/open</string>\n"
          "\t\t<string>-a</string>\n"
          "\t\t<string>"
        + *escapedBundle
        + "</string>\n"
          "\t</array>\n"
          "\t<key>RunAtLoad</key>\n"
          "\t<true/>\n"
          "</dict>\n"
          "</plist>\n";
}

} // namespace velmora
