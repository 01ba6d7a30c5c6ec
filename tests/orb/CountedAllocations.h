#pragma once

namespace velmora {

/// How often the program that links this has called `operator new` so far, from any thread.
[[nodiscard]] long allocationCount();

} // namespace velmora
