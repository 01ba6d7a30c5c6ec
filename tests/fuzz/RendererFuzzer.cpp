#include "Velmora/orb/OrbFrame.h"
#include "Velmora/orb/OrbRenderer.h"
#include "Velmora/orb/OrganicBlob.h"

#include "tests/fuzz/FuzzInput.h"

#include <optional>
#include <vector>

namespace velmora {
namespace {

constexpr std::uint32_t untouched = 0xA5C3'5A3CU;

/// Any number, or one that a frame is likely to hold.
double length(FuzzInput& input, double usual)
{
    switch (input.number(0, 39)) {
    case 0:
        return input.anyDouble();
    case 1:
        return usual * input.number(-200, 200) / 50.0;
    default:
        return usual * input.number(1, 100) / 50.0;
    }
}

OrbColor color(FuzzInput& input)
{
    return {.red = length(input, 0.5), .green = length(input, 0.5), .blue = length(input, 0.5)};
}

OrbFrame anyFrame(FuzzInput& input)
{
    double const side = length(input, 32);
    OrbFrame frame;
    frame.size = side;
    frame.glow = {.phase = length(input, 3),
        .color = color(input),
        .opacity = length(input, 0.5),
        .blur = length(input, 3),
        .scale = length(input, 1)};
    if (input.yes()) {
        frame.ripple = RippleLayer{.phase = length(input, 3),
            .color = color(input),
            .opacity = length(input, 0.5),
            .lineWidth = length(input, 2),
            .scale = length(input, 1),
            .blur = length(input, 0.5)};
    }
    frame.body = {.phase = length(input, 3),
        .stops = {color(input), color(input), color(input)},
        .centerX = length(input, 10),
        .centerY = length(input, 10),
        .endRadius = length(input, 12),
        .scale = length(input, 1),
        .shadow = {.opacity = length(input, 0.2),
            .radius = length(input, 2),
            .dx = length(input, 1),
            .dy = length(input, 1)}};
    frame.rim = {.phase = length(input, 3),
        .color = color(input),
        .opacity = length(input, 0.4),
        .lineWidth = length(input, 1),
        .scale = length(input, 1)};
    frame.highlight = {.phase = length(input, 3),
        .color = color(input),
        .opacity = length(input, 0.3),
        .scale = length(input, 0.4),
        .dx = length(input, 3),
        .dy = length(input, 3),
        .blur = length(input, 1)};
    frame.opacity = length(input, 0.8);
    return frame;
}

OrbFrame describedFrame(FuzzInput& input)
{
    OrbState const state = {.paused = input.yes(),
        .isReminding = input.yes(),
        .inActiveHours = input.yes(),
        .reduceMotion = input.yes(),
        .showWord = input.yes(),
        .showChrome = input.yes(),
        .widgetSize = length(input, 32)};
    return orbFrame(state, input.finiteDouble());
}

/// A picture with room after every row, before its first and behind its last.
struct Picture {
    Picture(int w, int h, int gap)
        : width(w)
        , height(h)
        , row(static_cast<std::size_t>(w + gap))
        , pixels(row * static_cast<std::size_t>(h + 2), untouched)
    {
    }

    [[nodiscard]] PixelTarget target(double scale)
    {
        return {.bytes = reinterpret_cast<std::uint8_t*>(pixels.data() + row),
            .width = width,
            .height = height,
            .stride = static_cast<std::ptrdiff_t>(4 * row),
            .scale = scale};
    }

    void check(bool opaque) const
    {
        for (std::size_t i = 0; i < pixels.size(); ++i) {
            bool const inside
                = i >= row && i < pixels.size() - row && i % row < static_cast<std::size_t>(width);
            auto const alpha = pixels[i] >> 24U;
            require(!inside || !opaque || alpha == 255);
            require(inside ? (pixels[i] >> 16U & 255U) <= alpha && (pixels[i] >> 8U & 255U) <= alpha
                        && (pixels[i] & 255U) <= alpha
                           : pixels[i] == untouched);
        }
    }

    int width;
    int height;
    std::size_t row;
    std::vector<std::uint32_t> pixels;
};

void checkOutline(FuzzInput& input)
{
    OrbRect const rect = {.x = input.finiteDouble(),
        .y = input.finiteDouble(),
        .width = input.finiteDouble(),
        .height = input.finiteDouble()};
    auto const outline = organicBlobOutline(rect, input.finiteDouble());
    bool const modest = std::fabs(rect.x) < 1e300 && std::fabs(rect.y) < 1e300
        && std::fabs(rect.width) < 1e300 && std::fabs(rect.height) < 1e300;
    for (auto const& segment : outline.segments) {
        for (auto const& p : {segment.control1, segment.control2, segment.end})
            require(!modest || (std::isfinite(p.x) && std::isfinite(p.y)));
    }
    require(same(outline.segments.back().end.x, outline.start.x));
    require(same(outline.segments.back().end.y, outline.start.y));
}

/// A frame, and what it is drawn on.
struct Shot {
    explicit Shot(FuzzInput& input)
        : picture(input.number(1, 64), input.number(1, 64), input.number(0, 3))
        , scale(length(input, 1))
        , frame(input.yes() ? anyFrame(input) : describedFrame(input))
        , ground(input.yes() ? std::optional(color(input)) : std::nullopt)
    {
    }

    void draw(OrbRenderer& renderer)
    {
        renderer.render(frame, picture.target(scale), ground);
        picture.check(ground.has_value());
    }

    Picture picture;
    double scale;
    OrbFrame frame;
    std::optional<OrbColor> ground;
};

} // namespace
} // namespace velmora

/// Any frame on any picture: only the picture is written to, every colour stays within its alpha, a
/// ground leaves nothing that is seen through, and a renderer that has drawn another frame before
/// draws the same.
extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size)
{
    using namespace velmora;
    FuzzInput input(data, size);
    checkOutline(input);
    Shot last(input);
    Shot before(input);
    OrbRenderer renderer;
    before.draw(renderer);
    Shot again = last;
    last.draw(renderer);
    OrbRenderer fresh;
    again.draw(fresh);
    require(last.picture.pixels == again.picture.pixels);
    return 0;
}
