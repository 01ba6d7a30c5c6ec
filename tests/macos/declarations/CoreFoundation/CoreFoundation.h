#pragma once

// The part of CoreFoundation that Velmora uses, written down from its public documentation.

extern "C" {

using Boolean = unsigned char;
using CFTypeID = unsigned long;
using CFIndex = long;
using CFTypeRef = void const*;
using CFPropertyListRef = CFTypeRef;
using CFStringRef = struct __CFString const*;
using CFBooleanRef = struct __CFBoolean const*;
using CFNumberRef = struct __CFNumber const*;
using CFNullRef = struct __CFNull const*;

extern CFNullRef const kCFNull;

enum CFNumberType : CFIndex {
    kCFNumberSInt64Type = 4,
    kCFNumberFloat64Type = 6,
};

CFTypeRef CFRetain(CFTypeRef object);
void CFRelease(CFTypeRef object);
CFTypeID CFGetTypeID(CFTypeRef object);

CFTypeID CFBooleanGetTypeID();
Boolean CFBooleanGetValue(CFBooleanRef boolean);
CFTypeID CFNumberGetTypeID();
Boolean CFNumberIsFloatType(CFNumberRef number);
Boolean CFNumberGetValue(CFNumberRef number, CFNumberType type, void* value);

CFPropertyListRef CFPreferencesCopyAppValue(CFStringRef key, CFStringRef application);
void CFPreferencesSetAppValue(CFStringRef key, CFPropertyListRef value, CFStringRef application);
Boolean CFPreferencesAppSynchronize(CFStringRef application);
}

#define CFSTR(text) (reinterpret_cast<CFStringRef>(__builtin___CFStringMakeConstantString(text)))
