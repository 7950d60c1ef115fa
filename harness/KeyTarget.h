#pragma once

#include "x11/Connection.h"

// A plain X client that takes the input focus and prints what reaches it, one flushed line each:
//
//   ready <window id>                                   once, when it has the focus
//   press <keycode> <state> <keysym> <text>             and release, with the same fields
//   focusin <mode> <detail>                             and focusout
//
// Numbers are decimal. The keysym is a name, or 0x and its value when it has none. The text is
// UTF-8, with control characters and the backslash written as \xNN. Held keys repeat as presses
// alone (detectable auto repeat).
class KeyTarget {
public:
    // `geometry` is a standard X geometry, such as "300x200+700+60". The target has no display
    // when isOpen() is false, and is of no use then.
    KeyTarget(const char* displayName, const char* geometry);

    bool isOpen() const { return connection != nullptr; }

    // Prints events until the standard input ends or the server goes away.
    void run();

private:
    void createWindow(const char* geometry);
    void setHints(int x, int y, unsigned int width, unsigned int height);
    void handlePending();
    void handle(XEvent& event);
    void handleXkb(XEvent& event);
    void takeFocus();
    bool isManaged();
    void askManagerForFocus();
    void announceFocus();

    x11::Connection connection;
    Window window = x11::none;
    int xkbEvent = -1;
    bool ready = false;
};
