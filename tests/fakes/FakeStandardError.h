#pragma once

#include "Velmora/platform/StandardError.h"

#include <string>

namespace velmora {

/// Keeps what was written.
class FakeStandardError final : public StandardError {
public:
    void write(std::string_view bytes) override { text += bytes; }

    std::string text;
};

} // namespace velmora
