#include "switcher/Turn.h"

#include "x11/ServerGrab.h"
#include "x11/X11.h"

#include <algorithm>

namespace {

constexpr std::chrono::milliseconds patience(5000);

} // namespace

Turn::Turn(Display* xDisplay, const std::string& name)
    : display(xDisplay)
    , selection(XInternAtom(display, name.c_str(), x11::xFalse))
{
}

Turn::Turn(Display* xDisplay, const std::string& name, const StartTime& start)
    : Turn(xDisplay, name)
{
    ownStart = start;
}

Turn::~Turn()
{
    destroyWindow();
}

void Turn::want()
{
    dropped = false;
    if (window == x11::none && !taken)
        take();
}

// While a former holder is at work the window stays, so that the next one waits for it too.
void Turn::drop()
{
    dropped = true;
    taken = false;
    taker = x11::none;
    if (!isWaiting())
        destroyWindow();
}

bool Turn::isMine() const
{
    return window != x11::none && !isWaiting() && !taken && !dropped;
}

bool Turn::isFree() const
{
    return XGetSelectionOwner(display, selection) == x11::none;
}

void Turn::yield()
{
    if (isWaiting() || window == x11::none)
        return;
    destroyWindow();
    if (taker == x11::none)
        taken = false;
}

void Turn::handle(const XEvent& event)
{
    if (event.type == SelectionClear && event.xselectionclear.selection == selection
        && event.xselectionclear.window == window && window != x11::none) {
        taken = true;
        taker = watchedOwner();
    }
    if (event.type != DestroyNotify)
        return;
    const Window gone = event.xdestroywindow.window;
    if (gone == former)
        former = x11::none;
    if (gone == taker)
        taker = x11::none;
    if (taker == x11::none && window == x11::none)
        taken = false;
    if (dropped && !isWaiting())
        destroyWindow();
}

void Turn::checkDeadline()
{
    if (!isWaiting() || remainingMs() > 0)
        return;
    former = x11::none;
    if (dropped)
        destroyWindow();
}

int Turn::remainingMs() const
{
    if (!isWaiting())
        return -1;
    const auto rest = deadline - std::chrono::steady_clock::now();
    const auto whole = std::chrono::ceil<std::chrono::milliseconds>(rest).count();
    return static_cast<int>(std::max<decltype(whole)>(whole, 0));
}

void Turn::take()
{
    // Without a grab two switchers could both see no owner.
    const ServerGrab grab(display);
    const Window owner = watchedOwner();
    if (belongsToNewer(owner)) {
        taken = true;
        taker = owner;
        return;
    }
    former = owner;
    window = XCreateSimpleWindow(display, XDefaultRootWindow(display), -1, -1, 1, 1, 0, 0, 0);
    tellStart();
    deadline = std::chrono::steady_clock::now() + patience;
    XSetSelectionOwner(display, selection, window, CurrentTime);
}

bool Turn::belongsToNewer(Window owner) const
{
    if (!ownStart || owner == x11::none)
        return false;
    const auto start = StartTime::toldOn(display, owner);
    return start && start->isAfter(*ownStart);
}

void Turn::tellStart() const
{
    if (ownStart)
        ownStart->tellOn(display, window);
}

void Turn::destroyWindow()
{
    if (window == x11::none)
        return;
    XDestroyWindow(display, window);
    XSync(display, x11::xFalse);
    window = x11::none;
}

// The window that holds the turn, with its end announced to us; none when there is no such window.
Window Turn::watchedOwner()
{
    const Window owner = XGetSelectionOwner(display, selection);
    if (owner == x11::none)
        return x11::none;
    XSelectInput(display, owner, StructureNotifyMask);
    XWindowAttributes attributes;
    return XGetWindowAttributes(display, owner, &attributes) ? owner : x11::none;
}
