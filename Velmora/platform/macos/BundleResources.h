#pragma once

#include "Velmora/platform/Resources.h"

namespace velmora {

/// The resources of the program's bundle.
class BundleResources final : public Resources {
public:
    [[nodiscard]] std::optional<std::filesystem::path> find(
        std::string_view name, std::string_view extension) const override;
};

/// The bundle's own path.
[[nodiscard]] std::filesystem::path bundlePath();

} // namespace velmora
