#pragma once

#include "x11/Types.h"

#include <optional>
#include <string>
#include <vector>

namespace x11 {

// What a window's property holds, of whatever type it is. Both are empty where there is no such
// property or window.
struct Property {
    std::string bytes; // of a property in units of 8 bits: texts, key codes
    std::vector<unsigned long> numbers; // of one in units of 32 bits: CARDINAL, WINDOW, ATOM
};

// One round trip each, and one for the name where this connection has not used it before. Four
// megabytes are read at most.
Property property(Display* display, Window window, Atom name);
Property property(Display* display, Window window, const char* name);

// Deletes the property with the same request.
Property takeProperty(Display* display, Window window, Atom name);

// The first of a property's numbers; nothing where it holds none.
std::optional<unsigned long> numberProperty(Display* display, Window window, Atom name);
std::optional<unsigned long> numberProperty(Display* display, Window window, const char* name);

} // namespace x11
