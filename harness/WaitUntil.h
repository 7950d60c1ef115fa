#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>

// Handles events until the condition is met, and says whether it was within 15 seconds. Tries the
// condition after every event, and every tenth of a second where there is none; QTRY_VERIFY would
// sleep between two tries.
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
