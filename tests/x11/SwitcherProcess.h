#pragma once

#include "x11/Types.h"

#include <QProcess>
#include <QString>
#include <QStringList>

#include <csignal>
#include <memory>
#include <unistd.h>

// What the tests of the switcher share: the program, and the keyboards that it is told to load.

// As the on-screen keyboard names it: with a geometry that no other program loads.
inline QStringList keyboard(
    const QString& layout, const QString& keycodes = "evdev+aliases(qwerty)")
{
    return {"--keycodes", keycodes, "--types", "complete", "--compat", "complete", "--symbols",
        "pc+" + layout + "+inet(evdev)", "--geometry", "pc-arvane(pc105)"};
}

inline const QStringList german = keyboard("de", "evdev+aliases(qwertz)");
inline const QStringList french = keyboard("fr", "evdev+aliases(azerty)");
inline const QStringList american = keyboard("us");

inline const QString germanSymbols = "pc+de+inet(evdev)";
inline const QString frenchSymbols = "pc+fr+inet(evdev)";
inline const QString americanSymbols = "pc+us+inet(evdev)";

// Longer than a newer switcher waits for an older one.
inline constexpr int longerThanPatienceMs = 15000;

class SwitcherProcess {
public:
    explicit SwitcherProcess(const QStringList& arguments)
        : SwitcherProcess(KBD_SWITCHER, arguments)
    {
    }

    // A program that becomes the switcher.
    SwitcherProcess(const QString& program, const QStringList& arguments)
    {
        // The display is to come from the arguments alone.
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove("DISPLAY");
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory("/");
        process.start(program, arguments);
        process.waitForStarted();
    }

    ~SwitcherProcess() { stop(); }
    SwitcherProcess(const SwitcherProcess&) = delete;
    SwitcherProcess& operator=(const SwitcherProcess&) = delete;

    qint64 processId() const { return process.processId(); }
    void signal(int number) const { ::kill(static_cast<pid_t>(process.processId()), number); }

    // As a crash would end it: it can put nothing back.
    void kill()
    {
        process.kill();
        process.waitForFinished(longerThanPatienceMs);
    }

    // -1 when it does not end within the deadline or crashed.
    int waitForEnd()
    {
        if (process.state() != QProcess::NotRunning)
            process.waitForFinished(longerThanPatienceMs);
        const bool hasEnded =
            process.state() == QProcess::NotRunning && process.exitStatus() == QProcess::NormalExit;
        return hasEnded ? process.exitCode() : -1;
    }

    int stop()
    {
        if (process.state() != QProcess::NotRunning)
            signal(SIGTERM);
        return waitForEnd();
    }

    QByteArray errors() { return process.readAllStandardError(); }

private:
    QProcess process;
};

using Switcher = std::unique_ptr<SwitcherProcess>;

// Who has the keyboard loaded: a process, and its window, on a display.
inline QStringList switcherOwner(Window window, const QByteArray& display, qint64 parent = getpid())
{
    return {"--parent", QString::number(parent), "--window", QString::number(window), "--display",
        QString::fromLatin1(display)};
}
