#include "ProgramRun.h"

#include "ProgramWindows.h"

#include <QTest>

namespace {

constexpr int endLimitMs = 5000;

} // namespace

ProgramRun::ProgramRun(const QString& program, const QByteArray& display)
    : m_environment(QProcessEnvironment::systemEnvironment())
{
    m_process.setProgram(program);
    m_process.setStandardInputFile(QProcess::nullDevice());
    setVariable("DISPLAY", QString::fromLatin1(display));
    setVariable("LC_ALL", "C.UTF-8");
    for (const char* variable : {"HOME", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "XDG_CONFIG_DIRS"})
        setVariable(variable, m_home.path());
    for (const char* variable : {"QT_QPA_PLATFORM", "LANGUAGE"})
        removeVariable(variable);
}

ProgramRun::~ProgramRun()
{
    m_process.kill();
    m_process.waitForFinished(endLimitMs);
}

void ProgramRun::setVariable(const QString& name, const QString& value)
{
    m_environment.insert(name, value);
}

void ProgramRun::removeVariable(const QString& name)
{
    m_environment.remove(name);
}

void ProgramRun::setWorkingDirectory(const QString& directory)
{
    m_process.setWorkingDirectory(directory);
}

void ProgramRun::start(const QStringList& arguments)
{
    m_process.setProcessEnvironment(m_environment);
    m_process.setArguments(arguments);
    m_process.start();
    m_process.waitForStarted();
}

Window ProgramRun::waitForWindow(Display* display, int milliseconds)
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
    return !isRunning() || m_process.waitForFinished(milliseconds);
}

int ProgramRun::exitStatus() const
{
    const bool hasExited = !isRunning() && m_process.exitStatus() == QProcess::NormalExit;
    return hasExited ? m_process.exitCode() : -1;
}

QByteArray ProgramRun::output()
{
    return m_output += m_process.readAllStandardOutput();
}

QByteArray ProgramRun::errors()
{
    return m_errors += m_process.readAllStandardError();
}
