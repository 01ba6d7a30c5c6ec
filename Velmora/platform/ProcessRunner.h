#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>

namespace velmora {

/// Runs other programs.
class ProcessRunner {
public:
    virtual ~ProcessRunner() = default;

    /// Runs `executable` with exactly these arguments, without a shell and with its standard output
    /// and error sent to the null device, and waits until it exits. Its exit status, or the number
    /// of the signal that ended it; absent when it could not be started.
    [[nodiscard]] virtual std::optional<int> run(
        std::filesystem::path const& executable, std::span<std::string const> arguments)
        = 0;
};

} // namespace velmora
