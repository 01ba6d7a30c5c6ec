#include "Velmora/engine/ReminderClock.h"

#include "tests/fuzz/FuzzInput.h"
#include "tests/fuzz/TableClock.h"

namespace velmora {
namespace {

void compare(ReminderClock const& clock, TableClock const& table, double now)
{
    using State = TableClock::State;
    require(clock.isReminding() == (table.state() == State::reminding));
    require(clock.deadline.has_value() == (table.state() == State::running));
    if (clock.deadline)
        require(*clock.deadline == table.end());
    if (clock.remindingUntil)
        require(*clock.remindingUntil == table.end());
    require(clock.interval == table.interval());
    require(clock.remaining(now) == table.remaining(now));
    require(clock.remaining(now) >= 0);
}

/// Seconds of every size that a clock may step by, in both directions: parts of one, days, ages.
double step(FuzzInput& input)
{
    switch (input.number(0, 3)) {
    case 0:
        return input.number(0, 2000) / 1000.0;
    case 1:
        return input.number(-30, 90);
    case 2:
        return 3600.0 * input.number(-30000, 30000);
    default:
        return input.number(-2000, 2000) / 16.0;
    }
}

} // namespace
} // namespace velmora

/// Any sequence of operations, at any instants, leaves the clock where the table has it.
extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size)
{
    using namespace velmora;
    FuzzInput input(data, size);
    double now = 1e6 * input.number(-2000, 2000);
    double const interval = input.number(0, 4000) / 4.0;
    double const held = input.number(-200, 4000) / 4.0;
    ReminderClock clock = {.interval = interval, .held = held};
    TableClock table(interval, held);
    while (!input.spent()) {
        bool const counting = input.yes();
        switch (input.number(0, 6)) {
        case 0:
        case 1:
            now += step(input);
            require(clock.reconcile(now, counting) == table.reconcile(now, counting));
            break;
        case 2:
            clock.startReminder(now);
            table.start(now);
            break;
        case 3:
            clock.endReminder(now, counting);
            table.end(now, counting);
            break;
        case 4:
            clock.cancelReminder();
            table.cancel();
            break;
        case 5: {
            bool const reset = input.yes();
            double const seconds = input.number(-40, 4000) / 4.0;
            clock.updateInterval(seconds, now, counting, reset);
            table.update(seconds, now, counting, reset);
            break;
        }
        default:
            now += step(input);
        }
        compare(clock, table, now);
    }
    return 0;
}
