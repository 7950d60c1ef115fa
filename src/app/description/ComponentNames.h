#pragma once

#include "app/description/KeyboardSettings.h"
#include "app/description/ToolRun.h"
#include "x11/Types.h"

#include <QByteArray>
#include <QString>

#include <memory>

// The records here are Xlib's. Each of the six names in one is null or a string in UTF-8 that
// strdup made; the owner of the record owns it and releases it with freeComponentNames.

// The question to setxkbmap which XKB components the settings make, and its answer.
class ComponentQuery {
public:
    // Starts setxkbmap and does not wait for it. An empty setting is not passed on, so that the
    // server's current one stays. The display is borrowed, and only its name is used.
    ComponentQuery(Display* display, const KeyboardSettings& settings);

    // Fills names; the keymap name may stay null. Overwrites names without releasing anything: it
    // must hold no strings.
    // False when setxkbmap is missing, takes longer than 30 seconds or names no complete keyboard;
    // the caller then still has to release what names holds. Blocks until setxkbmap has ended;
    // when that takes longer than a second, a line on standard error says what is waited for, and
    // the windows of this program show a busy pointer. To be called once.
    bool answer(XkbComponentNamesRec* names);

private:
    QString model;
    ToolRun setxkbmap;
};

// Asks and waits for the answer.
bool queryComponentNames(
    XkbComponentNamesRec* names, Display* display, const KeyboardSettings& settings);

// The same with the settings side by side, a signature that is given.
inline bool queryComponentNames( // NOLINT(readability-function-size)
    XkbComponentNamesRec* names, Display* display, const QString& model, const QString& layout,
    const QString& variant, const QString& options)
{
    return queryComponentNames(names, display, {model, layout, variant, options});
}

// Reads the include lines of a keymap as setxkbmap -print writes it (UTF-8) into names. A name that
// is found replaces, and releases, the one that names held before; the others stay.
// False when names then lacks one of the five components other than the keymap.
bool readComponentNames(XkbComponentNamesRec* names, const QByteArray& keymap);

// Releases the strings that are set and sets all six to null. The record is the caller's.
void freeComponentNames(XkbComponentNamesRec* names);

struct FreeComponentNames {
    void operator()(XkbComponentNamesRec* names) const { freeComponentNames(names); }
};

// Releases a record's strings, but not the record, at the end of a scope.
using ComponentNamesGuard = std::unique_ptr<XkbComponentNamesRec, FreeComponentNames>;

// Replaces target's strings, which are released, by copies of source's; null stays null. Does
// nothing when both are the same record.
void copyComponentNames(XkbComponentNamesRec* target, const XkbComponentNamesRec& source);
