#pragma once

#include <QLabel>

namespace velmora {

/// Plain text of the settings form, in ink; it wraps where its line is too short.
class SettingsLabel final : public QLabel {
    Q_OBJECT

public:
    struct Look {
        /// Desktop points.
        double size = 13.0;
        /// 0 to 1.
        double opacity = 1.0;
        QFont::Weight weight = QFont::Normal;
        /// Extra space between letters in desktop points.
        double tracking = 0.0;
    };

    SettingsLabel(QString const& text, Look look, QWidget* parent);

    /// One line, as wide as the text: for a word that shares its line with others.
    static SettingsLabel* singleLine(QString const& text, Look look, QWidget* parent);
};

} // namespace velmora
