#pragma once

#include "x11/Types.h"

#include <QByteArray>
#include <QString>

#include <memory>

// The records here are Xlib's. Each of the six names in one is null or a string that strdup made,
// in UTF-8; it belongs to whoever holds the record, and goes with freeComponentNames.

// Fills names with the XKB component names that setxkbmap computes from the given settings; an
// empty setting is not passed on, so that the server's current one stays. What names held before is
// overwritten unread: it must hold no strings. The keymap name may stay null. The display is
// borrowed, and only its name is used.
// False when setxkbmap is missing, takes longer than 30 seconds or names no complete keyboard;
// names then holds what was found, which is the caller's to release all the same. Blocks until
// setxkbmap has ended.
bool queryComponentNames(XkbComponentNamesRec* names, Display* display, const QString& model,
    const QString& layout, const QString& variant, const QString& options);

// Reads the include lines of a keymap as setxkbmap -print writes it (UTF-8) into names. A name that
// is found replaces the string that stands in its place, which is released; the others stay.
// False when one of the five components other than the keymap is not named after that.
bool readComponentNames(XkbComponentNamesRec* names, const QByteArray& keymap);

// Releases the strings that are set and sets all six to null. The record is the caller's.
void freeComponentNames(XkbComponentNamesRec* names);

struct FreeComponentNames {
    void operator()(XkbComponentNamesRec* names) const { freeComponentNames(names); }
};

// Releases the strings of a record that somebody else owns at the end of a scope.
using ComponentNamesGuard = std::unique_ptr<XkbComponentNamesRec, FreeComponentNames>;

// Gives target copies of its own of source's strings, null for null; whatever target held is
// released. Nothing when both are one record.
void copyComponentNames(XkbComponentNamesRec* target, const XkbComponentNamesRec& source);
