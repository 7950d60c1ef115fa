#pragma once

#include "x11/Types.h"

#include <QString>
#include <QStringList>

// Starts the platform's keyboard switcher, which makes the keyboard shown the one that types.
class KbdSwitcher {
public:
    // The display is borrowed and outlives this object; mainWindow is the program's X window. names
    // is read during the call only and may be null: then the switcher is told no names until
    // setComponentNames. isStatic: the keyboard stays in force whatever window has the focus.
    // Nothing is started yet.
    KbdSwitcher(Display* xDisplay, Window mainWindow, XkbComponentNamesRec* names, bool isStatic);

    // Takes copies of the five names (UTF-8) that the switcher is told from now on; one that is
    // null or empty is left out of its command line. The record is not null and stays the caller's.
    void setComponentNames(XkbComponentNamesRec* names);

    // Starts one more switcher, detached, and returns its process id; -1 when the program is not
    // there or cannot be started. Earlier ones are left alone: the platform's switcher sees to it
    // itself that the latest one counts. Does not block.
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
