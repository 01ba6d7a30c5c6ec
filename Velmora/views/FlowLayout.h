#pragma once

#include <QLayout>

#include <memory>
#include <vector>

namespace velmora {

/// Lays its items side by side and starts a new line where the next one does not fit, so that long
/// words and large text wrap instead of being cut. Right-to-left layouts are mirrored.
class FlowLayout final : public QLayout {
    Q_OBJECT

public:
    /// What happens to the room that a line has left.
    enum class Spread {
        /// It stays at the trailing end.
        leading,
        /// It goes between the items, so that the last one stands at the trailing edge.
        apart,
        /// The items share it.
        fill,
    };

    /// Gaps in desktop points. Its margins are 0 until they are set.
    FlowLayout(Spread spread, int gap, int lineGap);
    ~FlowLayout() override;
    FlowLayout(FlowLayout const&) = delete;
    FlowLayout& operator=(FlowLayout const&) = delete;

    void addItem(QLayoutItem* item) override;
    [[nodiscard]] int count() const override;
    [[nodiscard]] QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSize() const override;
    [[nodiscard]] Qt::Orientations expandingDirections() const override { return {}; }
    void setGeometry(QRect const& bounds) override;

private:
    using Items = std::vector<std::unique_ptr<QLayoutItem>>;

    /// The items that share a line, by index: from `first` up to but without `last`.
    struct Line {
        std::size_t first = 0;
        std::size_t last = 0;
        int width = 0;
        int height = 0;
    };

    [[nodiscard]] std::vector<Line> lines(int width) const;
    [[nodiscard]] static QSize itemSize(QLayoutItem const& item, int width);
    void place(Line const& line, QRect const& bounds, int top) const;

    Spread m_spread;
    int m_gap;
    int m_lineGap;
    Items m_items;
};

} // namespace velmora
