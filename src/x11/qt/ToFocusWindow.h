#pragma once

#include "x11/Types.h"

class QWidget;

// Keeps a window from ever taking the keyboard focus, when it is shown, clicked or dragged, and
// keeps it above the windows that it types into; with or without a window manager. To be called
// before the window is shown. Both are borrowed.
void neverTakeFocus(QWidget* window, Display* display);
