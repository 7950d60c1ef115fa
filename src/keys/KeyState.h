#pragma once

#include "keys/KbdTypes.h"
#include "keys/KeyColours.h"

// How a key of the picture stands at the moment, whatever its symbols are.
struct KeyState {
    ShiftMask_t currentModifiers = 0; // held or locked, by any key
    bool pressed = false; // the physical key is down
    bool multipleCharacters = false; // the cap carries several symbols, not the active one alone
    ColourScheme colourScheme = ColourScheme::OnScreen;
    bool heldByUser = false; // a mouse button or a finger is down on the key; changes its look only
};
