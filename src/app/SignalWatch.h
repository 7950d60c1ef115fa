#pragma once

#include <QObject>

// Turns the first SIGTERM, SIGINT or SIGHUP into a fact that the event loop delivers, so that the
// program can release the keys that it holds. A second one ends the process at once.
class SignalWatch : public QObject {
    Q_OBJECT

public:
    // Without a pipe to be had the signals end the process, as they do by themselves. One of a
    // process only.
    explicit SignalWatch(QObject* parent);

signals:
    // Once, from the event loop.
    void askedToEnd();
};
