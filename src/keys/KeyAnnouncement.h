#pragma once

#include "keys/KbdKey.h"

#include <QAccessible>

#include <optional>

// Tells assistive technology what changes about a key while this object lives. Where there is none,
// and for a key that is on no picture yet, it looks at nothing.
class KeyAnnouncement {
public:
    // The key is borrowed.
    explicit KeyAnnouncement(KbdKey* changingKey)
        : key(changingKey)
    {
        if (QAccessible::isActive() && key->scene())
            before = lookAt(*key);
    }

    ~KeyAnnouncement()
    {
        if (before)
            tellDifference(*before, lookAt(*key));
    }

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

    static Symbol symbolOf(const KbdKey& key, ShiftMask_t modifiers)
    {
        return {key.keysymWith(modifiers), key.labelWith(modifiers)};
    }

    static Look lookAt(const KbdKey& key)
    {
        const ShiftMask_t now = key.shownModifiers();
        return {symbolOf(key, now), symbolOf(key, now | x11::shiftMask), key.isPressed(),
            key.isModifierOn()};
    }

    void tellDifference(const Look& was, const Look& is) const
    {
        if (was.symbol != is.symbol)
            tell(QAccessible::NameChanged);
        if (was.symbol != is.symbol || was.withShift != is.withShift)
            tell(QAccessible::DescriptionChanged);

        QAccessible::State changed;
        changed.pressed = was.pressed != is.pressed;
        changed.checked = was.modifierOn != is.modifierOn;
        if (!changed.pressed && !changed.checked)
            return;
        QAccessibleStateChangeEvent event(key, changed);
        QAccessible::updateAccessibility(&event);
    }

    void tell(QAccessible::Event change) const
    {
        QAccessibleEvent event(key, change);
        QAccessible::updateAccessibility(&event);
    }

    KbdKey* key;
    std::optional<Look> before; // empty where nobody is told
};
