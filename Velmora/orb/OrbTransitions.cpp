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
    if (m_shown) {
        advance(seconds);
        retarget(state);
    } else {
        start(state);
    }
    m_shown = state;
    m_lastSeconds = seconds;
    return orbFrame(state, seconds, blend());
}

bool OrbTransitions::settled() const
{
    return m_look.settled() && m_word.settled() && m_controls.settled();
}

OrbBlend OrbTransitions::blend() const
{
    OrbBlend blend = m_shown ? settledBlend(*m_shown) : OrbBlend{};
    blend.word = m_word.value();
    if (!m_look.settled()) {
        double const arrived = m_look.value();
        for (std::size_t i = 0; i < blend.looks.size(); ++i)
            blend.looks[i] = m_fromLooks[i] + (blend.looks[i] - m_fromLooks[i]) * arrived;
    }
    return blend;
}

void OrbTransitions::start(OrbState const& state)
{
    m_word.jump(asNumber(state.showWord));
    m_controls.jump(asNumber(state.showChrome));
}

void OrbTransitions::retarget(OrbState const& state)
{
    if (state.paused != m_shown->paused || state.isReminding != m_shown->isReminding) {
        m_fromLooks = blend().looks;
        m_look.jump(0);
        m_look.aim(1);
    }
    m_word.aim(asNumber(state.showWord));
    m_controls.aim(asNumber(state.showChrome));
}

void OrbTransitions::advance(double seconds)
{
    // A difference that is not a number or negative counts as no time at all.
    double const passed = seconds - m_lastSeconds;
    double const elapsed = passed > 0 ? passed : 0;
    m_look.advance(elapsed);
    m_word.advance(elapsed);
    m_controls.advance(elapsed);
}

} // namespace velmora
