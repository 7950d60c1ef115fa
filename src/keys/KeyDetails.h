#pragma once

#include "keys/KbdTypes.h"
#include "x11/Types.h"

#include <QCoreApplication>
#include <QString>

class KeySymbols;
struct LayoutSymbol;

// The text of a key's tool tip: its X11 identity, its symbols and what it does to the modifiers.
// Built piece by piece in the order of the functions.
class KeyDetails {
    // Translators find these texts under the item's name.
    Q_DECLARE_TR_FUNCTIONS(KbdKey)

public:
    // The whole text.
    static QString of(const KeySymbols& symbols);

    KeyDetails(const QString& keyName, KeyCode keycode);

    void addSymbol(const LayoutSymbol& symbol);

    // Adds nothing for a key that neither sets nor locks modifiers.
    void addModifier(KeyType_t type, ShiftMask_t mask);

    QString text() const { return details; }

private:
    QString details;
};
