#pragma once

#include "x11/X11.h"

#include <QString>
#include <QStringList>

// Starts the platform's keyboard switcher, which makes the keyboard shown the one that types.
class KbdSwitcher {
public:
    // The display is borrowed; window is the program's main window. names may be null and is only
    // read. isStatic: the keyboard stays in force whatever window has the focus.
    KbdSwitcher(Display* xDisplay, Window mainWindow, XkbComponentNamesRec* names, bool isStatic);

    // Takes copies of the five names that the switcher is told; a null one is empty.
    void setComponentNames(XkbComponentNamesRec* names);

    // Starts one more switcher, detached, and returns its process id; -1 when the program is not
    // there. Earlier ones are left alone.
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
    int processId = -1;
};
