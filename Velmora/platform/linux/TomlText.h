#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace velmora {

/// A key as it stands before the equals sign, quoted only where it has to be.
[[nodiscard]] std::string tomlKey(std::string_view key);

/// A text in quotes, on one line.
[[nodiscard]] std::string tomlString(std::string_view text);

[[nodiscard]] std::string tomlValue(bool value);
[[nodiscard]] std::string tomlValue(std::int64_t value);
/// The shortest text that reads back to the bit, always with a fraction or an exponent, so that it
/// stays a double; "inf", "-inf" or "nan" for one that is not finite.
[[nodiscard]] std::string tomlValue(double value);

} // namespace velmora
