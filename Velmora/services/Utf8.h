#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace velmora {

/// One character of a UTF-8 text.
struct Utf8Character {
    /// Its number in Unicode.
    std::uint32_t scalar = 0;
    /// How many bytes it takes, 1 to 4.
    std::size_t length = 0;
};

/// The first character of a text that is not empty; absent when it is not well-formed UTF-8.
[[nodiscard]] std::optional<Utf8Character> decodeUtf8(std::string_view text);

[[nodiscard]] bool isUtf8(std::string_view text);

} // namespace velmora
