#pragma once

namespace velmora {

/// What one reconciliation of the reminder clock did.
enum class ReminderEffect {
    none,
    started,
    ended,
};

} // namespace velmora
