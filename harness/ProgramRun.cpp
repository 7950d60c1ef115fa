#include "harness/ProgramRun.h"

#include "harness/ProgramWindows.h"
#include "harness/UserEnvironment.h"

#include <QtTest/qtestsystem.h>

namespace {

constexpr int endLimitMs = 5000;

} // namespace

ProgramRun::ProgramRun(const QString& program, const QByteArray& display)
    : environment(QProcessEnvironment::systemEnvironment())
{
    process.setProgram(program);
    process.setStandardInputFile(QProcess::nullDevice());
    setVariable("DISPLAY", QString::fromLatin1(display));
    setVariable("LC_ALL", "C.UTF-8");
    setVariable("XDG_CONFIG_DIRS", home.path());
    for (const QByteArray& directory : userDirectories())
        setVariable(directory.constData(), home.path());
    for (const QByteArray& variable : userVariables())
        removeVariable(variable.constData());
}

ProgramRun::~ProgramRun()
{
    kill();
}

void ProgramRun::kill()
{
    process.kill();
    process.waitForFinished(endLimitMs);
}

void ProgramRun::setVariable(const QString& name, const QString& value)
{
    environment.insert(name, value);
}

void ProgramRun::removeVariable(const QString& name)
{
    environment.remove(name);
}

void ProgramRun::setWorkingDirectory(const QString& directory)
{
    process.setWorkingDirectory(directory);
}

void ProgramRun::start(const QStringList& arguments)
{
    process.setProcessEnvironment(environment);
    process.setArguments(arguments);
    process.start();
    process.waitForStarted();
}

Window ProgramRun::waitForWindow(Display* display, int milliseconds) const
{
    Window window = x11::none;
    const auto isThereOrWillNeverBe = [&] {
        window = mainWindowOf(display, processId());
        return window != x11::none || !isRunning();
    };
    return QTest::qWaitFor(isThereOrWillNeverBe, milliseconds) ? window : x11::none;
}

bool ProgramRun::waitForEnd(int milliseconds)
{
    return !isRunning() || process.waitForFinished(milliseconds);
}

int ProgramRun::exitStatus() const
{
    const bool hasExited = !isRunning() && process.exitStatus() == QProcess::NormalExit;
    return hasExited ? process.exitCode() : -1;
}

QByteArray ProgramRun::output()
{
    return outputSoFar += process.readAllStandardOutput();
}

QByteArray ProgramRun::errors()
{
    return errorsSoFar += process.readAllStandardError();
}
