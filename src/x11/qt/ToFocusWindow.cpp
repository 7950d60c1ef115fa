#include "x11/qt/ToFocusWindow.h"

#include "x11/X11.h"

#include <QWidget>

void neverTakeFocus(QWidget* window, Display* display)
{
    // Without the flag Qt asks for the focus at every click. The hint below does not keep it from
    // that: only window managers read it.
    window->setWindowFlags(
        window->windowFlags() | Qt::WindowDoesNotAcceptFocus | Qt::WindowStaysOnTopHint);
    window->setAttribute(Qt::WA_ShowWithoutActivating);

    XWMHints hints{};
    hints.flags = InputHint;
    hints.input = x11::xFalse;
    XSetWMHints(display, window->winId(), &hints);
}
