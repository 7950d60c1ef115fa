#pragma once

#include "x11/Types.h"

#include <QProcess>
#include <QTemporaryDir>

// Runs the program that is under test, with nothing of the user's own settings. The destructor
// kills it if it still runs.
class ProgramRun {
public:
    // `program` is its file; it is to run on `display`.
    ProgramRun(const QString& program, const QByteArray& display);
    ~ProgramRun();
    ProgramRun(const ProgramRun&) = delete;
    ProgramRun& operator=(const ProgramRun&) = delete;

    // To be called before start().
    void setVariable(const QString& name, const QString& value);
    void removeVariable(const QString& name);
    void setWorkingDirectory(const QString& directory);

    void start(const QStringList& arguments = {});

    // The main window once the user can see it; none when the program ends instead or the deadline
    // is over.
    Window waitForWindow(Display* display, int milliseconds = 20000) const;

    // Ends the program at once (SIGKILL).
    void kill();

    // True once the program has ended; false when the deadline is over.
    bool waitForEnd(int milliseconds = 20000);

    bool isRunning() const { return process.state() != QProcess::NotRunning; }
    qint64 processId() const { return process.processId(); }

    // -1 while the program runs and when a signal has ended it.
    int exitStatus() const;

    // What it has written so far to standard output and standard error.
    QByteArray output();
    QByteArray errors();

private:
    QTemporaryDir home;
    QProcessEnvironment environment;
    QProcess process;
    QByteArray outputSoFar;
    QByteArray errorsSoFar;
};
