#pragma once

#include "Velmora/platform/macos/PreferenceObject.h"

#import <CoreFoundation/CoreFoundation.h>

namespace velmora {

/// An object of the system's property lists.
class CoreObject final : public PreferenceObject {
public:
    /// Owns the object; nothing at all is neither boolean nor number.
    explicit CoreObject(CFTypeRef object)
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

} // namespace velmora
