#pragma once

#include "Velmora/platform/DefaultsStore.h"
#include "Velmora/platform/FocusRequest.h"

#include <optional>

namespace velmora {

/// How a focus request travels between copies: a notification of this name, from no object, with
/// these two booleans.
struct FocusUserInfo {
    static constexpr char const* name = "com.local.velmora.focus";
    static constexpr char const* settingsKey = "settings";
    static constexpr char const* previewKey = "preview";

    /// What came under the two keys; absent when it is missing or neither a boolean nor a number.
    std::optional<DefaultsValue> settings = std::nullopt;
    std::optional<DefaultsValue> preview = std::nullopt;
};

/// What the notification asks for; what is missing or no boolean counts as false, a number too.
[[nodiscard]] inline FocusRequest focusRequest(FocusUserInfo const& info)
{
    std::optional<DefaultsValue> const yes = DefaultsValue(true);
    return {.settings = info.settings == yes, .preview = info.preview == yes};
}

} // namespace velmora
