#pragma once

#include "Velmora/platform/Resources.h"

#include <string>
#include <vector>

namespace velmora {

/// Answers every look-up with the file that the test set, and remembers the names.
class FakeResources final : public Resources {
public:
    [[nodiscard]] std::optional<std::filesystem::path> find(
        std::string_view name, std::string_view extension) const override
    {
        lookedUp.push_back(std::string(name) + "." + std::string(extension));
        return file;
    }

    std::optional<std::filesystem::path> file = "/program/chime.wav";
    mutable std::vector<std::string> lookedUp;
};

} // namespace velmora
