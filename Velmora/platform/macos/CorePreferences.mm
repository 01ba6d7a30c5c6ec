#include "Velmora/platform/macos/CorePreferences.h"

#include "Velmora/platform/macos/CoreObject.h"
#include "Velmora/platform/macos/FoundationText.h"

#import <CoreFoundation/CoreFoundation.h>

namespace velmora {

namespace {

CFStringRef const domain = CFSTR("com.local.velmora");

CFStringRef coreText(std::string_view key)
{
    return reinterpret_cast<CFStringRef>(text(key));
}

/// A value as the object that the preferences keep; the caller owns none of it.
struct ToObject {
    NSNumber* operator()(std::int64_t value) const { return [NSNumber numberWithLongLong:value]; }
    NSNumber* operator()(bool value) const { return [NSNumber numberWithBool:value]; }
    NSNumber* operator()(double value) const { return [NSNumber numberWithDouble:value]; }
};

} // namespace

std::optional<DefaultsValue> CorePreferences::read(std::string_view key) const
{
    @autoreleasepool {
        return defaultsValue(CoreObject(CFPreferencesCopyAppValue(coreText(key), domain)));
    }
}

void CorePreferences::write(std::string_view key, DefaultsValue const& value)
{
    @autoreleasepool {
        NSNumber* const object = std::visit(ToObject(), value);
        CFPreferencesSetAppValue(
            coreText(key), reinterpret_cast<CFPropertyListRef>(object), domain);
    }
}

void CorePreferences::synchronise()
{
    CFPreferencesAppSynchronize(domain);
}

} // namespace velmora
