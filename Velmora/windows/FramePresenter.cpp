#include "Velmora/windows/FramePresenter.h"

#include <QWindow>

#include <cstring>

namespace velmora {

namespace {

/// The rows, from `first` up to and without `end`, that hold all differences between two pictures
/// of equal shape.
struct Rows {
    int first = 0;
    int end = 0;
};

Rows changedRows(SharedFrames::Picture const& before, SharedFrames::Picture const& now, int height)
{
    auto const same = [&before, &now](int row) {
        return std::memcmp(before.bytes + row * before.stride, now.bytes + row * now.stride,
                   static_cast<std::size_t>(now.stride))
            == 0;
    };
    Rows rows = {.first = 0, .end = height};
    while (rows.first < rows.end && same(rows.first))
        ++rows.first;
    while (rows.end > rows.first && same(rows.end - 1))
        --rows.end;
    return rows;
}

} // namespace

FramePresenter::FramePresenter(QWindow& window, SharedFrames* shared)
    : m_window(window)
    , m_shared(shared)
{
}

QImage* FramePresenter::begin(QSize size, double scale)
{
    auto const pixels = size * scale;
    m_drawn = m_shared ? m_shared->next(pixels.width(), pixels.height()) : SharedFrames::Picture();
    // What was shown may have gone together with the memory that it was in.
    if (!m_drawn.bytes || pixels != m_pixels)
        m_shown = {};
    m_pixels = pixels;
    return m_drawn.bytes ? viewShared(pixels, scale) : beginStored(size);
}

QImage* FramePresenter::viewShared(QSize pixels, double scale)
{
    m_turn = (m_turn + 1) % m_views.size();
    auto& view = m_views.at(m_turn);
    if (view.constBits() != m_drawn.bytes || view.size() != pixels) {
        view = QImage(m_drawn.bytes, pixels.width(), pixels.height(), m_drawn.stride,
            QImage::Format_ARGB32_Premultiplied);
    }
    view.setDevicePixelRatio(scale);
    return &view;
}

QImage* FramePresenter::beginStored(QSize size)
{
    if (!m_store)
        m_store.emplace(&m_window);
    if (m_store->size() != size)
        m_store->resize(size);
    m_store->beginPaint(QRect(QPoint(0, 0), size));
    auto* device = m_store->paintDevice();
    if (device && device->devType() == QInternal::Image)
        return static_cast<QImage*>(device);
    m_store->endPaint();
    return nullptr;
}

void FramePresenter::present()
{
    if (m_drawn.bytes) {
        presentShared();
        return;
    }
    m_store->endPaint();
    m_store->flush(QRect(QPoint(0, 0), m_window.size()));
}

void FramePresenter::presentShared()
{
    auto const height = m_pixels.height();
    auto const rows
        = m_shown.bytes ? changedRows(m_shown, m_drawn, height) : Rows{.first = 0, .end = height};
    m_shown = m_drawn;
    if (rows.first < rows.end)
        m_shared->put(rows.first, rows.end - rows.first);
}

} // namespace velmora
