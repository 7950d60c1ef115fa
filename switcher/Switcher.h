#pragma once

#include "switcher/Arguments.h"
#include "switcher/FocusWatch.h"
#include "switcher/KeyboardLoan.h"
#include "switcher/ParentWatch.h"
#include "switcher/StopSignals.h"
#include "switcher/Turn.h"
#include "x11/Connection.h"

// Keeps the parent's keyboard loaded in the X server while the parent's window has the focus, or,
// when it is static, while the parent lives; at all other times the server has the user's own.
//
// Two turns keep switchers apart. A newer one for the same window ends the older. Among all of a
// display only one has its keyboard loaded: the latest that wants to, while the others wait until
// it is through.
class Switcher {
public:
    // Throws std::runtime_error when the display cannot be used. Nothing is switched yet.
    explicit Switcher(const Arguments& arguments);

    // Runs until the parent, its window, or the right to switch for it is gone, or a stop signal
    // has come; the server has its own keyboard again then, and no key that a killed parent has
    // left pressed. Throws std::runtime_error, with the server as it was, when the keyboard cannot
    // be loaded.
    void run();

private:
    void handleEvents();
    bool mustEnd() const;
    bool wantsKeyboard() const;
    void followWish();
    void waitForNews() const;

    StopSignals stopSignals;
    ParentWatch parent;
    x11::Connection display;
    bool isStatic;
    FocusWatch focus;
    Turn windowTurn;
    Turn keyboardTurn;
    KeyboardLoan loan;
};
