#pragma once

#include "Velmora/platform/ProcessRunner.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace velmora {

/// The fallback for opening at login: a per-user launch agent that opens the program's bundle.
class LaunchAgent {
public:
    /// Where the agent lives and what it opens.
    struct Place {
        /// The user's home folder.
        std::filesystem::path home;
        /// The user's numeric identifier.
        unsigned int user = 0;
        /// The bundle, or the program itself where there are no bundles.
        std::filesystem::path bundle;
        /// The tool that loads and unloads agents.
        std::filesystem::path tool = "/bin/launchctl";
    };

    /// The agent's label, and the name of its file.
    static constexpr std::string_view label = "com.local.velmora";

    LaunchAgent(ProcessRunner& runner, Place place);

    /// Writes the agent's file, unloads an agent loaded before, and loads this one; false when the
    /// file could not be written or the agent not loaded. A written file may stay behind.
    [[nodiscard]] bool install();

    /// Unloads the agent and deletes its file. Does nothing without the file; failures are dropped.
    void remove();

private:
    int launch(std::span<std::string const> arguments);
    void unload();
    [[nodiscard]] std::filesystem::path file() const;
    [[nodiscard]] std::string domain() const;

    ProcessRunner& m_runner;
    Place m_place;
};

/// The agent's XML property list, four entries; absent when `bundle` holds what XML cannot carry
/// (control characters, bytes that are not UTF-8).
[[nodiscard]] std::optional<std::string> launchAgentPropertyList(
    std::string_view label, std::string_view bundle);

} // namespace velmora
