#pragma once

#include "switcher/StartTime.h"
#include "x11/Types.h"

#include <chrono>
#include <optional>
#include <string>

// One holder at a time, among all programs of a display: an X selection that goes to the latest
// who asks, as window managers replace each other (ICCCM 2.8). The former holder finishes its work
// and then destroys its window; until that, or for five seconds at most, the new one waits.
class Turn {
public:
    Turn(Display* xDisplay, const std::string& name);

    // A turn for the program that was started last, even if it asks first: the processor may run it
    // before the others. `start` is this program's.
    Turn(Display* xDisplay, const std::string& name, const StartTime& start);

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

    // No switcher has the turn or waits for it.
    bool isFree() const;

    // Another wants the turn: undo what was done under it, then call yield() and carry on.
    bool isTaken() const { return taken; }
    void yield();

    // Whether a former holder is still at work.
    bool isWaiting() const { return former != x11::none; }

    // To be given every event of the connection, and to be called when remainingMs() are over.
    void handle(const XEvent& event);
    void checkDeadline();

    // How long the former holder may take yet, in ms; -1 when there is none.
    int remainingMs() const;

private:
    void take();
    bool belongsToNewer(Window owner) const;
    void tellStart() const;
    void destroyWindow();
    Window watchedOwner();

    Display* display;
    Atom selection;
    std::optional<StartTime> ownStart;
    // Ours while we hold the turn or wait for it.
    Window window = x11::none;
    Window former = x11::none;
    Window taker = x11::none;
    bool taken = false;
    bool dropped = false;
    std::chrono::steady_clock::time_point deadline;
};
