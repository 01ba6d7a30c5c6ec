#pragma once

#include "Velmora/platform/ProcessRunner.h"

#include <functional>
#include <vector>

namespace velmora {

/// Runs nothing, remembers the command lines and answers what the test says.
class FakeProcessRunner final : public ProcessRunner {
public:
    using Arguments = std::vector<std::string>;

    [[nodiscard]] std::optional<int> run(
        std::filesystem::path const& executable, std::span<std::string const> arguments) override
    {
        executables.push_back(executable);
        commands.emplace_back(arguments.begin(), arguments.end());
        return answer ? answer(commands.back()) : 0;
    }

    /// The exit status for a command line, or none for a program that cannot be started; without
    /// it every run exits with 0.
    std::function<std::optional<int>(Arguments const&)> answer;
    std::vector<std::filesystem::path> executables;
    std::vector<Arguments> commands;
};

} // namespace velmora
