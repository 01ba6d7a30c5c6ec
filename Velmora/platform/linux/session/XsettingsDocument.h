#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace velmora {

/// The whole-number setting of this name in an XSETTINGS property, in either byte order; absent
/// when the property has no such setting, or one of another type, or is cut short.
[[nodiscard]] std::optional<std::int32_t> xsettingsInteger(
    std::span<unsigned char const> property, std::string_view name);

/// The text setting of this name, in the same way.
[[nodiscard]] std::optional<std::string> xsettingsText(
    std::span<unsigned char const> property, std::string_view name);

} // namespace velmora
