// accepted

#import <Foundation/Foundation.h>

#include <type_traits>

// One kind of Mac has a type of its own for what is true, the other a small number.
#ifdef __arm64__
static_assert(std::is_same_v<BOOL, bool>);
#else
static_assert(std::is_same_v<BOOL, signed char>);
#endif
