#include "StartMeasure.h"

#include <chrono>
#include <stdexcept>
#include <thread>

namespace {

using namespace std::chrono_literals;

constexpr double lineDelay = 10; // milliseconds in each direction
constexpr auto lookAgain = 5ms;
constexpr auto patience = 5s;

// A slow line to the private server, at the end of which a program can be started.
class Line {
public:
    Line(const Desktop& desktop, double delay)
        : link({KBD_BENCH_SLOW_LINK, QByteArray::number(desktop.displayNumber()),
                   QByteArray::number(delay)},
            currentEnvironment())
    {
        const auto deadline = std::chrono::steady_clock::now() + patience;
        while (!link.output().endsWith('\n') && std::chrono::steady_clock::now() < deadline)
            std::this_thread::sleep_for(lookAgain);
        if (!link.output().startsWith(':'))
            throw std::runtime_error("no slow line: " + link.output().toStdString());
    }

    QByteArray displayName() const { return link.output().trimmed(); }

private:
    ChildProcess link;
};

double startOnce(Program& program, const QByteArray& display)
{
    const double time = program.startUntilPainted(display);
    program.stop();
    return time;
}

} // namespace

StartFigures measureStart(const Programs& programs, int runs)
{
    StartFigures figures{Series(programs.size()), Series(programs.size())};
    for (int run = 0; run < runs; ++run) {
        for (std::size_t i = 0; i < programs.size(); ++i) {
            figures.start[i].push_back(programs[i]->startUntilPainted());
            figures.memory[i].push_back(programs[i]->memory());
            programs[i]->stop();
        }
    }
    return figures;
}

Series measureRoundTrips(Desktop& desktop, const Programs& programs, int runs)
{
    const Line fast(desktop, 0);
    const Line slow(desktop, lineDelay);
    Series roundTrips(programs.size());
    for (int run = 0; run < runs; ++run) {
        for (std::size_t i = 0; i < programs.size(); ++i) {
            const double longer = startOnce(*programs[i], slow.displayName())
                - startOnce(*programs[i], fast.displayName());
            roundTrips[i].push_back(longer / (2 * lineDelay));
        }
    }
    return roundTrips;
}
