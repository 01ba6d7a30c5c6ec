#include "Velmora/views/FlowLayout.h"

#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace velmora {

FlowLayout::FlowLayout(Spread spread, int gap, int lineGap)
    : m_spread(spread)
    , m_gap(gap)
    , m_lineGap(lineGap)
{
    setContentsMargins(0, 0, 0, 0);
}

FlowLayout::~FlowLayout() = default;

void FlowLayout::addItem(QLayoutItem* item)
{
    m_items.emplace_back(item);
}

int FlowLayout::count() const
{
    return static_cast<int>(m_items.size());
}

QLayoutItem* FlowLayout::itemAt(int index) const
{
    return index >= 0 && index < count() ? m_items[static_cast<std::size_t>(index)].get() : nullptr;
}

QLayoutItem* FlowLayout::takeAt(int index)
{
    if (!itemAt(index))
        return nullptr;
    auto const at = m_items.begin() + index;
    auto* item = at->release();
    m_items.erase(at);
    return item;
}

QSize FlowLayout::itemSize(QLayoutItem const& item, int width)
{
    QSize size = item.sizeHint().expandedTo(item.minimumSize());
    size.setWidth(std::min(size.width(), width));
    if (item.hasHeightForWidth())
        size.setHeight(item.heightForWidth(size.width()));
    return size;
}

std::vector<FlowLayout::Line> FlowLayout::lines(int width) const
{
    std::vector<Line> lines;
    for (std::size_t i = 0; i < m_items.size(); ++i) {
        if (m_items[i]->isEmpty())
            continue;
        QSize const size = itemSize(*m_items[i], width);
        if (lines.empty() || lines.back().width + m_gap + size.width() > width) {
            lines.push_back(
                {.first = i, .last = i + 1, .width = size.width(), .height = size.height()});
            continue;
        }
        auto& line = lines.back();
        line.last = i + 1;
        line.width += m_gap + size.width();
        line.height = std::max(line.height, size.height());
    }
    return lines;
}

int FlowLayout::heightForWidth(int width) const
{
    auto const margins = contentsMargins();
    auto const all = lines(width - margins.left() - margins.right());
    int height = std::max(0, static_cast<int>(all.size()) - 1) * m_lineGap;
    for (auto const& line : all)
        height += line.height;
    return height + margins.top() + margins.bottom();
}

QSize FlowLayout::sizeHint() const
{
    QSize size;
    int shown = 0;
    for (auto const& item : m_items) {
        if (item->isEmpty())
            continue;
        ++shown;
        QSize const hint = item->sizeHint();
        size = {size.width() + hint.width(), std::max(size.height(), hint.height())};
    }
    auto const margins = contentsMargins();
    return size.grownBy(margins) + QSize(std::max(0, shown - 1) * m_gap, 0);
}

QSize FlowLayout::minimumSize() const
{
    QSize size;
    for (auto const& item : m_items)
        size = size.expandedTo(item->minimumSize());
    return size.grownBy(contentsMargins());
}

void FlowLayout::setGeometry(QRect const& bounds)
{
    QLayout::setGeometry(bounds);
    QRect const room = bounds.marginsRemoved(contentsMargins());
    int top = room.top();
    for (auto const& line : lines(room.width())) {
        place(line, room, top);
        top += line.height + m_lineGap;
    }
}

void FlowLayout::place(Line const& line, QRect const& bounds, int top) const
{
    auto const shown = std::count_if(m_items.begin() + static_cast<std::ptrdiff_t>(line.first),
        m_items.begin() + static_cast<std::ptrdiff_t>(line.last),
        [](auto const& item) { return !item->isEmpty(); });
    auto const direction = parentWidget() ? parentWidget()->layoutDirection() : Qt::LeftToRight;
    auto left = static_cast<int>(shown);
    int room = bounds.width() - line.width;
    int x = bounds.left();
    for (std::size_t i = line.first; i < line.last; ++i) {
        auto& item = *m_items[i];
        if (item.isEmpty())
            continue;
        QSize size = itemSize(item, bounds.width());
        if (m_spread == Spread::fill) {
            int const share = room / left;
            size.rwidth() += share;
            room -= share;
        }
        if (m_spread == Spread::apart && shown > 1 && left == 1)
            x = bounds.right() + 1 - size.width();
        QRect const place(QPoint(x, top + (line.height - size.height()) / 2), size);
        item.setGeometry(QStyle::visualRect(direction, bounds, place));
        x += size.width() + m_gap;
        --left;
    }
}

} // namespace velmora
