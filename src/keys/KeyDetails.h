#pragma once

#include "keys/KbdTypes.h"
#include "x11/Types.h"

#include <QCoreApplication>
#include <QString>

// One symbol of a key, as its details name it.
struct SymbolDetails {
    int group; // from 0
    QString levelName;
    KeySym keysym;
    QString keysymName; // empty when X11 has no name for it
    QString label;
};

// The text that describes a key to someone who looks closer: its X11 identity, its symbols and
// what it does. Built piece by piece in the order of the functions.
class KeyDetails {
    // The texts belong to the key's own.
    Q_DECLARE_TR_FUNCTIONS(KbdKey)

public:
    KeyDetails(const QString& keyName, KeyCode keycode);

    void addSymbol(const SymbolDetails& symbol);

    // Adds nothing for a key that neither sets nor locks modifiers.
    void addModifier(KeyType_t type, ShiftMask_t mask);

    QString text() const { return details; }

private:
    QString details;
};
