#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>

// Handles events until the condition is met: it is looked at again as soon as there is something
// new, where the toolkit's own wait sleeps between its looks, and after a tenth of a second at the
// latest. False when 15 seconds are over.
template <typename Condition>
bool waitUntil(const Condition& isMet)
{
    constexpr int waitLimitMs = 15000;
    constexpr int lookAgainMs = 100;
    const QDeadlineTimer deadline(waitLimitMs);
    QTimer atTheLatest;
    atTheLatest.start(lookAgainMs);
    while (!isMet()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}
