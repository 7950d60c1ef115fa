#pragma once

#include "Desktop.h"

// How a program is started.
struct ProgramSetup {
    QByteArrayList command;
    QString directory{}; // to run in
    QByteArrayList variables{}; // "NAME=value" entries beside those of the desktop
    bool tellsProcess = true; // its window has _NET_WM_PID (EWMH); old programs' have not
};

// A program whose window is looked at from outside, started again and again. It always looks the
// same at the same place, so that its first run shows what the others wait for.
class Program {
public:
    // Starts the program once and learns what its window looks like. Throws std::runtime_error
    // when it shows none.
    Program(Desktop& desktop, ProgramSetup setup);

    // The window's size, in pixels.
    QSize size() const { return windowArea.size(); }

    // Starts the program on `display` and returns how long that took until its window was painted
    // in full, in milliseconds. Throws std::runtime_error when that does not happen.
    double startUntilPainted(const QByteArray& display);
    double startUntilPainted() { return startUntilPainted(desktop.displayName()); }

    // The following hold while the program runs.
    Window window() const;
    QRect area() const;

    // The process's share of the memory in use, in MB (smaps_rollup, Pss).
    double memory() const;

    // Ends the program and waits until nothing of it is to be seen.
    void stop();

private:
    void launch(const QByteArray& display);

    Desktop& desktop;
    ProgramSetup setup;
    QRect windowArea;
    ScreenLines paintedLines;
    std::unique_ptr<ChildProcess> process;
};

// What is compared, ours first; borrowed.
using Programs = std::vector<Program*>;
