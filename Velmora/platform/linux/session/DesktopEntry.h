#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// The text of a desktop entry, of which single values can be read and set while everything else,
/// comments and unknown keys included, stays as it is.
class DesktopEntry {
public:
    explicit DesktopEntry(std::string_view text);

    /// A key's raw value in the group "Desktop Entry"; absent without the key or the group. The
    /// last one counts where a key stands twice.
    [[nodiscard]] std::optional<std::string> value(std::string_view key) const;

    /// Sets a key's raw value in the group "Desktop Entry", which is added if it is missing.
    void set(std::string_view key, std::string_view value);

    [[nodiscard]] std::string text() const;

private:
    /// The line that holds the key, or the line before which it belongs.
    struct Place {
        std::size_t line = 0;
        bool present = false;
    };

    [[nodiscard]] std::optional<Place> find(std::string_view key) const;

    std::vector<std::string> m_lines;
};

/// A text as the raw value of a string key: backslashes and control characters are escaped.
[[nodiscard]] std::string desktopEntryString(std::string_view text);

/// The raw value of an `Exec` key that runs this program with no arguments, right for any path.
[[nodiscard]] std::string desktopEntryExec(std::string_view program);

} // namespace velmora
