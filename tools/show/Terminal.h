#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

// A terminal window that keeps the first line typed into it.
class Terminal {
public:
    explicit Terminal(const QByteArray& display);
    ~Terminal();
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    qint64 processId() const { return process.processId(); }

    // The line, without its end; null when none has come within ten seconds.
    QString waitForLine();

private:
    QString lineFile() const;

    QTemporaryDir directory;
    QProcess process;
};
