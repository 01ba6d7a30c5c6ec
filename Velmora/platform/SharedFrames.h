#pragma once

#include <cstddef>
#include <cstdint>

namespace velmora {

/// Memory that the window system shows without anybody copying it first.
class SharedFrames {
public:
    /// A picture to draw: rows from the top, native-endian 32-bit premultiplied 0xAARRGGBB. No
    /// bytes when there is no such memory.
    struct Picture {
        std::uint8_t* bytes = nullptr;
        /// From one row to the next, in bytes.
        std::ptrdiff_t stride = 0;

        bool operator==(Picture const&) const = default;
    };

    virtual ~SharedFrames() = default;

    /// A picture of that many device pixels, with whatever was in it before. It is not one of the
    /// pictures put last, which the window system may still be reading.
    [[nodiscard]] virtual Picture next(int width, int height) = 0;

    /// Shows some rows of the picture handed out last, over the whole width: `count` of them from
    /// `first` on.
    virtual void put(int first, int count) = 0;
};

} // namespace velmora
