#include "Velmora/platform/macos/PreferenceObject.h"

namespace velmora {

std::optional<DefaultsValue> defaultsValue(PreferenceObject const& object)
{
    if (object.isBoolean())
        return object.boolean();
    if (!object.isNumber())
        return std::nullopt;
    if (object.isFloatingPoint())
        return object.number();
    return object.integer();
}

} // namespace velmora
