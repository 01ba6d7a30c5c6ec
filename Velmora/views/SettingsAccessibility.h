#pragma once

namespace velmora {

/// Tells assistive programs what the form's own controls are: a slider with the numbers that the
/// user sees, a chip as one of several to choose from, a card as a grouping. Calling it again
/// changes nothing.
void installSettingsAccessibility();

} // namespace velmora
