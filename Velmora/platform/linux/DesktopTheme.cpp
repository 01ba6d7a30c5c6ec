#include "Velmora/platform/linux/DesktopTheme.h"

#include <QGuiApplication>

#include <algorithm>
#include <array>
#include <cctype>

namespace velmora {

namespace {

constexpr std::array<std::string_view, 9> gtkDesktops
    = {"GNOME", "XFCE", "X-CINNAMON", "CINNAMON", "MATE", "UNITY", "LXDE", "PANTHEON", "BUDGIE"};

bool equalWithoutCase(std::string_view text, std::string_view capitals)
{
    return std::ranges::equal(text, capitals, [](char character, char capital) {
        return std::toupper(static_cast<unsigned char>(character)) == capital;
    });
}

bool themeChosen(std::span<char const* const> arguments)
{
    bool const option = std::ranges::any_of(arguments, [](char const* argument) {
        std::string_view text = argument ? argument : "";
        text.remove_prefix(text.starts_with("--") ? 1 : 0);
        return text == "-platformtheme" || text.starts_with("-platformtheme=");
    });
    return option || !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORMTHEME");
}

} // namespace

bool usesGtk(std::string_view desktops)
{
    for (bool more = true; more;) {
        auto const colon = desktops.find(':');
        auto const name = desktops.substr(0, colon);
        if (std::ranges::any_of(
                gtkDesktops, [&](std::string_view gtk) { return equalWithoutCase(name, gtk); }))
            return true;
        more = colon != std::string_view::npos;
        desktops.remove_prefix(more ? colon + 1 : desktops.size());
    }
    return false;
}

bool leaveGtkAlone(std::span<char const* const> arguments)
{
    auto const desktops = qgetenv("XDG_CURRENT_DESKTOP");
    bool const leaves = usesGtk({desktops.constData(), static_cast<std::size_t>(desktops.size())})
        && !themeChosen(arguments);
    if (leaves)
        QGuiApplication::setDesktopSettingsAware(false);
    return leaves;
}

} // namespace velmora
