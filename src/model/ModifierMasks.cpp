#include "model/ModifierMasks.h"

#include "x11/X11.h"

QMap<QString, ShiftMask_t> modifierMasksOf(const XkbDescRec& xkb, XDisplayClass& display)
{
    QMap<QString, ShiftMask_t> masks{
        {QStringLiteral("Shift"), x11::shiftMask},
        {QStringLiteral("CapsLock"), x11::lockMask},
        {QStringLiteral("Control"), x11::controlMask},
    };
    for (int i = 0; i < XkbNumVirtualMods; ++i) {
        const Atom name = xkb.names->vmods[i];
        const ShiftMask_t mask = xkb.server->vmods[i];
        if (name != x11::none && mask != 0)
            masks.insert(display.atomName(name), mask);
    }
    return masks;
}

ShiftMask_t lockModifiersOf(const QMap<QString, ShiftMask_t>& masks)
{
    return static_cast<ShiftMask_t>(masks.value(QStringLiteral("CapsLock"))
        | masks.value(QStringLiteral("NumLock")) | masks.value(QStringLiteral("ScrollLock")));
}
