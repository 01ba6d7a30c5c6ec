#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace velmora {

/// The words of the status line, UTF-8; `%1` stands for the number or the time.
struct StatusPhrases {
    std::string reminding = "Velmora";
    std::string paused = "Paused";
    std::string nextInMinutes = "Next in %1m";
    std::string nextInSeconds = "Next in %1s";
    std::string restingUntil = "Resting until %1";
};

/// What the status line depends on.
struct StatusState {
    bool reminding = false;
    bool paused = false;
    /// Inside the active hours.
    bool active = false;
    /// The start of the active hours as the user reads it.
    std::string resumeAt;
    /// Whole seconds to the next reminder.
    std::int64_t seconds = 0;
};

/// The one short line that tells the user where the countdown stands.
namespace StatusText {

/// Seconds rounded down, and 0 for less. A value that is not finite or does not fit in 64 bits
/// ends the process: the clock never makes one.
[[nodiscard]] std::int64_t wholeSeconds(double seconds);

/// "Next in 15m" from 60 seconds on (rounded to the nearest minute, halves up), "Next in 59s"
/// below; negative counts as 0.
[[nodiscard]] std::string nextLabel(std::int64_t seconds, StatusPhrases const& phrases = {});

/// A running reminder comes first, then the pause, then the countdown, then the resting hours.
[[nodiscard]] std::string line(StatusState const& state, StatusPhrases const& phrases = {});

} // namespace StatusText

} // namespace velmora
