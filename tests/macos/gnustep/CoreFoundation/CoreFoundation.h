#pragma once

// A stand-in for the part of CoreFoundation that tells the types of a property list apart, which
// Debian's GNUstep does not have; its Foundation is asked instead.

#include <cstdint>

extern "C" {

using Boolean = unsigned char;
using CFTypeID = unsigned long;
using CFIndex = long;
using CFTypeRef = void const*;
using CFBooleanRef = struct StandInBoolean const*;
using CFNumberRef = struct StandInNumber const*;

extern CFTypeRef kCFNull;

enum CFNumberType : CFIndex { kCFNumberSInt64Type = 4, kCFNumberFloat64Type = 6 };

CFTypeRef CFRetain(CFTypeRef object);
void CFRelease(CFTypeRef object);
CFTypeID CFGetTypeID(CFTypeRef object);

CFTypeID CFBooleanGetTypeID();
Boolean CFBooleanGetValue(CFBooleanRef boolean);
CFTypeID CFNumberGetTypeID();
Boolean CFNumberIsFloatType(CFNumberRef number);
Boolean CFNumberGetValue(CFNumberRef number, CFNumberType type, void* value);
}
