#pragma once

#import <Foundation/Foundation.h>

#include <filesystem>
#include <string_view>

namespace velmora {

/// UTF-8 as the system's own text; of text that is no UTF-8 nothing is left.
inline NSString* text(std::string_view utf8)
{
    return [[[NSString alloc] initWithBytes:utf8.data()
                                     length:utf8.size()
                                   encoding:NSUTF8StringEncoding] autorelease];
}

/// The URL of a file.
inline NSURL* fileUrl(std::filesystem::path const& file)
{
    return [NSURL fileURLWithPath:text(file.native())];
}

} // namespace velmora
