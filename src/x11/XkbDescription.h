#pragma once

#include "x11/Types.h"

#include <memory>

struct FreeXkbDescription {
    void operator()(XkbDescPtr xkb) const;
};

// A keyboard description in this process, with all the parts that were read into it.
using XkbDescription = std::unique_ptr<XkbDescRec, FreeXkbDescription>;

// Whether names, client and server map and a geometry are all there, and every key type, symbol and
// action that a key refers to exists: the server may send anything.
bool isComplete(const XkbDescRec& xkb);

// Has the server compile the named components and returns what it made of them, without loading
// them. The description is complete. Null when the server cannot compile the components, or gives
// less than that. One round trip, in which the server runs its keymap compiler.
XkbDescription compileKeyboard(Display* display, const XkbComponentNamesRec& names);
