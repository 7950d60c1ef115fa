#pragma once

#include "switcher/ReplacedKeyboard.h"

#include <optional>

// What the present loan has replaced, in a property of the first root window: it outlives a
// switcher that is killed, so that the next one can put it back. It is written and removed together
// with the loan, under the same grab.
class LoanRecord {
public:
    explicit LoanRecord(Display* xDisplay);

    // Writes it down as ours, in place of what is there.
    void write(const ReplacedKeyboard& keyboard);

    // Whether what is there was written by this object.
    bool isOurs() const;

    // What is there, whoever wrote it; nothing when there is no record, or one of another version
    // or machine, or one that makes no sense.
    std::optional<ReplacedKeyboard> read() const;

    void remove();

private:
    struct Header;

    std::vector<unsigned char> bytes() const;

    Display* display;
    Atom property;
    unsigned long mark; // an id of this connection: no other that is open has it
};
