#pragma once

#include "harness/KeyTargetProcess.h"
#include "x11/Types.h"

#include <QProcess>
#include <QTemporaryDir>

#include <memory>

// A window of another program that takes text, with the focus, and the text that it has got.
class TextTarget {
public:
    enum class Kind { PlainX, Terminal, Qt, Tk };

    // Starts it at the top left of the screen; `notThis` is a window that is there besides. A
    // connection of the test's own; borrowed.
    TextTarget(Kind targetKind, Display* testDisplay, Window notThis);
    ~TextTarget();
    Q_DISABLE_COPY(TextTarget)

    // Has the window manager give it the focus. False when it does not get it within 15 seconds.
    bool waitForReady();

    // The letters that have arrived.
    QString typed();

private:
    QByteArray output();
    Window window() const;
    bool hasFocus() const;

    Kind kind;
    Display* display;
    Window other;
    std::unique_ptr<KeyTargetProcess> plain; // of Kind::PlainX; the others are processes
    QTemporaryDir directory;
    QProcess process;
    QByteArray received;
};
