#pragma once

#include <string_view>

namespace velmora {

/// The program's standard error.
class StandardError {
public:
    virtual ~StandardError() = default;

    /// Writes the bytes as they are, UTF-8, line feed included. A stream that is closed or full
    /// swallows them.
    virtual void write(std::string_view bytes) = 0;
};

} // namespace velmora
