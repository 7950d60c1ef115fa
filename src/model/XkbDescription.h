#pragma once

#include "x11/Types.h"

#include <memory>

struct FreeXkbDescription {
    void operator()(XkbDescRec* xkb) const;
};

// A complete keyboard description: names, client and server map and a geometry are all there, and
// every key type, symbol and action that a key refers to exists.
using XkbDescription = std::unique_ptr<XkbDescRec, FreeXkbDescription>;

// Has the server compile the named components and returns what it made of them, without loading
// them. Null when the server cannot, or when its answer is not complete in the sense above.
// One round trip, in which the server runs its keymap compiler.
XkbDescription compileKeyboard(Display* display, const XkbComponentNamesRec& names);
