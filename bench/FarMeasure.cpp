#include "FarMeasure.h"

#include "harness/XProxy.h"
#include "x11/X11.h"

#include <functional>

namespace {

using namespace std::chrono_literals;

constexpr auto surelyPainted = 500ms; // a picture of many pixels takes its time on a busy machine
constexpr double bytesInKilobyte = 1000;

// In the numbering of PC keyboards.
constexpr unsigned int letterA = 38;
constexpr unsigned int leftShift = 50;
constexpr unsigned int capsLock = 66;

class FarRun {
public:
    FarRun(Desktop& desktopOfAll, Program& measured)
        : desktop(desktopOfAll)
        , program(measured)
        , line(desktop.displayName(), hidingExtension("MIT-SHM"))
    {
    }
    ~FarRun() { program.stop(); }
    FarRun(const FarRun&) = delete;
    FarRun& operator=(const FarRun&) = delete;

    XTraffic start()
    {
        return during([this] { program.startUntilPainted(line.display()); });
    }

    // Once the window has the focus.
    void ready() { desktop.waitForFocus(program.window()); }

    XTraffic key(unsigned int keycode, bool down)
    {
        return during([&] {
            XTestFakeKeyEvent(
                desktop.display(), keycode, down ? x11::xTrue : x11::xFalse, CurrentTime);
            XFlush(desktop.display());
        });
    }

    XTraffic stroke(unsigned int keycode)
    {
        const XTraffic before = line.traffic();
        key(keycode, true);
        key(keycode, false);
        return since(before);
    }

private:
    XTraffic during(const std::function<void()>& act)
    {
        const XTraffic before = line.traffic();
        act();
        desktop.screen().waitForQuiet(surelyPainted);
        return since(before);
    }

    XTraffic since(const XTraffic& before) const
    {
        XTraffic result = line.traffic();
        result.requestBytes -= before.requestBytes;
        result.replies -= before.replies;
        return result;
    }

    Desktop& desktop;
    Program& program;
    XProxy line;
};

double kilobytes(const XTraffic& traffic)
{
    return static_cast<double>(traffic.requestBytes) / bytesInKilobyte;
}

void measureOnce(Desktop& desktop, Program& program, FarFigures& figures, std::size_t which)
{
    FarRun run(desktop, program);
    figures.start[which].push_back(kilobytes(run.start()));
    run.ready();
    run.stroke(letterA); // the first key announces a new keyboard
    figures.letter[which].push_back(kilobytes(run.stroke(letterA)));
    figures.shift[which].push_back(kilobytes(run.key(leftShift, true)));
    run.key(leftShift, false);
    const XTraffic on = run.stroke(capsLock);
    const XTraffic off = run.stroke(capsLock);
    figures.lock[which].push_back(kilobytes(on) + kilobytes(off));
    figures.lockAnswers[which].push_back(on.replies + off.replies);
}

} // namespace

FarFigures measureFar(Desktop& desktop, const Programs& programs, int rounds)
{
    const Series none(programs.size());
    FarFigures figures{none, none, none, none, none};
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t i = 0; i < programs.size(); ++i)
            measureOnce(desktop, *programs[i], figures, i);
    }
    return figures;
}
