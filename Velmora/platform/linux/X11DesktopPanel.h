#pragma once

#include "Velmora/platform/DesktopPanel.h"
#include "Velmora/platform/linux/X11SharedFrames.h"
#include "Velmora/platform/linux/X11Stacking.h"

#include <QAbstractNativeEventFilter>

#include <string_view>
#include <vector>

struct xcb_connection_t;

namespace velmora {

/// The orb's window on an X server.
///
/// Input and bounding regions are set through the toolkit's own connection, in device pixels. A
/// compositing manager is known by the selection it owns; the server tells when that changes hands.
/// Where the toolkit speaks no X11 everything here does nothing and the window counts as
/// translucent.
class X11DesktopPanel final : public DesktopPanel, public QAbstractNativeEventFilter {
public:
    X11DesktopPanel();
    ~X11DesktopPanel() override;
    X11DesktopPanel(X11DesktopPanel const&) = delete;
    X11DesktopPanel& operator=(X11DesktopPanel const&) = delete;
    X11DesktopPanel(X11DesktopPanel&&) = delete;
    X11DesktopPanel& operator=(X11DesktopPanel&&) = delete;

    void adopt(std::uintptr_t window) override;
    void shown() override { }
    void setIgnoresPointer(bool /*ignores*/) override { }
    void showResizeCursor() override { }
    void setOutline(std::span<PixelRect const> outline) override;
    [[nodiscard]] bool translucent() const override { return m_translucent; }
    [[nodiscard]] SharedFrames* frames() override { return &m_frames; }

    bool nativeEventFilter(QByteArray const& type, void* message, qintptr* result) override;

private:
    [[nodiscard]] std::uint32_t atom(std::string_view name) const;
    void watchCompositor();
    void readCompositor();
    void bound();
    void setType() const;
    void setState() const;

    xcb_connection_t* m_connection = nullptr;
    std::uint32_t m_window = 0;
    std::uint32_t m_compositorSelection = 0;
    int m_fixesEvent = -1;
    bool m_translucent = true;
    std::vector<PixelRect> m_outline;
    X11SharedFrames m_frames;
    X11Stacking m_stacking;
};

} // namespace velmora
