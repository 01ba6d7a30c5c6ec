#pragma once

#include <QWidget>

class QVBoxLayout;

namespace velmora {

class FlowLayout;

/// A titled group of the settings form on a rounded white face. To assistive programs it is a
/// grouping with the title as its name.
class SettingsCard : public QWidget {
    Q_OBJECT

public:
    /// `title` as it is written in a sentence; it is shown in capitals.
    SettingsCard(QString const& title, QWidget* parent);

protected:
    /// A control of the card's width, which brings room for its focus ring along.
    void addControl(QWidget* control);

    /// Words of the card's width.
    void addText(QWidget* label);

    /// Widgets side by side, or in several lines.
    void addLine(FlowLayout* line);

    /// A line with words at the leading and a value at the trailing edge.
    void addRow(QWidget* leading, QWidget* trailing);

    void paintEvent(QPaintEvent* event) override;

private:
    QVBoxLayout& m_rows;
};

} // namespace velmora
