#include "Velmora/platform/linux/session/XsettingsDocument.h"

#include <cstddef>
#include <variant>

namespace velmora {

namespace {

/// Reads numbers and texts one after the other; past the end it reads zeros and says so.
class Reader {
public:
    explicit Reader(std::span<unsigned char const> bytes)
        : m_bytes(bytes)
    {
    }

    void setBigEndian(bool bigEndian) { m_bigEndian = bigEndian; }
    [[nodiscard]] bool isPastEnd() const { return m_pastEnd; }

    std::uint32_t number(std::size_t size)
    {
        auto const bytes = take(size);
        std::uint32_t value = 0;
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            auto const at = m_bigEndian ? i : bytes.size() - 1 - i;
            value = (value << 8U) | bytes[at];
        }
        return value;
    }

    /// A text and the bytes that fill it up to a multiple of four.
    std::string_view paddedText(std::size_t size)
    {
        auto const bytes = take(size);
        take((4 - size % 4) % 4);
        return {reinterpret_cast<char const*>(bytes.data()), bytes.size()};
    }

    void skip(std::size_t size) { take(size); }

private:
    std::span<unsigned char const> take(std::size_t size)
    {
        if (size > m_bytes.size()) {
            m_pastEnd = true;
            m_bytes = {};
            return {};
        }
        auto const taken = m_bytes.first(size);
        m_bytes = m_bytes.subspan(size);
        return taken;
    }

    std::span<unsigned char const> m_bytes;
    bool m_bigEndian = false;
    bool m_pastEnd = false;
};

enum class Kind : std::uint32_t { integer = 0, text = 1, colour = 2 };

using Value = std::variant<std::monostate, std::int32_t, std::string_view>;

/// The value that comes next; nothing where its kind has none that anybody asks for.
std::optional<Value> nextValue(Reader& reader, Kind kind)
{
    switch (kind) {
    case Kind::integer:
        return static_cast<std::int32_t>(reader.number(4));
    case Kind::text:
        return reader.paddedText(reader.number(4));
    case Kind::colour:
        reader.skip(8);
        return Value();
    default:
        return std::nullopt;
    }
}

/// The setting of this name; nothing where there is none, or the property is cut short before it.
Value setting(std::span<unsigned char const> property, std::string_view name)
{
    Reader reader(property);
    reader.setBigEndian(reader.number(1) == 1);
    reader.skip(3 + 4); // filling and the serial number of the change
    auto const count = reader.number(4);
    for (std::uint32_t i = 0; i < count && !reader.isPastEnd(); ++i) {
        auto const kind = static_cast<Kind>(reader.number(1));
        reader.skip(1);
        bool const wanted = reader.paddedText(reader.number(2)) == name;
        reader.skip(4); // the serial number of this setting's change
        auto const value = nextValue(reader, kind);
        if (!value)
            return {};
        if (wanted)
            return reader.isPastEnd() ? Value() : *value;
    }
    return {};
}

} // namespace

std::optional<std::int32_t> xsettingsInteger(
    std::span<unsigned char const> property, std::string_view name)
{
    auto const value = setting(property, name);
    auto const* const integer = std::get_if<std::int32_t>(&value);
    return integer ? std::optional(*integer) : std::nullopt;
}

std::optional<std::string> xsettingsText(
    std::span<unsigned char const> property, std::string_view name)
{
    auto const value = setting(property, name);
    auto const* const text = std::get_if<std::string_view>(&value);
    return text ? std::optional<std::string>(*text) : std::nullopt;
}

} // namespace velmora
