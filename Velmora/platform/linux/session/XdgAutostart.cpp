#include "Velmora/platform/linux/session/XdgAutostart.h"

#include "Velmora/platform/linux/session/DesktopEntry.h"
#include "Velmora/services/AtomicFile.h"
#include "Velmora/services/Utf8.h"

#include <fstream>
#include <iterator>
#include <optional>
#include <system_error>

namespace velmora {

namespace fs = std::filesystem;

namespace {

std::optional<std::string> readText(fs::path const& file)
{
    std::error_code error;
    if (!fs::is_regular_file(file, error))
        return std::nullopt;
    std::ifstream stream(file, std::ios::binary);
    if (!stream)
        return std::nullopt;
    return std::string(std::istreambuf_iterator<char>(stream), {});
}

/// Whether the user switched the entry off.
bool isSwitchedOff(DesktopEntry const& entry)
{
    return entry.value("Hidden") == "true" || entry.value("X-GNOME-Autostart-enabled") == "false";
}

/// Makes the entry start this program; true when it did not before.
bool point(DesktopEntry& entry, std::string const& program)
{
    auto const exec = desktopEntryExec(program);
    auto const tryExec = desktopEntryString(program);
    if (entry.value("Exec") == exec && entry.value("TryExec") == tryExec)
        return false;
    entry.set("Exec", exec);
    entry.set("TryExec", tryExec);
    return true;
}

DesktopEntry freshEntry()
{
    return DesktopEntry("[Desktop Entry]\n"
                        "Type=Application\n"
                        "Name=Velmora\n"
                        "Comment=A breathing reminder for the desktop\n"
                        "Icon=com.local.velmora\n"
                        "Terminal=false\n"
                        "StartupNotify=false\n"
                        "X-GNOME-Autostart-enabled=true\n");
}

} // namespace

XdgAutostart::XdgAutostart(fs::path const& configFolder, fs::path const& program)
    : m_file(configFolder / "autostart/com.local.velmora.desktop")
    , m_program(program.string())
{
}

LoginService::Status XdgAutostart::status()
{
    auto const text = readText(m_file);
    if (!text)
        return Status::notRegistered;
    DesktopEntry entry(*text);
    bool const switchedOff = isSwitchedOff(entry);
    bool const stale = point(entry, m_program) && !replaceFile(m_file, entry.text());
    if (switchedOff)
        return Status::requiresApproval;
    return stale ? Status::notRegistered : Status::enabled;
}

bool XdgAutostart::registerProgram()
{
    // Desktop entries are UTF-8.
    if (!m_file.is_absolute() || !isUtf8(m_program))
        return false;
    std::error_code error;
    fs::create_directories(m_file.parent_path(), error);
    if (error)
        return false;
    auto entry = freshEntry();
    point(entry, m_program);
    return replaceFile(m_file, entry.text());
}

bool XdgAutostart::unregisterProgram()
{
    std::error_code error;
    fs::remove(m_file, error);
    return !error;
}

} // namespace velmora
