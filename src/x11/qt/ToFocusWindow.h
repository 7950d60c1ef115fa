#pragma once

#include "x11/Types.h"

class QWidget;

// Makes a window that has not been shown yet one that never takes the keyboard focus, whatever is
// done with it, and that stays above the windows that it types into. With or without a window
// manager.
void neverTakeFocus(QWidget* window, Display* display);
