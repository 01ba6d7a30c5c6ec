#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace velmora {

/// `text` (UTF-8) as the content of an XML 1.0 element; reading it back gives the same bytes.
/// Absent when XML 1.0 has no way to write it: control characters other than tab, line feed and
/// carriage return, bytes that are not UTF-8, surrogates, U+FFFE and U+FFFF.
[[nodiscard]] std::optional<std::string> xmlText(std::string_view text);

} // namespace velmora
