#pragma once

#include "x11/Connection.h"

#include <QByteArray>
#include <QList>
#include <QRect>
#include <QStringList>

// A connection of the test's own, beside the application's.
using XConnection = x11::Connection;

// Null when the display takes no connection.
XConnection openDisplay(const QByteArray& name);

struct ToolResult {
    // The exit status, or -1 when the tool could not be started, crashed, or took over 30 seconds.
    int status = -1;
    QByteArray output;
    QByteArray errors;
};

// Runs a program with DISPLAY set to `display` and nothing on its standard input.
ToolResult runTool(const QString& program, const QStringList& arguments, const QByteArray& display);

// Loads a keyboard with setxkbmap: {"-layout", "de"}. False when the tool refused.
bool setKeyboard(const QByteArray& display, const QStringList& arguments);

// The server's whole keymap as xkbcomp prints it; empty when that failed.
QByteArray keymapText(const QByteArray& display);

// The keycodes that are down, physically or through XTest, in ascending order.
QList<int> pressedKeys(const QByteArray& display);

// Whether a window manager has announced itself (EWMH, _NET_SUPPORTING_WM_CHECK).
bool isManaged(Display* display);
