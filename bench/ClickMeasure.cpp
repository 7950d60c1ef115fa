#include "ClickMeasure.h"

#include "x11/X11.h"

#include <algorithm>
#include <poll.h>
#include <stdexcept>

namespace {

using namespace std::chrono_literals;
using Clock = ScreenWatch::Clock;

constexpr auto patience = 5s;

// Where in the window there are letter keys: shares of its width and height.
constexpr double lettersX = 0.3;
constexpr double lettersY = 0.5;

// A window with the focus, out of the window manager's reach.
class KeyTargetWindow {
public:
    explicit KeyTargetWindow(Desktop& desktopOfAll)
        : desktop(desktopOfAll)
        , display(desktop.display())
    {
        XSetWindowAttributes attributes{};
        attributes.override_redirect = x11::xTrue;
        attributes.event_mask = KeyPressMask | KeyReleaseMask;
        window = XCreateWindow(display, XDefaultRootWindow(display), 0, 0, 50, 20, 0,
            CopyFromParent, InputOutput, nullptr, CWOverrideRedirect | CWEventMask, &attributes);
        XMapWindow(display, window);
        XSync(display, x11::xFalse);
    }
    ~KeyTargetWindow() { XDestroyWindow(display, window); }
    KeyTargetWindow(const KeyTargetWindow&) = delete;
    KeyTargetWindow& operator=(const KeyTargetWindow&) = delete;

    void takeFocus()
    {
        XSetInputFocus(display, window, RevertToParent, CurrentTime);
        desktop.waitForFocus(window);
    }

    // When an event of this type comes; throws std::runtime_error when none does.
    Clock::time_point waitFor(int type)
    {
        const auto deadline = Clock::now() + patience;
        XEvent event;
        while (!XCheckTypedWindowEvent(display, window, type, &event)) {
            if (Clock::now() > deadline)
                throw std::runtime_error("a click types nothing");
            pollfd server{ConnectionNumber(display), POLLIN, 0};
            poll(&server, 1, 100);
        }
        return Clock::now();
    }

private:
    Desktop& desktop;
    Display* display;
    Window window = x11::none;
};

void moveTo(Display* display, const QRect& area)
{
    XTestFakeMotionEvent(display, -1, area.x() + static_cast<int>(lettersX * area.width()),
        area.y() + static_cast<int>(lettersY * area.height()), CurrentTime);
    XSync(display, x11::xFalse);
}

void sendButton(Display* display, bool down)
{
    XTestFakeButtonEvent(display, Button1, down ? x11::xTrue : x11::xFalse, CurrentTime);
    XFlush(display);
}

double measureClick(Desktop& desktop, KeyTargetWindow& target)
{
    const auto begin = Clock::now();
    sendButton(desktop.display(), true);
    const auto arrived = target.waitFor(x11::keyPress);
    sendButton(desktop.display(), false);
    target.waitFor(x11::keyRelease);
    desktop.screen().waitForQuiet();
    return std::chrono::duration<double, std::milli>(arrived - begin).count();
}

} // namespace

Series measureClicks(Desktop& desktop, const Programs& programs, int rounds, int clicks)
{
    KeyTargetWindow target(desktop);
    Series figures(programs.size());
    const auto measure = [&](Program& program, Samples& samples) {
        program.startUntilPainted();
        target.takeFocus();
        moveTo(desktop.display(), program.area());
        desktop.screen().waitForQuiet();
        measureClick(desktop, target); // the first one is slower
        for (int i = 0; i < clicks; ++i)
            samples.push_back(measureClick(desktop, target));
        program.stop();
    };
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t i = 0; i < programs.size(); ++i)
            measure(*programs[i], figures[i]);
    }
    return figures;
}
