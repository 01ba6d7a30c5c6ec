#pragma once

#include <QTimeEdit>

namespace velmora {

/// A compact field for an hour and a minute, in the user's 12- or 24-hour form. Each part wraps
/// around by itself.
class SettingsTimePicker final : public QTimeEdit {
    Q_OBJECT

public:
    /// `format` is a time format of the toolkit without seconds, such as "h:mm AP".
    SettingsTimePicker(QString const& format, QWidget* parent);

    /// The minute of the day on display, 0 to 1439.
    [[nodiscard]] int minutes() const;
    /// Shows a minute of the day (0 to 1439) without telling anybody. The minute already shown
    /// leaves a half-typed time alone.
    void showMinutes(int minutes);

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// The user chose another minute of the day.
    void edited(int minutes);

private:
    bool m_showing = false;
    bool m_releasing = false;
};

} // namespace velmora
