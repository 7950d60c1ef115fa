#include "Turn.h"

#include "ServerGrab.h"

#include <algorithm>

namespace {

constexpr std::chrono::milliseconds patience(5000);

} // namespace

Turn::Turn(Display* display, const std::string& name)
    : m_display(display)
    , m_selection(XInternAtom(display, name.c_str(), x11::xFalse))
{
}

Turn::~Turn()
{
    destroyWindow();
}

void Turn::want()
{
    m_isDropped = false;
    if (m_window == x11::none && !m_isTaken)
        take();
}

// While a former holder is at work the window stays, so that the next one waits for it too.
void Turn::drop()
{
    m_isDropped = true;
    m_isTaken = false;
    m_taker = x11::none;
    if (!isWaiting())
        destroyWindow();
}

bool Turn::isMine() const
{
    return m_window != x11::none && !isWaiting() && !m_isTaken && !m_isDropped;
}

void Turn::yield()
{
    if (isWaiting() || m_window == x11::none)
        return;
    destroyWindow();
    if (m_taker == x11::none)
        m_isTaken = false;
}

void Turn::handle(const XEvent& event)
{
    if (event.type == SelectionClear && event.xselectionclear.selection == m_selection
        && event.xselectionclear.window == m_window && m_window != x11::none) {
        m_isTaken = true;
        m_taker = watchedOwner();
    }
    if (event.type != DestroyNotify)
        return;
    const Window gone = event.xdestroywindow.window;
    if (gone == m_former)
        m_former = x11::none;
    if (gone == m_taker)
        m_taker = x11::none;
    if (m_taker == x11::none && m_window == x11::none)
        m_isTaken = false;
    if (m_isDropped && !isWaiting())
        destroyWindow();
}

void Turn::checkDeadline()
{
    if (!isWaiting() || remainingMs() > 0)
        return;
    m_former = x11::none;
    if (m_isDropped)
        destroyWindow();
}

int Turn::remainingMs() const
{
    if (!isWaiting())
        return -1;
    const auto rest = m_deadline - std::chrono::steady_clock::now();
    const auto whole = std::chrono::ceil<std::chrono::milliseconds>(rest).count();
    return static_cast<int>(std::max<decltype(whole)>(whole, 0));
}

void Turn::take()
{
    // So that of two who ask at once, the second sees the first.
    const ServerGrab grab(m_display);
    m_window = XCreateSimpleWindow(m_display, XDefaultRootWindow(m_display), -1, -1, 1, 1, 0, 0, 0);
    m_former = watchedOwner();
    m_deadline = std::chrono::steady_clock::now() + patience;
    XSetSelectionOwner(m_display, m_selection, m_window, CurrentTime);
}

void Turn::destroyWindow()
{
    if (m_window == x11::none)
        return;
    XDestroyWindow(m_display, m_window);
    XSync(m_display, x11::xFalse);
    m_window = x11::none;
}

// The window that holds the turn, with its end announced to us; none when there is no such window.
Window Turn::watchedOwner()
{
    const Window owner = XGetSelectionOwner(m_display, m_selection);
    if (owner == x11::none)
        return x11::none;
    XSelectInput(m_display, owner, StructureNotifyMask);
    XWindowAttributes attributes;
    return XGetWindowAttributes(m_display, owner, &attributes) ? owner : x11::none;
}
