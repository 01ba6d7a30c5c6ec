#include "Velmora/orb/OrbRenderer.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

namespace velmora {
namespace {

constexpr int cell = 160;

/// An opaque picture of 8-bit RGB.
struct Sheet {
    int width;
    int height;
    std::string rgb;

    Sheet(int columns, int rows)
        : width(columns * cell)
        , height(rows * cell)
        , rgb(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 3, '\0')
    {
    }

    void put(int x, int y, std::uint32_t pixel, int backdrop)
    {
        int const rest = 255 - static_cast<int>(pixel >> 24U);
        std::size_t at = (static_cast<std::size_t>(y) * static_cast<std::size_t>(width)
                             + static_cast<std::size_t>(x))
            * 3;
        for (unsigned shift : {16U, 8U, 0U}) {
            int const top = static_cast<int>(pixel >> shift & 255U);
            rgb[at++] = static_cast<char>(top + (backdrop * rest + 127) / 255);
        }
    }
};

std::uint32_t crc(std::string const& bytes)
{
    std::uint32_t sum = ~0U;
    for (char byte : bytes) {
        sum ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit)
            sum = sum >> 1U ^ (sum & 1U ? 0xedb88320U : 0U);
    }
    return ~sum;
}

std::string bigEndian(std::uint32_t x)
{
    return {static_cast<char>(x >> 24U), static_cast<char>(x >> 16U & 255U),
        static_cast<char>(x >> 8U & 255U), static_cast<char>(x & 255U)};
}

std::string chunk(std::string const& name, std::string const& data)
{
    return bigEndian(static_cast<std::uint32_t>(data.size())) + name + data
        + bigEndian(crc(name + data));
}

/// The zlib format with blocks that are stored as they are: larger, but no library is needed.
std::string stored(std::string const& data)
{
    std::string out = "\x78\x01";
    std::uint32_t a = 1;
    std::uint32_t b = 0;
    for (char byte : data) {
        a = (a + static_cast<unsigned char>(byte)) % 65521U;
        b = (b + a) % 65521U;
    }
    constexpr std::size_t block = 65535;
    for (std::size_t at = 0; at < data.size(); at += block) {
        std::size_t const size = std::min(block, data.size() - at);
        auto const low = static_cast<char>(size & 255U);
        auto const high = static_cast<char>(size >> 8U);
        out += static_cast<char>(at + size == data.size());
        out += {low, high, static_cast<char>(~low), static_cast<char>(~high)};
        out.append(data, at, size);
    }
    return out + bigEndian(b << 16U | a);
}

bool writePng(std::string const& path, Sheet const& sheet)
{
    std::string lines;
    auto const length = static_cast<std::size_t>(sheet.width) * 3;
    for (int y = 0; y < sheet.height; ++y) {
        lines += '\0';
        lines.append(sheet.rgb, static_cast<std::size_t>(y) * length, length);
    }
    std::string const header = bigEndian(static_cast<std::uint32_t>(sheet.width))
        + bigEndian(static_cast<std::uint32_t>(sheet.height)) + std::string("\x08\x02\0\0\0", 5);
    std::ofstream file(path, std::ios::binary);
    file << "\x89PNG\r\n\x1a\n"
         << chunk("IHDR", header) << chunk("IDAT", stored(lines)) << chunk("IEND", "");
    return file.good();
}

void draw(Sheet& sheet, int column, int row, OrbState state, double seconds, double scale)
{
    int const side = static_cast<int>(state.widgetSize * scale);
    std::vector<std::uint32_t> pixels(
        static_cast<std::size_t>(side) * static_cast<std::size_t>(side));
    OrbRenderer renderer;
    renderer.render(orbFrame(state, seconds),
        {.bytes = reinterpret_cast<std::uint8_t*>(pixels.data()),
            .width = side,
            .height = side,
            .stride = std::ptrdiff_t{4} * side,
            .scale = scale});
    int const gap = (cell - side) / 2;
    int const backdrop = column % 2 == 0 ? 250 : 28;
    for (int y = 0; y < cell; ++y) {
        for (int x = 0; x < cell; ++x) {
            bool const inside = x >= gap && y >= gap && x < gap + side && y < gap + side;
            std::uint32_t const pixel = inside
                ? pixels[static_cast<std::size_t>(y - gap) * static_cast<std::size_t>(side)
                    + static_cast<std::size_t>(x - gap)]
                : 0;
            sheet.put(column * cell + x, row * cell + y, pixel, backdrop);
        }
    }
}

} // namespace
} // namespace velmora

/// Writes one picture of every palette: a row of breath positions at 128 points, then one at 72
/// points in double size, the last two columns with reduced motion, on light and dark in turn.
int main(int argumentCount, char** arguments)
{
    using namespace velmora;
    if (argumentCount != 2) {
        std::cerr << "usage: velmora_contact_sheet <file.png>\n";
        return 2;
    }
    constexpr std::array<OrbState, 4> looks = {{
        {},
        {.isReminding = true},
        {.paused = true},
        {.inActiveHours = false},
    }};
    constexpr std::array<double, 4> breaths = {0.8, 2.25, 4.3, 7.0};
    Sheet sheet(10, 8);
    for (int look = 0; look < 4; ++look) {
        for (int column = 0; column < 10; ++column) {
            OrbState state = looks[static_cast<std::size_t>(look)];
            state.reduceMotion = column >= 8;
            double const breath = column < 8 ? breaths[static_cast<std::size_t>(column / 2)] : 2.25;
            state.widgetSize = 128;
            draw(sheet, column, look * 2, state, 800000000 + breath, 1);
            state.widgetSize = 72;
            draw(sheet, column, look * 2 + 1, state, 800000000 + breath, 2);
        }
    }
    return writePng(arguments[1], sheet) ? 0 : 1;
}
