#include "Velmora/platform/linux/X11SharedFrames.h"

#include "Velmora/platform/linux/xcb/Xcb.h"

#include <QGuiApplication>
#include <qguiapplication_platform.h>

#include <sys/ipc.h>
#include <sys/shm.h>
#include <xcb/shm.h>

#include <bit>

namespace velmora {

namespace {

constexpr std::size_t pictures = 3;
constexpr std::size_t bytesPerPixel = 4;
constexpr std::uint8_t depthWithAlpha = 32;
constexpr int ownerOnly = 0600;

bool sameByteOrder(xcb_connection_t* connection)
{
    auto const native = std::endian::native == std::endian::little ? XCB_IMAGE_ORDER_LSB_FIRST
                                                                   : XCB_IMAGE_ORDER_MSB_FIRST;
    return xcb_get_setup(connection)->image_byte_order == native;
}

bool hasAlpha(xcb_connection_t* connection, xcb_window_t window)
{
    xcb::Owned<xcb_get_geometry_reply_t> const geometry(
        xcb_get_geometry_reply(connection, xcb_get_geometry(connection, window), nullptr));
    return geometry && geometry->depth == depthWithAlpha;
}

/// Whether memory was mapped: a failure is told by the address -1.
bool mapped(void* memory)
{
    return reinterpret_cast<std::intptr_t>(memory) != -1;
}

std::size_t bytesOf(int width, int height)
{
    return static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * bytesPerPixel;
}

/// Shares memory with the server; a server on another machine refuses.
bool attached(xcb_connection_t* connection, std::uint32_t segment, int id)
{
    auto const cookie
        = xcb_shm_attach_checked(connection, segment, static_cast<std::uint32_t>(id), 0);
    xcb::Owned<xcb_generic_error_t> const error(xcb_request_check(connection, cookie));
    return !error;
}

} // namespace

X11SharedFrames::X11SharedFrames()
{
    auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11 || !sameByteOrder(x11->connection()))
        return;
    auto const* extension = xcb_get_extension_data(x11->connection(), &xcb_shm_id);
    if (extension && extension->present)
        m_connection = x11->connection();
}

X11SharedFrames::~X11SharedFrames()
{
    // The server lets go of its side when the connection ends.
    if (m_memory)
        shmdt(m_memory);
}

void X11SharedFrames::adopt(std::uint32_t window)
{
    if (!m_connection || !hasAlpha(m_connection, window))
        return;
    m_window = window;
    m_context = xcb_generate_id(m_connection);
    std::uint32_t const noExposures = 0;
    xcb_create_gc(m_connection, m_context, m_window, XCB_GC_GRAPHICS_EXPOSURES, &noExposures);
}

void X11SharedFrames::release()
{
    if (!m_memory)
        return;
    xcb_shm_detach(m_connection, m_segment);
    shmdt(m_memory);
    m_memory = nullptr;
    m_capacity = 0;
}

bool X11SharedFrames::hasRoomFor(std::size_t bytes)
{
    if (m_memory && bytes <= m_capacity)
        return true;
    release();
    // With room to spare, so that an orb that is being enlarged seldom needs more.
    auto const capacity = bytes + bytes / 2;
    auto const id = shmget(IPC_PRIVATE, capacity * pictures, IPC_CREAT | ownerOnly);
    if (id < 0)
        return false;
    auto* memory = shmat(id, nullptr, 0);
    m_segment = xcb_generate_id(m_connection);
    // Both sides hold it by now, or never will: it goes when the last of them lets go.
    auto const shared = mapped(memory) && attached(m_connection, m_segment, id);
    shmctl(id, IPC_RMID, nullptr);
    if (!shared) {
        if (mapped(memory))
            shmdt(memory);
        m_window = XCB_WINDOW_NONE;
        return false;
    }
    m_memory = static_cast<std::uint8_t*>(memory);
    m_capacity = capacity;
    return true;
}

SharedFrames::Picture X11SharedFrames::next(int width, int height)
{
    if (m_window == XCB_WINDOW_NONE || width <= 0 || height <= 0
        || !hasRoomFor(bytesOf(width, height)))
        return {};
    m_width = width;
    m_height = height;
    m_turn = (m_turn + 1) % pictures;
    return {.bytes = m_memory + m_turn * m_capacity,
        .stride = static_cast<std::ptrdiff_t>(width) * static_cast<std::ptrdiff_t>(bytesPerPixel)};
}

void X11SharedFrames::put(int first, int count)
{
    auto const narrow = [](int value) { return static_cast<std::uint16_t>(value); };
    xcb_shm_put_image(m_connection, m_window, m_context, narrow(m_width), narrow(m_height), 0,
        narrow(first), narrow(m_width), narrow(count), 0, static_cast<std::int16_t>(first),
        depthWithAlpha, XCB_IMAGE_FORMAT_Z_PIXMAP, 0, m_segment,
        static_cast<std::uint32_t>(m_turn * m_capacity));
    xcb_flush(m_connection);
}

} // namespace velmora
