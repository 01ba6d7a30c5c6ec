#pragma once

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

namespace velmora {

/// Runs the event loop until `condition` holds; false when it does not within ten seconds, which is
/// far more than anything here takes.
template <typename Condition>
[[nodiscard]] bool eventually(Condition condition)
{
    QDeadlineTimer const deadline(10'000);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QEventLoop loop;
        QTimer::singleShot(5, &loop, &QEventLoop::quit);
        loop.exec();
    }
    return true;
}

} // namespace velmora
