#pragma once

#include "keys/KbdTypes.h"
#include "x11/Types.h"

#include <QAccessible>
#include <QString>

#include <optional>

class KbdKey;
class KeySymbols;

// Tells assistive technology what has changed about a key between the beginning and the end of this
// object. Does nothing while no assistive technology runs, or before the key is on a picture.
class KeyAnnouncement {
public:
    // The key is borrowed and outlives this object.
    explicit KeyAnnouncement(KbdKey* changingKey);
    ~KeyAnnouncement();
    KeyAnnouncement(const KeyAnnouncement&) = delete;
    KeyAnnouncement& operator=(const KeyAnnouncement&) = delete;

private:
    struct Symbol {
        KeySym keysym;
        QString label;

        bool operator==(const Symbol&) const = default;
    };

    // What assistive technology can learn about the key.
    struct Look {
        Symbol symbol;
        Symbol withShift;
        bool pressed;
        bool modifierOn;
    };

    static Symbol symbolOf(const KeySymbols& symbols, ShiftMask_t modifiers);
    static Look lookAt(const KbdKey& key);
    void tellDifference(const Look& was, const Look& is) const;
    void tell(QAccessible::Event change) const;

    KbdKey* key;
    std::optional<Look> before; // empty: nothing is told
};
