#pragma once

#include "switcher/ComponentAtoms.h"
#include "switcher/KeySymRows.h"
#include "switcher/KeyboardComponents.h"
#include "switcher/KeymapSnapshot.h"
#include "switcher/LockState.h"

#include <vector>

// Puts a keyboard into the X server for a while. Every loan begins with the keyboard that the
// server has at that moment, whoever made it, and ends with that keyboard, unless another tool has
// loaded one meanwhile: then that one stays. Key symbols that were edited meanwhile (xmodmap) are
// carried over.
class KeyboardLoan {
public:
    KeyboardLoan(Display* xDisplay, KeyboardComponents wanted);

    // Ends the loan.
    ~KeyboardLoan();
    KeyboardLoan(const KeyboardLoan&) = delete;
    KeyboardLoan& operator=(const KeyboardLoan&) = delete;

    // Does nothing while a loan is on, or when the server has these components. Throws
    // std::runtime_error, with the server's keyboard untouched, when it cannot be saved or the
    // components cannot be loaded.
    void begin();

    // Does nothing while no loan is on.
    void end();

    // To be given every event of the connection.
    void handle(const XEvent& event);

private:
    std::vector<KeymapSnapshot> save(const std::vector<unsigned int>& devices) const;
    bool load();
    void putBack(const std::vector<KeymapSnapshot>& saved) const;
    void putBackKeymaps(const std::vector<KeymapSnapshot>& saved) const;
    void handlePending();

    Display* display;
    KeyboardComponents components;
    int xkbEvent = -1;
    unsigned int coreDevice = 0;

    bool on = false;
    // Whether the core keyboard was loaded anew since this was last cleared.
    bool wasLoaded = false;
    // Empty while nothing of ours is loaded.
    std::vector<KeymapSnapshot> savedKeymaps;
    LockState savedLocks;
    ComponentAtoms loadedComponents;
    KeySymRows loadedKeys;
};
