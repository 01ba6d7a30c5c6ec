#pragma once

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <span>
#include <string>
#include <vector>

namespace velmora {

/// Ends the process where something does not hold, which the fuzzer reports with the input at hand.
inline void require(bool holds, int line = __builtin_LINE())
{
    if (holds)
        return;
    (void)std::fprintf(stderr, "does not hold: line %d\n", line);
    std::abort();
}

/// Whether two numbers are the same, where no number equals no number.
[[nodiscard]] inline bool same(double a, double b)
{
    return a == b || (std::isnan(a) && std::isnan(b));
}

/// Spends a fuzzer's bytes one choice after the other; once they are spent, every choice is the
/// first one.
class FuzzInput {
public:
    FuzzInput(unsigned char const* data, std::size_t size)
        : m_bytes(data, size)
    {
    }

    [[nodiscard]] bool spent() const { return m_at == m_bytes.size(); }

    [[nodiscard]] std::uint8_t byte() { return spent() ? std::uint8_t{0} : m_bytes[m_at++]; }

    [[nodiscard]] bool yes() { return (byte() & 1U) != 0; }

    /// One of the whole numbers from `first` to `last`, at most 65535 apart.
    [[nodiscard]] int number(int first, int last)
    {
        unsigned const bits = byte() | static_cast<unsigned>(byte()) << 8U;
        return first + static_cast<int>(bits % static_cast<unsigned>(last - first + 1));
    }

    /// Eight bytes as they are: any double there is.
    [[nodiscard]] double anyDouble()
    {
        std::uint64_t bits = 0;
        for (unsigned shift = 0; shift < 64; shift += 8)
            bits |= std::uint64_t{byte()} << shift;
        return std::bit_cast<double>(bits);
    }

    /// Any finite double; what is none counts as 0.
    [[nodiscard]] double finiteDouble()
    {
        double const value = anyDouble();
        return std::isfinite(value) ? value : 0;
    }

    /// A text of at most `longest` bytes.
    [[nodiscard]] std::string text(int longest)
    {
        std::string result(static_cast<std::size_t>(number(0, longest)), '\0');
        for (char& each : result)
            each = static_cast<char>(byte());
        return result;
    }

private:
    std::span<unsigned char const> m_bytes;
    std::size_t m_at = 0;
};

} // namespace velmora
