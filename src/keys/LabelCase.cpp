#include "keys/LabelCase.h"

#include "x11/Types.h"

QString withCaseOf(const QString& label, ShiftMask_t modifiers)
{
    if (!(modifiers & x11::lockMask) || label.size() != 1)
        return label;
    const QString changed = (modifiers & x11::shiftMask) ? label.toLower() : label.toUpper();
    // The capital of a sharp s would be two characters: the cap keeps the letter that the key
    // types.
    return changed.size() == 1 ? changed : label;
}
