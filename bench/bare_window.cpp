// Shows the window that the program is compared with:
//
//   kbd-bare-window WIDTH HEIGHT [--floor] [--tofocus]
//
// With --floor it first does what no keyboard program can avoid, once: asks setxkbmap for the
// keyboard's components and has the server compile them; its rectangles are then rounded and have
// letters. With --tofocus it never takes the focus, and a click on it presses a key in the focused
// window.

#include "BareWindow.h"

#include "app/description/ComponentNames.h"
#include "x11/X11.h"
#include "x11/XkbDescription.h"
#include "x11/qt/ToolkitDisplay.h"

#include <QApplication>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

// Null when there is no such keyboard.
XkbDescription loadKeyboard(Display* display)
{
    XkbComponentNamesRec names{};
    const ComponentNamesGuard guard(&names);
    if (!queryComponentNames(&names, display, KeyboardSettings()))
        return nullptr;
    return compileKeyboard(display, names);
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    const QSize size(arguments.value(1).toInt(), arguments.value(2).toInt());
    if (size.isEmpty()) {
        std::fprintf(stderr, "Usage: %s WIDTH HEIGHT [--floor] [--tofocus]\n", argv[0]);
        return EXIT_FAILURE;
    }
    const bool isFloor = arguments.contains(u"--floor"_s);
    const XkbDescription keyboard = isFloor ? loadKeyboard(toolkitDisplay()) : nullptr;
    if (isFloor && !keyboard) {
        std::fprintf(stderr, "%s: no keyboard\n", argv[0]);
        return EXIT_FAILURE;
    }
    BareWindow window(size, isFloor ? BareWindow::Look::Lettered : BareWindow::Look::Plain,
        arguments.contains(u"--tofocus"_s));
    window.show();
    return QApplication::exec();
}
