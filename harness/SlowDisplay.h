#pragma once

#include "harness/ChildProcess.h"

#include <chrono>

// The display of a private server as a program far away reaches it: what goes to the server and
// what comes from it arrive late. The line runs in a process of its own, so that a test that is
// busy does not make it slower still.
class SlowDisplay {
public:
    // `display` is the server's, such as ":12"; everything is held back by `delay` in each
    // direction. Throws std::runtime_error when the line is not there within five seconds.
    SlowDisplay(const QByteArray& display, std::chrono::milliseconds delay);

    // The display's name for the programs that are far away.
    QByteArray display() const { return displayName; }

private:
    ChildProcess link;
    QByteArray displayName;
};
