// What setxkbmap prints: the names are complete, or the keymap is refused; and a second reading of
// the same text changes nothing.

#include "app/description/ComponentNames.h"
#include "x11/X11.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray keymap(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    XkbComponentNamesRec names{};
    const ComponentNamesGuard guard(&names);
    const bool complete = readComponentNames(&names, keymap);
    if (complete
        && !(names.keycodes && names.types && names.compat && names.symbols && names.geometry))
        __builtin_trap();

    XkbComponentNamesRec copy{};
    const ComponentNamesGuard copyGuard(&copy);
    copyComponentNames(&copy, names);
    if (readComponentNames(&copy, keymap) != complete || qstrcmp(copy.symbols, names.symbols) != 0)
        __builtin_trap();
    return 0;
}
