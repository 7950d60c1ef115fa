#pragma once

#include "x11/Types.h"

#include <optional>
#include <string>
#include <vector>

// Questions to the server that several rooms ask, one round trip each unless it says otherwise.
namespace x11 {

// The window that has the input focus; none when no window has it, or the one under the pointer.
Window focusWindow(Display* display);

// Whether a window manager looks after the default screen (ICCCM 4.3). Two round trips.
bool hasWindowManager(Display* display);

// The keyboard extension as the server numbers it.
struct XkbExtension {
    int opcode; // of its requests
    int event; // the event code that all its events have
};

// Opens the extension for this connection, if that was not done yet. Nothing when the server has
// none, or one of another version than Xlib's.
std::optional<XkbExtension> queryXkb(Display* display);

// Whether the server has the extension XTest. Only the first call for a display waits.
bool hasXTest(Display* display);

// Whether it is the X server of a Wayland session (Xwayland) and says so by its extension XWAYLAND.
// Only the first call for a display waits.
bool hasXwayland(Display* display);

// Asks for the input extension and does not wait: the first who needs it finds the answer there.
void askForXInput(Display* display);

// Lets the X library ask what it asks before it sends the first key through XTest, if it has not
// yet: up to five round trips, which a click must not wait for.
void prepareXTest(Display* display);

// The atom's name; empty for no atom and for one that the server does not know.
std::string atomName(Display* display, Atom atom);

// The names of several atoms, in their order, in one round trip. None of them may be x11::none.
std::vector<std::string> atomNames(Display* display, std::vector<Atom> atoms);

} // namespace x11
