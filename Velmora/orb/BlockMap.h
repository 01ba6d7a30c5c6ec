#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
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
        if (m_marks.size() < words * height * perWord)
            m_marks.resize((words + 1) * (height + 3) * perWord);
    }

    /// The marks of a row: not zero for a touched block.
    [[nodiscard]] std::uint8_t* row(int y) { return m_marks.data() + offset(y); }
    [[nodiscard]] std::uint8_t const* row(int y) const { return m_marks.data() + offset(y); }

    /// The first touched block of row `y` from `from` on, or `limit`.
    [[nodiscard]] int next(int y, int from, int limit) const
    {
        std::uint8_t const* const marks = row(y);
        for (int word = from / perWord; word * perWord < limit; ++word) {
            std::uint64_t bits = 0;
            std::memcpy(&bits, marks + std::ptrdiff_t{word} * perWord, sizeof bits);
            if (word == from / perWord)
                bits = fromByte(bits, static_cast<unsigned>(from % perWord));
            if (bits != 0)
                return std::min(word * perWord + firstByte(bits), limit);
        }
        return limit;
    }

    /// Adds the marks of a row of a map as wide as this.
    void add(int y, BlockMap const& other, int otherY)
    {
        std::uint8_t* const to = row(y);
        std::uint8_t const* const from = other.row(otherY);
        for (int i = 0; i < m_words * perWord; ++i)
            to[i] = static_cast<std::uint8_t>(to[i] | from[i]);
    }

    void clearRow(int y) { std::memset(row(y), 0, static_cast<std::size_t>(m_words) * perWord); }

private:
    static constexpr int perWord = 8;

    [[nodiscard]] std::size_t offset(int y) const
    {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(m_words) * perWord;
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

    std::vector<std::uint8_t> m_marks;
    int m_words = 0;
};

} // namespace velmora
