#pragma once

#include <QObject>

// Emits askedToEnd from the event loop after the first SIGTERM, SIGINT or SIGHUP, so that the
// program can release the keys that it holds. A second signal ends the process at once. A signal
// that was ignored when the program started stays ignored. A handler and a pipe, and no signalfd as
// in the switcher: that wants the signals blocked, so that a second one would not end a program
// that hangs, and every program started here would inherit the block.
class SignalWatch : public QObject {
    Q_OBJECT

public:
    // If no pipe can be made, the signals keep their default action. At most one instance in a
    // process.
    explicit SignalWatch(QObject* parent);

signals:
    // Once, from the event loop.
    void askedToEnd();
};
