#pragma once

#include "x11/Types.h"

#include <QString>
#include <QStringList>

// Starts the platform's keyboard switcher, which makes the keyboard shown the one that types.
class KbdSwitcher {
public:
    // The display is borrowed and outlives this object; mainWindow is the program's X window. names
    // is read during the call only and may be null: the switcher then gets no names until
    // setComponentNames. isStatic: the keyboard stays in force whatever window has the focus.
    // Nothing is started yet.
    KbdSwitcher(Display* xDisplay, Window mainWindow, XkbComponentNamesRec* names, bool isStatic);

    // Copies five of the names (UTF-8) for the switcher's command line, which leaves out those that
    // are null or empty. names is not null; the caller keeps the record.
    void setComponentNames(XkbComponentNamesRec* names);

    // Starts one more switcher, detached, and returns its process id; -1 when the program is not
    // there or cannot be started. Earlier ones are left alone: the platform's switcher itself makes
    // sure that the latest one counts. Does not block.
    int launch();

    // The command line that launch uses.
    QStringList arguments() const;

private:
    Display* display;
    Window window;
    QString keycodes;
    QString types;
    QString compat;
    QString symbols;
    QString geometry;
    bool staticFlag;
    int processId = -1; // of the last one started; -1: none
};
