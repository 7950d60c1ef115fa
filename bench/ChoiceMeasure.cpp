#include "ChoiceMeasure.h"

#include "harness/SlowDisplay.h"

#include <QDir>

#include <stdexcept>

namespace {

using namespace std::chrono_literals;

constexpr auto patience = 60s;
constexpr auto lineDelay = 10ms; // in each direction

// The lines "choice <milliseconds>" and "tools <milliseconds>" that kbd-choose-layout prints.
Series figuresIn(const QByteArray& output)
{
    Series figures(2);
    const QByteArrayList lines = output.split('\n');
    for (const QByteArray& line : lines) {
        const QByteArrayList words = line.split(' ');
        if (words.first() == "choice")
            figures[0].push_back(words.last().toDouble());
        else if (words.first() == "tools")
            figures[1].push_back(words.last().toDouble());
    }
    return figures;
}

} // namespace

Series measureChoice(
    Desktop& desktop, const QByteArray& display, const QString& directory, int runs)
{
    QDir::setCurrent(directory);
    ChildProcess chooser(
        {KBD_BENCH_CHOOSE_LAYOUT, QByteArray::number(runs)}, desktop.environment(display));
    const auto deadline = ScreenWatch::Clock::now() + patience;
    while (chooser.isRunning() && ScreenWatch::Clock::now() < deadline)
        desktop.screen().waitForQuiet();

    const Series figures = figuresIn(chooser.output());
    if (figures[0].empty() || figures[1].empty())
        throw std::runtime_error("no layout is chosen: " + chooser.output().toStdString());
    return figures;
}

Series measureChoiceRoundTrips(Desktop& desktop, const QString& directory, int runs)
{
    const SlowDisplay fast(desktop.displayName(), 0ms);
    const SlowDisplay slow(desktop.displayName(), lineDelay);
    const Series without = measureChoice(desktop, fast.display(), directory, runs);
    const Series with = measureChoice(desktop, slow.display(), directory, runs);
    Series roundTrips;
    for (std::size_t i = 0; i < with.size(); ++i)
        roundTrips.push_back(
            {(median(with[i]) - median(without[i])) / static_cast<double>(2 * lineDelay.count())});
    return roundTrips;
}
