#pragma once

#include "Velmora/engine/Calendar.h"

#include <QString>

namespace velmora {

/// The user's time zone and locale. A time zone changed while the program runs is followed.
class LocalCalendar final : public Calendar {
public:
    LocalCalendar();

    [[nodiscard]] ClockComponents components(double instant) const override;
    [[nodiscard]] std::string shortTime(int hour, int minute) const override;

    /// The user's form of an hour and a minute in the toolkit's letters, such as "h:mm AP".
    [[nodiscard]] QString const& timeFormat() const { return m_format; }

private:
    QString m_format;
};

/// A locale's short time format without its seconds, if it has any: "HH:mm:ss" gives "HH:mm".
[[nodiscard]] QString withoutSeconds(QString format);

} // namespace velmora
