#pragma once

#include "Velmora/platform/Resources.h"

#include <vector>

namespace velmora {

/// Files that were installed with the program: beside it, or in the share folder of its prefix.
class InstalledResources final : public Resources {
public:
    /// `program` is the program's own absolute path. `development` is one more folder to look in
    /// last, for a program that runs from its build tree; empty for none.
    explicit InstalledResources(
        std::filesystem::path const& program, std::filesystem::path const& development = {});

    [[nodiscard]] std::optional<std::filesystem::path> find(
        std::string_view name, std::string_view extension) const override;

private:
    std::vector<std::filesystem::path> m_folders;
};

} // namespace velmora
