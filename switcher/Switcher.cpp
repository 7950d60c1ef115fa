#include "switcher/Switcher.h"

#include "x11/HeldKeys.h"
#include "x11/X11.h"

#include <algorithm>
#include <array>
#include <poll.h>
#include <stdexcept>
#include <unistd.h>

namespace {

// Windows of other programs vanish when they like: every request that can fail is checked where it
// is made.
int ignoreError(Display*, XErrorEvent*)
{
    return 0;
}

// Without a server there is no keyboard to put back, and Xlib cannot go on.
int endWithoutServer(Display*)
{
    _exit(0);
}

Display* openDisplay(const std::string& name)
{
    XSetErrorHandler(ignoreError);
    XSetIOErrorHandler(endWithoutServer);
    Display* const display = XOpenDisplay(name.c_str());
    if (!display)
        throw std::runtime_error("cannot open display '" + name + "'");
    return display;
}

std::string windowTurnName(Window window)
{
    return "_ORVIX_KBD_SWITCHER_" + std::to_string(window);
}

// Poll's -1 means for ever.
int sooner(int oneMs, int otherMs)
{
    if (oneMs < 0 || otherMs < 0)
        return std::max(oneMs, otherMs);
    return std::min(oneMs, otherMs);
}

} // namespace

Switcher::Switcher(const Arguments& arguments)
    : parent(arguments.parent)
    , display(openDisplay(arguments.display))
    , isStatic(arguments.isStatic)
    , focus(display.get(), arguments.window)
    , windowTurn(display.get(), windowTurnName(arguments.window), StartTime::ofThisProcess())
    , keyboardTurn(display.get(), "_ORVIX_KBD_SWITCHER_KEYBOARD")
    , loan(display.get(), arguments.components)
{
}

void Switcher::run()
{
    x11::releaseKeysOfTheGone(display.get());
    loan.endLeftLoan(keyboardTurn);
    windowTurn.want();
    while (!mustEnd()) {
        handleEvents();
        followWish();
        waitForNews();
    }
    loan.end();
    if (parent.isGone() || focus.isWindowGone())
        x11::releaseKeysOf(display.get(), parent.process());
}

void Switcher::handleEvents()
{
    while (XPending(display.get()) > 0) {
        XEvent event;
        XNextEvent(display.get(), &event);
        loan.handle(event);
        focus.handle(event);
        windowTurn.handle(event);
        keyboardTurn.handle(event);
    }
    windowTurn.checkDeadline();
    keyboardTurn.checkDeadline();
}

// A static switcher does not look at the window: it lives as long as the parent.
bool Switcher::mustEnd() const
{
    const bool isReplaced = windowTurn.isTaken() && !windowTurn.isWaiting();
    return isReplaced || stopSignals.haveCome() || parent.isGone()
        || (!isStatic && focus.isWindowGone());
}

bool Switcher::wantsKeyboard() const
{
    return windowTurn.isMine() && (isStatic || focus.isInside());
}

void Switcher::followWish()
{
    if (!wantsKeyboard()) {
        loan.end();
        keyboardTurn.drop();
        return;
    }
    if (keyboardTurn.isTaken()) {
        loan.end();
        keyboardTurn.yield();
    }
    keyboardTurn.want();
    if (keyboardTurn.isMine())
        loan.begin();
}

void Switcher::waitForNews() const
{
    // Events may have come in with replies; those the connection's descriptor does not tell of.
    if (mustEnd() || XPending(display.get()) > 0)
        return;
    std::array<pollfd, 3> sources{{
        {ConnectionNumber(display.get()), POLLIN, 0},
        {stopSignals.descriptor(), POLLIN, 0},
        {parent.descriptor(), POLLIN, 0},
    }};
    const int turnMs = sooner(windowTurn.remainingMs(), keyboardTurn.remainingMs());
    poll(sources.data(), sources.size(), sooner(parent.intervalMs(), turnMs));
}
