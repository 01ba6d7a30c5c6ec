#include "Velmora/platform/macos/StatusSymbol.h"

#include "Velmora/platform/macos/SymbolFrame.h"

#import <AppKit/AppKit.h>

namespace velmora {

namespace {

/// Draws into the pixels, which outlive nothing of it.
void draw(NSImage* symbol, std::vector<std::uint32_t>& pixels, std::size_t side)
{
    constexpr std::size_t bitsPerPart = 8;
    CGColorSpaceRef const colours = CGColorSpaceCreateDeviceRGB();
    CGContextRef const bitmap = CGBitmapContextCreate(pixels.data(), side, side, bitsPerPart,
        side * sizeof(std::uint32_t), colours,
        std::uint32_t{kCGImageAlphaPremultipliedFirst} | std::uint32_t{kCGBitmapByteOrder32Host});
    NSSize const natural = [symbol size];
    auto const frame = symbolFrame(
        {.width = natural.width, .height = natural.height}, static_cast<double>(side));
    [NSGraphicsContext saveGraphicsState];
    [NSGraphicsContext setCurrentContext:[NSGraphicsContext graphicsContextWithCGContext:bitmap
                                                                                 flipped:NO]];
    [symbol drawInRect:NSMakeRect(frame.x, frame.y, frame.width, frame.height)];
    [NSGraphicsContext restoreGraphicsState];
    CGContextRelease(bitmap);
    CGColorSpaceRelease(colours);
}

} // namespace

std::vector<std::uint32_t> windSymbol(int side)
{
    @autoreleasepool {
        NSImage* const symbol = [NSImage imageWithSystemSymbolName:@"wind"
                                          accessibilityDescription:@"Velmora"];
        if (!symbol)
            return {};
        auto const extent = static_cast<std::size_t>(side);
        std::vector<std::uint32_t> pixels(extent * extent);
        draw(symbol, pixels, extent);
        return pixels;
    }
}

} // namespace velmora
