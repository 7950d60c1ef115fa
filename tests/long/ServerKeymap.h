#pragma once

#include "keys/KbdTypes.h"
#include "x11/XkbDescription.h"

#include <QList>
#include <QString>

#include <memory>

struct xcb_connection_t;
struct xkb_context;
struct xkb_keymap;
struct xkb_state;

// The keymap that the server uses at the moment, as libxkbcommon reads it from the server: a second
// opinion on what a key gives. What libxkbcommon does not tell (the names of key types) is Xlib's.
class ServerKeymap {
public:
    // One reading of the server's core keyboard; both are borrowed and the same connection.
    ServerKeymap(Display* xDisplay, xcb_connection_t* connection);
    ~ServerKeymap();
    Q_DISABLE_COPY(ServerKeymap)

    // False when one of the libraries could not read it; nothing below may be called then.
    bool isValid() const { return state && xkb; }

    int groupCount() const;

    // Every set of modifiers that selects a level of a key type that a key has, and none, Shift,
    // Lock, and both.
    QList<ShiftMask_t> modifierSets() const;

    // The keysym that the key gives in the locked group (from 0) under the modifiers; 0 for none.
    quint32 keysym(KeyCode keycode, int group, ShiftMask_t modifiers) const;

    // The group itself where the key has it, else the last one that the key has; 0 for none.
    int keptGroup(KeyCode keycode, int group) const;

    // Of the group that the key has for this one: the name of its key type, and those of the
    // modifiers that the type takes notice of. Empty for a key without symbols.
    QString typeName(KeyCode keycode, int group) const;
    ShiftMask_t typeModifiers(KeyCode keycode, int group) const;

private:
    const XkbKeyTypeRec* typeOf(KeyCode keycode, int group) const;

    struct Free {
        void operator()(xkb_context* unused) const;
        void operator()(xkb_keymap* unused) const;
        void operator()(xkb_state* unused) const;
    };
    Display* display;
    std::unique_ptr<xkb_context, Free> context;
    std::unique_ptr<xkb_keymap, Free> keymap;
    std::unique_ptr<xkb_state, Free> state;
    XkbDescription xkb;
};

// The character that the keysym stands for; none for a control character, a space and a keysym that
// stands for no character.
char32_t characterOf(quint32 keysym);

QString keysymName(quint32 keysym);
