#pragma once

#include "switcher/KeyboardComponents.h"
#include "switcher/LoanRecord.h"
#include "switcher/ReplacedKeyboard.h"
#include "switcher/Turn.h"

#include <optional>
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

    // Puts back what the loan of another switcher has replaced, one that could not do so itself.
    // Does nothing unless the turn to have a loan is free.
    void endLeftLoan(const Turn& turn);

    // Ends a loan that was left, as above, and then begins this one. To be called as often as one
    // likes while the turn to have a loan is ours. Loads nothing when the server has these
    // components. Throws std::runtime_error, with the server's keyboard untouched, when it cannot
    // be saved or the components cannot be loaded.
    void begin();

    // Does nothing while no loan is on.
    void end();

    // To be given every event of the connection.
    void handle(const XEvent& event);

private:
    void putBackLeft(const std::vector<unsigned int>& devices);
    void replace(ReplacedKeyboard&& keyboard);
    ComponentAtoms expectedNames() const;
    bool load();
    void forgetIfReplaced();
    void handlePending();

    Display* display;
    KeyboardComponents components;
    LoanRecord record;
    int xkbEvent = -1;
    unsigned int coreDevice = 0;

    bool on = false;
    // Whether the core keyboard was loaded anew since this was last cleared.
    bool wasLoaded = false;
    // Empty while no loan is on.
    std::optional<ReplacedKeyboard> replaced;
};
