#pragma once

#include <QObject>

// Emits askedToEnd from the event loop after the first SIGTERM, SIGINT or SIGHUP, so that the
// program can release the keys that it holds. A second signal ends the process at once.
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
