#pragma once

#include "x11/Types.h"

#include <QImage>
#include <QPoint>

#include <optional>

// The windows of a program that a test has started, as the user sees them. A program's windows are
// told by _NET_WM_PID (EWMH).

// The largest window in sight that a window manager would manage; none where there is not any.
Window mainWindowOf(Display* display, qint64 processId);

// The same of those that a window manager leaves alone: menus, and the lists of combo boxes.
Window popupOf(Display* display, qint64 processId);

// The part of the screen that a window takes, and where it lies in pixels of the screen.
struct WindowImage {
    QImage image;
    QPoint topLeft;
};

// Nothing for a window that is out of sight or none, and on a screen without 32 bits for a pixel.
std::optional<WindowImage> grabWindow(Display* display, Window window);
