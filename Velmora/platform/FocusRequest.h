#pragma once

#include <span>
#include <string_view>

namespace velmora {

/// What a later copy of the program asks of the one that runs: come forward, and perhaps more.
struct FocusRequest {
    /// Show the settings.
    bool settings = false;
    /// Start a reminder now.
    bool preview = false;

    bool operator==(FocusRequest const&) const = default;
};

/// What a command line asks for: an argument counts when it is exactly "--settings" or
/// "--preview", wherever it stands.
[[nodiscard]] constexpr FocusRequest focusRequest(std::span<char const* const> arguments)
{
    FocusRequest request;
    for (std::string_view const argument : arguments) {
        request.settings = request.settings || argument == "--settings";
        request.preview = request.preview || argument == "--preview";
    }
    return request;
}

} // namespace velmora
