#pragma once

#include "x11/X11.h"

#include <chrono>
#include <string>

// One holder at a time, among all programs of a display: an X selection that goes to the latest
// who asks, as window managers replace each other (ICCCM 2.8). The former holder finishes its work
// and then destroys its window; until that, or for five seconds at most, the new one waits.
class Turn {
public:
    Turn(Display* display, const std::string& name);

    // Lets go at once.
    ~Turn();
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;

    // Asks for the turn, unless that is done already. While another has taken it, this has no
    // effect until the taker is through with it, or drop() was called.
    void want();

    // Gives the turn up, taken or not.
    void drop();

    bool isMine() const;

    // Another wants the turn: undo what was done under it, then call yield() and carry on.
    bool isTaken() const { return m_isTaken; }
    void yield();

    // Whether a former holder is still at work.
    bool isWaiting() const { return m_former != x11::none; }

    // To be given every event of the connection, and to be called when remainingMs() are over.
    void handle(const XEvent& event);
    void checkDeadline();

    // How long the former holder may take yet, in ms; -1 when there is none.
    int remainingMs() const;

private:
    void take();
    void destroyWindow();
    Window watchedOwner();

    Display* m_display;
    Atom m_selection;
    // Ours while we hold the turn or wait for it.
    Window m_window = x11::none;
    Window m_former = x11::none;
    Window m_taker = x11::none;
    bool m_isTaken = false;
    bool m_isDropped = false;
    std::chrono::steady_clock::time_point m_deadline;
};
