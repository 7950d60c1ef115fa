#pragma once

#include <QObject>

// Turns the first SIGTERM, SIGINT or SIGHUP into a fact that the event loop delivers, so that the
// program can release the keys that it holds. A second one ends the process at once.
class SignalWatch : public QObject {
    Q_OBJECT

public:
    explicit SignalWatch(QObject* parent);

signals:
    void askedToEnd();
};
