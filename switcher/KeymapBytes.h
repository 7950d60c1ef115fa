#pragma once

#include "switcher/Bytes.h"
#include "x11/XkbDescription.h"

// A keymap as bytes and back: all that KeymapSnapshot gives to a keyboard, but not which one that
// is, and of the geometry the name alone. Names are the server's atoms, so the bytes mean something
// to this server only, as long as it runs.
void putKeymap(ByteWriter& bytes, const XkbDescRec& keymap);

// Never null. Throws std::out_of_range or std::invalid_argument for bytes that are no keymap. What
// they say of one may still make no sense: the server checks what it is given.
XkbDescription takeKeymap(ByteReader& bytes);
