#pragma once

namespace velmora {

class AppDelegate;
class PlatformServices;

/// Passes what the program hears from the system while it runs on to the delegate, which outlives
/// `system`'s telling.
void observeSystem(PlatformServices& system, AppDelegate& delegate);

} // namespace velmora
