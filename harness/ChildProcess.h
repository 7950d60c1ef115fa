#pragma once

#include <QByteArray>
#include <QByteArrayList>

#include <sys/types.h>

// A program that runs beside a test, in a process group of its own. It needs no application
// object, so it can be started before one exists. The program gets SIGTERM when the test dies, and
// the whole group gets it on destruction (SIGKILL after five seconds); the program is reaped.
class ChildProcess {
public:
    // `program` is searched in PATH. `environment` holds "NAME=value" entries; an inherited
    // descriptor (-1 for none) keeps its number in the program. Throws std::runtime_error when no
    // process can be made; a program that is missing ends at once, with status 127.
    ChildProcess(const QByteArrayList& command, const QByteArrayList& environment,
        int inheritedDescriptor = -1);
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    pid_t processId() const { return process; }
    bool isRunning();

    // What the program has written to its standard output and standard error so far.
    QByteArray output() const;

    // True when the program ended by itself or on SIGTERM, false when it had to be killed.
    bool stop();

private:
    bool waitForEnd(int milliseconds);

    pid_t process = -1;
    int outputFile = -1;
};

// The environment of this process as "NAME=value" entries.
QByteArrayList currentEnvironment();
