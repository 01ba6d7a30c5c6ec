#pragma once

#include "Velmora/platform/LoginService.h"

#include <filesystem>
#include <string>

namespace velmora {

/// The login list of a Linux desktop: an entry in the user's autostart folder.
///
/// No entry is not registered. An entry that the user switched off with the desktop's own tools
/// requires approval: it stays switched off. An entry left by the program at another place is
/// brought up to date whenever the status is asked.
class XdgAutostart final : public LoginService {
public:
    /// `configFolder` is the user's folder for settings, `program` the program's absolute path.
    XdgAutostart(std::filesystem::path const& configFolder, std::filesystem::path const& program);

    [[nodiscard]] Status status() override;

    /// False when the folder or the entry cannot be written, or the path is one that no desktop
    /// entry can name.
    [[nodiscard]] bool registerProgram() override;

    /// False when the entry is there and cannot be removed.
    bool unregisterProgram() override;

private:
    std::filesystem::path m_file;
    std::string m_program;
};

} // namespace velmora
