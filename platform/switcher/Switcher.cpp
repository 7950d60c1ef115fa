#include "Switcher.h"

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
    : m_parent(arguments.parent)
    , m_display(openDisplay(arguments.display))
    , m_isStatic(arguments.isStatic)
    , m_focus(m_display.get(), arguments.window)
    , m_windowTurn(m_display.get(), windowTurnName(arguments.window))
    , m_keyboardTurn(m_display.get(), "_ORVIX_KBD_SWITCHER_KEYBOARD")
    , m_loan(m_display.get(), arguments.components)
{
}

void Switcher::run()
{
    m_windowTurn.want();
    while (!mustEnd()) {
        handleEvents();
        followWish();
        waitForNews();
    }
    m_loan.end();
}

void Switcher::handleEvents()
{
    while (XPending(m_display.get()) > 0) {
        XEvent event;
        XNextEvent(m_display.get(), &event);
        m_loan.handle(event);
        m_focus.handle(event);
        m_windowTurn.handle(event);
        m_keyboardTurn.handle(event);
    }
    m_windowTurn.checkDeadline();
    m_keyboardTurn.checkDeadline();
}

// A static switcher does not look at the window: it lives as long as the parent.
bool Switcher::mustEnd() const
{
    const bool isReplaced = m_windowTurn.isTaken() && !m_windowTurn.isWaiting();
    return isReplaced || m_stopSignals.haveCome() || m_parent.isGone()
        || (!m_isStatic && m_focus.isWindowGone());
}

bool Switcher::wantsKeyboard() const
{
    return m_windowTurn.isMine() && (m_isStatic || m_focus.isInside());
}

void Switcher::followWish()
{
    if (!wantsKeyboard()) {
        m_loan.end();
        m_keyboardTurn.drop();
        return;
    }
    if (m_keyboardTurn.isTaken()) {
        m_loan.end();
        m_keyboardTurn.yield();
    }
    m_keyboardTurn.want();
    if (m_keyboardTurn.isMine())
        m_loan.begin();
}

void Switcher::waitForNews() const
{
    // Events may have come in with replies; those the connection's descriptor does not tell of.
    if (mustEnd() || XPending(m_display.get()) > 0)
        return;
    std::array<pollfd, 3> sources{{
        {ConnectionNumber(m_display.get()), POLLIN, 0},
        {m_stopSignals.descriptor(), POLLIN, 0},
        {m_parent.descriptor(), POLLIN, 0},
    }};
    const int turnMs = sooner(m_windowTurn.remainingMs(), m_keyboardTurn.remainingMs());
    poll(sources.data(), sources.size(), sooner(m_parent.intervalMs(), turnMs));
}
