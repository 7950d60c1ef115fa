#pragma once

#include "switcher/ComponentAtoms.h"
#include "switcher/KeySymRows.h"
#include "switcher/KeymapSnapshot.h"
#include "switcher/LockState.h"

#include <vector>

// What a loan replaces, and all that is needed to put it back: the user's keyboard.
class ReplacedKeyboard {
public:
    // Of these devices, the core keyboard first, as they are now. Throws std::runtime_error when
    // one of them cannot be read.
    static ReplacedKeyboard of(Display* display, const std::vector<unsigned int>& devices);

    // What put() has written. Throws std::out_of_range or std::invalid_argument for anything else.
    static ReplacedKeyboard takeFrom(ByteReader& bytes);
    void put(ByteWriter& bytes) const;

    // By what a device is recognised that has the loan: expect() before it is loaded, by component
    // names alone; learn() after that, by the names and keysyms that the core keyboard has then.
    void expect(const ComponentAtoms& names) { loan = names; }
    void learn(Display* display);

    // Gives every keyboard that still has the loan its own again, with the keys that were edited
    // on it meanwhile (xmodmap), and puts the locks back. Every other of the `present` devices was
    // given its keyboard by someone else, and keeps it. To be called under a grab.
    void putBack(Display* display, const std::vector<unsigned int>& present) const;

private:
    // The keys of one keyboard that were edited while it had the loan.
    struct Edits {
        unsigned int device;
        KeySymRows rows;
        std::vector<int> keycodes;
    };

    std::vector<const KeymapSnapshot*> onLoan(Display* display) const;
    std::vector<Edits> editsOn(
        Display* display, const std::vector<const KeymapSnapshot*>& lent) const;

    // One for each keyboard of the user's, the core keyboard first.
    std::vector<KeymapSnapshot> keymaps;
    LockState locks;
    ComponentAtoms loan;
    KeySymRows loanKeys; // empty before it is loaded
};
