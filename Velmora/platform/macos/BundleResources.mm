#include "Velmora/platform/macos/BundleResources.h"

#include "Velmora/platform/macos/FoundationText.h"

namespace velmora {

std::optional<std::filesystem::path> BundleResources::find(
    std::string_view name, std::string_view extension) const
{
    @autoreleasepool {
        NSURL* const url = [[NSBundle mainBundle] URLForResource:text(name)
                                                   withExtension:text(extension)];
        return url ? std::optional<std::filesystem::path>([[url path] fileSystemRepresentation])
                   : std::nullopt;
    }
}

std::filesystem::path bundlePath()
{
    @autoreleasepool {
        return [[[NSBundle mainBundle] bundlePath] UTF8String];
    }
}

} // namespace velmora
