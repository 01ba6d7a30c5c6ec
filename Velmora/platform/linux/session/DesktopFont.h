#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace velmora {

class X11Watch;

/// A font that is wished for.
struct FontWish {
    std::string family;
    /// In typographer's points; 0 where none was said.
    double points = 0;

    bool operator==(FontWish const&) const = default;
};

/// Reads a font as GTK's desktops write it, such as "Cantarell Light 11": a family, words for its
/// style, which are passed over, and a size. Absent where no family is left.
[[nodiscard]] std::optional<FontWish> fontWish(std::string_view written);

/// The font that the desktop's settings daemon tells of; absent without one.
[[nodiscard]] std::optional<FontWish> desktopFont(X11Watch& watched);

} // namespace velmora
