#pragma once

#include "Velmora/platform/ProcessRunner.h"

namespace velmora {

/// Runs programs by asking the system to spawn them; no shell takes part.
class SpawnedProcess final : public ProcessRunner {
public:
    [[nodiscard]] std::optional<int> run(
        std::filesystem::path const& executable, std::span<std::string const> arguments) override;
};

} // namespace velmora
