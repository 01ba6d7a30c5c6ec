#include "Velmora/platform/macos/CorePreferences.h"

#include "Velmora/platform/macos/FoundationText.h"
#include "Velmora/platform/macos/PreferenceObject.h"

#import <CoreFoundation/CoreFoundation.h>

namespace velmora {

namespace {

CFStringRef const domain = CFSTR("com.local.velmora");

CFStringRef coreText(std::string_view key)
{
    return reinterpret_cast<CFStringRef>(text(key));
}

/// Owns what was copied from the preferences; nothing is neither boolean nor number.
class CoreObject final : public PreferenceObject {
public:
    explicit CoreObject(CFPropertyListRef object)
        : m_object(object ? object : CFRetain(kCFNull))
    {
    }
    CoreObject(CoreObject const&) = delete;
    CoreObject& operator=(CoreObject const&) = delete;
    ~CoreObject() override { CFRelease(m_object); }

    [[nodiscard]] bool isBoolean() const override
    {
        return CFGetTypeID(m_object) == CFBooleanGetTypeID();
    }
    [[nodiscard]] bool isNumber() const override
    {
        return CFGetTypeID(m_object) == CFNumberGetTypeID();
    }
    [[nodiscard]] bool isFloatingPoint() const override
    {
        return CFNumberIsFloatType(static_cast<CFNumberRef>(m_object));
    }
    [[nodiscard]] bool boolean() const override
    {
        return CFBooleanGetValue(static_cast<CFBooleanRef>(m_object));
    }
    [[nodiscard]] std::int64_t integer() const override
    {
        std::int64_t value = 0;
        CFNumberGetValue(static_cast<CFNumberRef>(m_object), kCFNumberSInt64Type, &value);
        return value;
    }
    [[nodiscard]] double number() const override
    {
        double value = 0;
        CFNumberGetValue(static_cast<CFNumberRef>(m_object), kCFNumberFloat64Type, &value);
        return value;
    }

private:
    CFTypeRef m_object;
};

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
