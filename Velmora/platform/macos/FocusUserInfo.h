#pragma once

#include "Velmora/platform/FocusRequest.h"

#include <optional>

namespace velmora {

/// How a focus request travels between copies: a notification of this name, from no object, with
/// these two booleans.
struct FocusUserInfo {
    static constexpr char const* name = "com.local.velmora.focus";
    static constexpr char const* settingsKey = "settings";
    static constexpr char const* previewKey = "preview";

    /// Absent when it is missing or no boolean.
    std::optional<bool> settings = std::nullopt;
    std::optional<bool> preview = std::nullopt;
};

/// What the notification asks for; what it does not say counts as false.
[[nodiscard]] constexpr FocusRequest focusRequest(FocusUserInfo const& info)
{
    return {.settings = info.settings.value_or(false), .preview = info.preview.value_or(false)};
}

} // namespace velmora
