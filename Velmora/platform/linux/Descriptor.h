#pragma once

#include <unistd.h>

#include <utility>

namespace velmora {

/// An open file descriptor, closed when its owner goes; -1 stands for none.
class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int number)
        : m_number(number)
    {
    }
    Descriptor(Descriptor&& other) noexcept
        : m_number(std::exchange(other.m_number, -1))
    {
    }
    Descriptor& operator=(Descriptor&& other) noexcept
    {
        std::swap(m_number, other.m_number);
        return *this;
    }
    Descriptor(Descriptor const&) = delete;
    Descriptor& operator=(Descriptor const&) = delete;
    ~Descriptor()
    {
        if (m_number >= 0)
            ::close(m_number);
    }

    [[nodiscard]] int number() const { return m_number; }
    [[nodiscard]] explicit operator bool() const { return m_number >= 0; }

private:
    int m_number = -1;
};

} // namespace velmora
