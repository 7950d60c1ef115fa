#include "x11/qt/ToFocusWindow.h"

#include "x11/X11.h"

#include <QWidget>

void neverTakeFocus(QWidget* window, Display* display)
{
    // The toolkit asks for activation on every click unless it is told not to; the hint alone
    // holds only where a window manager heeds it.
    window->setWindowFlags(
        window->windowFlags() | Qt::WindowDoesNotAcceptFocus | Qt::WindowStaysOnTopHint);
    window->setAttribute(Qt::WA_ShowWithoutActivating);

    XWMHints hints{};
    hints.flags = InputHint;
    hints.input = x11::xFalse;
    XSetWMHints(display, window->winId(), &hints);
}
