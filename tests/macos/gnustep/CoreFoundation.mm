#import <CoreFoundation/CoreFoundation.h>
#import <Foundation/Foundation.h>

namespace {

enum Type : CFTypeID { other, boolean, number };

NSNumber* numberOf(void const* object)
{
    return static_cast<NSNumber*>(object);
}

} // namespace

// Asked of nothing at all, everything below answers like of an object of another type.
CFTypeRef kCFNull = nullptr;

CFTypeRef CFRetain(CFTypeRef object)
{
    return [static_cast<id>(object) retain];
}

void CFRelease(CFTypeRef object)
{
    [static_cast<id>(object) release];
}

// GNUstep's notifications make numbers of booleans on their way. None other is sent in this trial,
// so that those two are taken for what they were.
CFTypeID CFGetTypeID(CFTypeRef object)
{
    if (![static_cast<id>(object) isKindOfClass:[NSNumber class]])
        return other;
    bool const truth = [numberOf(object) isEqual:[NSNumber numberWithBool:YES]] ||
        [numberOf(object) isEqual:[NSNumber numberWithBool:NO]];
    return truth ? boolean : number;
}

CFTypeID CFBooleanGetTypeID()
{
    return boolean;
}

Boolean CFBooleanGetValue(CFBooleanRef object)
{
    return [numberOf(object) boolValue];
}

CFTypeID CFNumberGetTypeID()
{
    return number;
}

Boolean CFNumberIsFloatType(CFNumberRef object)
{
    char const type = *[numberOf(object) objCType];
    return type == *@encode(float) || type == *@encode(double);
}

Boolean CFNumberGetValue(CFNumberRef object, CFNumberType type, void* value)
{
    if (type == kCFNumberFloat64Type)
        *static_cast<double*>(value) = [numberOf(object) doubleValue];
    else
        *static_cast<std::int64_t*>(value) = [numberOf(object) longLongValue];
    return true;
}
