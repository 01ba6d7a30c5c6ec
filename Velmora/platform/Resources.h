#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

namespace velmora {

/// The files that come with the program.
class Resources {
public:
    virtual ~Resources() = default;

    /// Where `name`.`extension` is at this moment; absent when it is nowhere. Looked up anew at
    /// every call, so that a file put back is found.
    [[nodiscard]] virtual std::optional<std::filesystem::path> find(
        std::string_view name, std::string_view extension) const = 0;
};

} // namespace velmora
