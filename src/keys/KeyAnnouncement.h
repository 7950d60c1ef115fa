#pragma once

#include "keys/KbdTypes.h"
#include "x11/Types.h"

#include <QAccessible>
#include <QString>

#include <optional>

class KbdKey;

// Tells assistive technology what changes about a key while this object lives. Where there is none,
// and for a key that is on no picture yet, it looks at nothing.
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

    struct Look {
        Symbol symbol;
        Symbol withShift;
        bool pressed;
        bool modifierOn;
    };

    static Symbol symbolOf(const KbdKey& key, ShiftMask_t modifiers);
    static Look lookAt(const KbdKey& key);
    void tellDifference(const Look& was, const Look& is) const;
    void tell(QAccessible::Event change) const;

    KbdKey* key;
    std::optional<Look> before; // empty where nobody is told
};
