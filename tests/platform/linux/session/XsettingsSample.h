#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace velmora {

/// An XSETTINGS property as a settings daemon writes it.
class XsettingsSample {
public:
    explicit XsettingsSample(bool bigEndian = false)
        : m_bigEndian(bigEndian)
    {
    }

    XsettingsSample& integer(std::string const& name, std::int32_t value)
    {
        begin(0, name);
        number(static_cast<std::uint32_t>(value), 4);
        return *this;
    }

    XsettingsSample& text(std::string const& name, std::string const& value)
    {
        begin(1, name);
        number(static_cast<std::uint32_t>(value.size()), 4);
        padded(value);
        return *this;
    }

    XsettingsSample& colour(std::string const& name)
    {
        begin(2, name);
        number(0, 4);
        number(0, 4);
        return *this;
    }

    [[nodiscard]] std::vector<unsigned char> bytes() const
    {
        XsettingsSample whole(m_bigEndian);
        whole.m_body = {static_cast<unsigned char>(m_bigEndian ? 1 : 0), 0, 0, 0};
        whole.number(7, 4);
        whole.number(m_count, 4);
        auto result = whole.m_body;
        result.insert(result.end(), m_body.begin(), m_body.end());
        return result;
    }

private:
    void begin(unsigned char kind, std::string const& name)
    {
        ++m_count;
        m_body.push_back(kind);
        m_body.push_back(0);
        number(static_cast<std::uint32_t>(name.size()), 2);
        padded(name);
        number(3, 4);
    }

    void number(std::uint32_t value, unsigned size)
    {
        for (unsigned i = 0; i < size; ++i) {
            auto const at = m_bigEndian ? size - 1 - i : i;
            m_body.push_back(static_cast<unsigned char>((value >> (8 * at)) & 0xFFU));
        }
    }

    void padded(std::string const& value)
    {
        m_body.insert(m_body.end(), value.begin(), value.end());
        m_body.insert(m_body.end(), (4 - value.size() % 4) % 4, 0);
    }

    bool m_bigEndian;
    std::uint32_t m_count = 0;
    std::vector<unsigned char> m_body;
};

} // namespace velmora
