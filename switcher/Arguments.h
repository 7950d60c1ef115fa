#pragma once

#include "switcher/KeyboardComponents.h"
#include "x11/Types.h"

#include <string>
#include <sys/types.h>
#include <vector>

// What the on-screen keyboard tells the switcher that it starts:
//
//   --parent PID --window ID --display NAME
//   [--keycodes N] [--types N] [--compat N] [--symbols N] [--geometry N] [--static]
struct Arguments {
    // The process that the keyboard is switched for, and its window.
    pid_t parent = 0;
    Window window = x11::none;
    std::string display;

    // The keyboard to load; a component without a name stays what it is in the server.
    KeyboardComponents components;

    // The keyboard stays loaded as long as the parent lives, whatever window has the focus.
    bool isStatic = false;

    // Throws std::invalid_argument, with a text for the user, for anything else than the above.
    static Arguments parse(const std::vector<std::string>& words);
};
