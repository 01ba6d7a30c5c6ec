#pragma once

#include "Velmora/platform/StandardError.h"

namespace velmora {

/// The process's own standard error.
class StandardErrorStream final : public StandardError {
public:
    void write(std::string_view bytes) override;
};

/// Makes the three standard streams harmless, first of all in `main`: one that is closed is opened
/// on the null device, so that no other file takes its number and gets what was meant for the
/// stream, and a reader that went away does not end the process.
void prepareStandardStreams();

} // namespace velmora
