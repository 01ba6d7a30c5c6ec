#pragma once

// The part of CoreGraphics that Velmora uses, written down from its public documentation.

#include <cstddef>
#include <cstdint>

using CGFloat = double;

struct CGPoint {
    CGFloat x;
    CGFloat y;
};
struct CGSize {
    CGFloat width;
    CGFloat height;
};
struct CGRect {
    CGPoint origin;
    CGSize size;
};

extern "C" {

using CGColorSpaceRef = struct CGColorSpace*;
using CGContextRef = struct CGContext*;
using CGDirectDisplayID = std::uint32_t;

enum CGImageAlphaInfo : std::uint32_t { kCGImageAlphaPremultipliedFirst = 2 };
enum CGBitmapInfo : std::uint32_t { kCGBitmapByteOrder32Little = 2U << 12U };

CGColorSpaceRef CGColorSpaceCreateDeviceRGB();
void CGColorSpaceRelease(CGColorSpaceRef space);
CGContextRef CGBitmapContextCreate(void* data, std::size_t width, std::size_t height,
    std::size_t bitsPerComponent, std::size_t bytesPerRow, CGColorSpaceRef space,
    std::uint32_t bitmapInfo);
void CGContextRelease(CGContextRef context);

CGDirectDisplayID CGMainDisplayID();
std::uint32_t CGDisplayIsAsleep(CGDirectDisplayID display);
}

// Both kinds of Mac order their bytes this way.
#define kCGBitmapByteOrder32Host kCGBitmapByteOrder32Little
