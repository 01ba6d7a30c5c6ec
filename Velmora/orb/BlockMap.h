#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace velmora {

/// Which blocks of a picture's rows have been touched: a byte each, so that touching one is a
/// single store and eight are looked at together.
class BlockMap {
public:
    /// Makes room; allocates only to grow. Must be all clear.
    void resize(int blocks, int rows)
    {
        m_words = (blocks + perWord - 1) / perWord;
        // Maps of cells change by a row or two from frame to frame: room for those at once.
        auto const words = static_cast<std::size_t>(m_words);
        auto const height = static_cast<std::size_t>(rows);
        if (m_marks.size() < words * height)
            m_marks.resize((words + 1) * (height + 3));
    }

    /// The marks of a row: not zero for a touched block.
    [[nodiscard]] std::uint8_t* row(int y) { return reinterpret_cast<std::uint8_t*>(words(y)); }

    /// The first touched block of row `y` from `from` on, or `limit`.
    [[nodiscard]] int next(int y, int from, int limit) const
    {
        std::uint64_t const* const marks = m_marks.data() + offset(y);
        auto skipped = static_cast<unsigned>(from % perWord);
        for (int word = from / perWord; word * perWord < limit; ++word) {
            std::uint64_t const bits = fromByte(marks[word], skipped);
            if (bits != 0)
                return std::min(word * perWord + firstByte(bits), limit);
            skipped = 0;
        }
        return limit;
    }

    /// Calls `visit` with each touched block of row `y`.
    template <typename Visit>
    void each(int y, Visit const& visit) const
    {
        std::uint64_t const* const marks = m_marks.data() + offset(y);
        for (int word = 0; word < m_words; ++word) {
            for (std::uint64_t bits = marks[word]; bits != 0;) {
                int const byte = firstByte(bits);
                bits &= ~(std::uint64_t{255} << shift(byte));
                visit(word * perWord + byte);
            }
        }
    }

    /// Adds the marks of a row of a map as wide as this.
    void add(int y, BlockMap const& other, int otherY)
    {
        std::uint64_t* const to = words(y);
        std::uint64_t const* const from = other.m_marks.data() + other.offset(otherY);
        for (int i = 0; i < m_words; ++i)
            to[i] |= from[i];
    }

    void clearRow(int y) { std::fill_n(words(y), m_words, std::uint64_t{0}); }

private:
    static constexpr int perWord = 8;

    [[nodiscard]] std::size_t offset(int y) const
    {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(m_words);
    }
    [[nodiscard]] std::uint64_t* words(int y) { return m_marks.data() + offset(y); }

    /// By how much a byte of a row lies shifted in its word.
    static unsigned shift(int byte)
    {
        bool const little = std::endian::native == std::endian::little;
        return static_cast<unsigned>(little ? byte : perWord - 1 - byte) * 8U;
    }

    static std::uint64_t fromByte(std::uint64_t bits, unsigned byte)
    {
        if constexpr (std::endian::native == std::endian::little)
            return bits >> byte * 8U << byte * 8U;
        else
            return bits << byte * 8U >> byte * 8U;
    }

    static int firstByte(std::uint64_t bits)
    {
        if constexpr (std::endian::native == std::endian::little)
            return std::countr_zero(bits) / 8;
        else
            return std::countl_zero(bits) / 8;
    }

    std::vector<std::uint64_t> m_marks;
    int m_words = 0;
};

} // namespace velmora
