#pragma once

#include "harness/KeyTargetLine.h"

#include <QList>
#include <QProcess>
#include <QRect>

// Runs the key target, a plain X client with the input focus, and collects what reaches it.
class KeyTargetProcess {
public:
    // Starts the target; `area` is its window in pixels of the screen.
    explicit KeyTargetProcess(const QByteArray& display, const QRect& area = {700, 60, 300, 200});

    // Ends the target.
    ~KeyTargetProcess();
    KeyTargetProcess(const KeyTargetProcess&) = delete;
    KeyTargetProcess& operator=(const KeyTargetProcess&) = delete;

    // True once the target has the focus; false when it does not get it within the deadline.
    bool waitForReady(int milliseconds = 10000);

    qint64 processId() const { return process.processId(); }

    // The target's X window; 0 before it is ready.
    unsigned long windowId() const { return window; }

    // All that has come since the start or since clear(), the line "ready" excepted. The second
    // has presses and releases only.
    QList<KeyTargetLine> lines();
    QList<KeyTargetLine> keys();

    // True once there are `count` lines, or keys, or more; false when the deadline is over. The
    // application's events go on meanwhile.
    bool waitForLines(qsizetype count, int milliseconds = 5000);
    bool waitForKeys(qsizetype count, int milliseconds = 5000);

    void clear();

private:
    void readLines();

    QProcess process;
    unsigned long window = 0;
    QList<KeyTargetLine> received;
};
