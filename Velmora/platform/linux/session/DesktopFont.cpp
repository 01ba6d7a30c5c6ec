#include "Velmora/platform/linux/session/DesktopFont.h"

#include "Velmora/platform/linux/session/X11Watch.h"
#include "Velmora/platform/linux/session/XsettingsDocument.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace velmora {

namespace {

constexpr std::array<std::string_view, 18> styles = {"Thin", "Ultra-Light", "Extra-Light", "Light",
    "Semi-Light", "Book", "Regular", "Normal", "Medium", "Semi-Bold", "Demi-Bold", "Bold",
    "Extra-Bold", "Heavy", "Black", "Italic", "Oblique", "Condensed"};

/// No desktop's own text is larger; what is, is no size.
constexpr double largest = 200;

/// Takes the last word off the text, and the space before it.
std::string_view takeWord(std::string_view& text)
{
    auto const space = text.find_last_of(' ');
    auto const word = space == std::string_view::npos ? text : text.substr(space + 1);
    text.remove_suffix(std::min(text.size(), word.size() + 1));
    return word;
}

std::string_view lastWord(std::string_view text)
{
    return takeWord(text);
}

/// The size that a word says; absent when it is no number of points.
std::optional<double> size(std::string_view word)
{
    double points = 0;
    auto const [end, error] = std::from_chars(word.data(), word.data() + word.size(), points);
    bool const whole = error == std::errc() && end == word.data() + word.size();
    return whole && points > 0 && points <= largest ? std::optional(points) : std::nullopt;
}

} // namespace

std::optional<FontWish> fontWish(std::string_view written)
{
    FontWish wish;
    if (auto const points = size(lastWord(written))) {
        wish.points = *points;
        takeWord(written);
    }
    while (std::ranges::find(styles, lastWord(written)) != styles.end())
        takeWord(written);
    while (!written.empty() && (written.back() == ',' || written.back() == ' '))
        written.remove_suffix(1);
    wish.family = written;
    return wish.family.empty() ? std::nullopt : std::optional(wish);
}

std::optional<FontWish> desktopFont(X11Watch& watched)
{
    auto const daemon = watched.owner(watched.roleOnScreen("_XSETTINGS"));
    if (daemon == XCB_NONE)
        return std::nullopt;
    auto const written
        = xsettingsText(watched.property(daemon, "_XSETTINGS_SETTINGS"), "Gtk/FontName");
    return written ? fontWish(*written) : std::nullopt;
}

} // namespace velmora
