#include "keys/KeyDetails.h"

#include "keys/KeySymbols.h"
#include "x11/X11.h"

using namespace Qt::StringLiterals;

QString KeyDetails::of(const KeySymbols& symbols)
{
    KeyDetails details(symbols.name(), symbols.x11Keycode());
    for (const LayoutSymbol& symbol : symbols.layoutSymbols())
        details.addSymbol(symbol);
    details.addModifier(symbols.keyType(), symbols.keyModifiers());
    return details.text();
}

KeyDetails::KeyDetails(const QString& keyName, KeyCode keycode)
    : details(tr("Details about this key:"))
{
    const QString code = QString::number(keycode, 16).rightJustified(2, u'0');
    details += u'\n' + tr("X11 Identity:  Name='%1', Code=0x%2").arg(keyName, code) + u'\n'
        + tr("Key symbol table:");
}

void KeyDetails::addSymbol(const LayoutSymbol& symbol)
{
    // Label and names may hold a "%1" of their own, so one call of arg replaces them all.
    const QString layout = QString::number(symbol.layout);
    const QString keysym = QString::number(symbol.keysym, 16).rightJustified(2);
    details += tr("\n   symbol[%1,%2]=0x%3=%4=%5")
                   .arg(layout, symbol.levelName, keysym, symbol.keysymName, symbol.label);
}

void KeyDetails::addModifier(KeyType_t type, ShiftMask_t mask)
{
    const uint modifiers = mask;
    if (type == XkbSA_SetMods)
        details += tr("\nModifier %1=0x%2").arg(modifiers).arg(modifiers, 2, 16);
    else if (type == XkbSA_LockMods)
        details += tr("\nLock Modifier %1=0x%2").arg(modifiers).arg(modifiers, 2, 16);
}
