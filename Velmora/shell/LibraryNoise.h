#pragma once

namespace velmora {

/// Keeps what the toolkit has to say off the user's terminal, unless the variable VELMORA_DEBUG is
/// set. The program's own lines are not affected.
void quietLibraries();

} // namespace velmora
