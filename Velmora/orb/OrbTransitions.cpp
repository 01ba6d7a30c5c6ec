#include "Velmora/orb/OrbTransitions.h"

#include <algorithm>
#include <cstddef>

namespace velmora {
namespace {

double asNumber(bool on)
{
    return on ? 1 : 0;
}

} // namespace

OrbFrame OrbTransitions::frame(OrbState const& state, double seconds)
{
    if (shown_) {
        advance(seconds);
        retarget(state);
    } else {
        start(state);
    }
    shown_ = state;
    lastSeconds_ = seconds;
    return orbFrame(state, seconds, blend());
}

bool OrbTransitions::settled() const
{
    return look_.settled() && word_.settled() && controls_.settled();
}

OrbBlend OrbTransitions::blend() const
{
    OrbBlend blend = shown_ ? settledBlend(*shown_) : OrbBlend{};
    blend.word = word_.value();
    if (!look_.settled()) {
        double const arrived = look_.value();
        for (std::size_t i = 0; i < blend.looks.size(); ++i)
            blend.looks[i] = fromLooks_[i] + (blend.looks[i] - fromLooks_[i]) * arrived;
    }
    return blend;
}

void OrbTransitions::start(OrbState const& state)
{
    word_.jump(asNumber(state.showWord));
    controls_.jump(asNumber(state.showChrome));
}

void OrbTransitions::retarget(OrbState const& state)
{
    if (state.paused != shown_->paused || state.isReminding != shown_->isReminding) {
        fromLooks_ = blend().looks;
        look_.jump(0);
        look_.aim(1);
    }
    word_.aim(asNumber(state.showWord));
    controls_.aim(asNumber(state.showChrome));
}

void OrbTransitions::advance(double seconds)
{
    // A difference that is not a number or negative counts as no time at all.
    double const passed = seconds - lastSeconds_;
    double const elapsed = passed > 0 ? passed : 0;
    look_.advance(elapsed);
    word_.advance(elapsed);
    controls_.advance(elapsed);
}

} // namespace velmora
