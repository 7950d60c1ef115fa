#include "Program.h"

#include <QDir>
#include <QFile>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr double kilobytesInMegabyte = 1024;

// A window stands empty before it is painted, longer where the machine is busy.
constexpr std::chrono::milliseconds surelyPainted(700);

} // namespace

Program::Program(Desktop& desktopOfAll, ProgramSetup programSetup)
    : desktop(desktopOfAll)
    , setup(std::move(programSetup))
{
    launch(desktop.displayName());
    const Window shown = window();
    desktop.screen().waitForQuiet(surelyPainted);
    windowArea = desktop.areaOf(shown);
    paintedLines = linesAcrossKeys(desktop.screen().grab(windowArea));
    stop();
    if (areBlank(paintedLines))
        throw std::runtime_error(setup.command.first().toStdString() + " shows an empty window");
}

void Program::launch(const QByteArray& display)
{
    QDir::setCurrent(setup.directory);
    process = std::make_unique<ChildProcess>(
        setup.command, desktop.environment(display, setup.variables));
}

double Program::startUntilPainted(const QByteArray& display)
{
    if (desktop.screen().shows(paintedLines))
        throw std::runtime_error("something that looks like the window is there already");
    desktop.screen().forgetPaints();
    const auto begin = ScreenWatch::Clock::now();
    launch(display);
    const auto painted = desktop.screen().waitFor(paintedLines);
    if (!painted)
        throw std::runtime_error(setup.command.first().toStdString() + " is not painted as before");
    desktop.screen().waitForQuiet();
    return std::chrono::duration<double, std::milli>(*painted - begin).count();
}

Window Program::window() const
{
    return setup.tellsProcess ? desktop.waitForWindow(process->processId())
                              : desktop.waitForWindowWithoutProcess();
}

QRect Program::area() const
{
    return desktop.areaOf(window());
}

double Program::memory() const
{
    QFile rollup(u"/proc/%1/smaps_rollup"_s.arg(process->processId()));
    if (!rollup.open(QIODevice::ReadOnly))
        throw std::runtime_error("the memory in use cannot be read");
    const QByteArrayList lines = rollup.readAll().split('\n');
    for (const QByteArray& line : lines) {
        if (line.startsWith("Pss:"))
            return line.mid(4).trimmed().split(' ').first().toDouble() / kilobytesInMegabyte;
    }
    return 0;
}

void Program::stop()
{
    process.reset();
    desktop.screen().waitForQuiet();
}
