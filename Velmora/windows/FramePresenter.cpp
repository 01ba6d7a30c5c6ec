#include "Velmora/windows/FramePresenter.h"

#include <QImage>
#include <QWindow>

#include <cmath>

namespace velmora {

FramePresenter::FramePresenter(QWindow& window)
    : m_window(window)
    , m_store(&window)
{
}

void FramePresenter::resize(QSize size)
{
    m_store.resize(size);
}

QImage* FramePresenter::begin(QRect area)
{
    m_area = inPoints(area).intersected(QRect(QPoint(0, 0), m_store.size()));
    m_store.beginPaint(m_area);
    auto* device = m_store.paintDevice();
    if (device && device->devType() == QInternal::Image)
        return static_cast<QImage*>(device);
    m_store.endPaint();
    return nullptr;
}

void FramePresenter::present()
{
    m_store.endPaint();
    m_store.flush(m_area, &m_window);
}

QRect FramePresenter::inPoints(QRect area) const
{
    auto const scale = m_window.devicePixelRatio();
    auto const down = [scale](int pixels) { return static_cast<int>(std::floor(pixels / scale)); };
    auto const up = [scale](int pixels) { return static_cast<int>(std::ceil(pixels / scale)); };
    return {QPoint(down(area.left()), down(area.top())),
        QPoint(up(area.x() + area.width()) - 1, up(area.y() + area.height()) - 1)};
}

} // namespace velmora
