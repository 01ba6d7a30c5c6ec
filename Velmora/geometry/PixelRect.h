#pragma once

namespace velmora {

/// A rectangle of whole device pixels, given by its top-left corner; y grows downwards.
struct PixelRect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    bool operator==(PixelRect const&) const = default;
};

} // namespace velmora
