#include "Velmora/engine/StatusText.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace velmora::StatusText {

namespace {

constexpr std::string_view placeholder = "%1";

std::string fill(std::string phrase, std::string_view value)
{
    if (auto const at = phrase.find(placeholder); at != std::string::npos)
        phrase.replace(at, placeholder.size(), value);
    return phrase;
}

} // namespace

std::int64_t wholeSeconds(double seconds)
{
    // Both bounds are exact doubles; a comparison with a value that is not a number is false.
    constexpr double limit = 9223372036854775808.0;
    double const whole = std::floor(seconds);
    if (!(whole >= -limit && whole < limit))
        std::abort();
    return std::max<std::int64_t>(static_cast<std::int64_t>(whole), 0);
}

std::string nextLabel(std::int64_t seconds, StatusPhrases const& phrases)
{
    if (seconds > 59) {
        auto const minutes = std::llround(static_cast<double>(seconds) / 60.0);
        return fill(phrases.nextInMinutes, std::to_string(std::max(minutes, 1LL)));
    }
    return fill(phrases.nextInSeconds, std::to_string(std::max<std::int64_t>(seconds, 0)));
}

std::string line(StatusState const& state, StatusPhrases const& phrases)
{
    if (state.reminding)
        return phrases.reminding;
    if (state.paused)
        return phrases.paused;
    if (state.active)
        return nextLabel(state.seconds, phrases);
    return fill(phrases.restingUntil, state.resumeAt);
}

} // namespace velmora::StatusText
