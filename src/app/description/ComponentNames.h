#pragma once

#include "x11/X11.h"

#include <QString>

#include <memory>

// Fills names (whatever it held before is not read) with the XKB component names that setxkbmap
// computes from the given settings; an empty setting is not passed on, so that the server's
// current one stays. The strings are made with strdup and belong to the caller, who releases them
// with freeComponentNames, also after a failure. The keymap name may stay null.
// False when setxkbmap is missing, takes longer than 30 seconds or names no complete keyboard.
// Blocks until setxkbmap has ended.
bool queryComponentNames(XkbComponentNamesRec* names, Display* display, const QString& model,
    const QString& layout, const QString& variant, const QString& options);

// Reads the include lines of a keymap as setxkbmap -print writes it (UTF-8) into names.
// False when one of the five components other than the keymap is not in it.
bool readComponentNames(XkbComponentNamesRec* names, const QByteArray& keymap);

// Releases the strings that are set and sets all six to null. The record is the caller's.
void freeComponentNames(XkbComponentNamesRec* names);

struct FreeComponentNames {
    void operator()(XkbComponentNamesRec* names) const { freeComponentNames(names); }
};

// Releases the strings of a record that somebody else owns at the end of a scope.
using ComponentNamesGuard = std::unique_ptr<XkbComponentNamesRec, FreeComponentNames>;

// Gives target copies of its own of source's strings; whatever target held is released.
void copyComponentNames(XkbComponentNamesRec* target, const XkbComponentNamesRec& source);
