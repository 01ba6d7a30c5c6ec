#pragma once

#include "Velmora/platform/SharedFrames.h"

struct xcb_connection_t;

namespace velmora {

/// Pictures in memory shared with an X server on the same machine, put through the toolkit's own
/// connection without waiting for an answer.
///
/// Three pictures take turns: a server that is not more than two frames behind has read a picture
/// before it is drawn again.
class X11SharedFrames final : public SharedFrames {
public:
    X11SharedFrames();
    ~X11SharedFrames() override;
    X11SharedFrames(X11SharedFrames const&) = delete;
    X11SharedFrames& operator=(X11SharedFrames const&) = delete;
    X11SharedFrames(X11SharedFrames&&) = delete;
    X11SharedFrames& operator=(X11SharedFrames&&) = delete;

    /// Shows pictures in this window from now on; without an alpha channel it gets none.
    void adopt(std::uint32_t window);

    [[nodiscard]] Picture next(int width, int height) override;
    void put(int first, int count) override;

private:
    [[nodiscard]] bool hasRoomFor(std::size_t bytes);
    void release();

    xcb_connection_t* m_connection = nullptr;
    std::uint32_t m_window = 0;
    std::uint32_t m_context = 0;
    std::uint32_t m_segment = 0;
    std::uint8_t* m_memory = nullptr;
    std::size_t m_capacity = 0;
    int m_width = 0;
    int m_height = 0;
    std::size_t m_turn = 0;
};

} // namespace velmora
