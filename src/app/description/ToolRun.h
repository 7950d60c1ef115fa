#pragma once

#include <QByteArray>
#include <QProcess>
#include <QStringList>

#include <functional>
#include <optional>

// One run of a tool, from its start to its output. The caller can do something else meanwhile.
class ToolRun {
public:
    // Starts the program, which is found through the search path, and does not wait for it.
    ToolRun(const QString& program, const QStringList& arguments);

    // Kills the tool if it still runs.
    ~ToolRun();
    ToolRun(const ToolRun&) = delete;
    ToolRun& operator=(const ToolRun&) = delete;

    // The tool's standard output, or nothing when it could not be started, did not end within
    // timeout milliseconds from now or wrote more than a megabyte (far more than the tools used
    // here print). Its exit status and standard error are ignored. Blocks until the tool has ended,
    // or has been killed after timeout. When that takes longer than a second, whenSlow is called
    // then. To be called once.
    std::optional<QByteArray> output(int timeout, const std::function<void()>& whenSlow);

private:
    QProcess tool;
};

// Kills the process if it still runs, as it has to be before a QProcess is destroyed.
void endNow(QProcess& process);

// Waits until the process has ended, for timeout milliseconds at most. False if it runs on then, or
// could not be started.
bool hasEnded(QProcess& process, int timeout);

// Adds the option (with its dashes) and its value to a tool's arguments, unless the value is empty.
void appendOption(QStringList& arguments, const char* option, const QString& value);
