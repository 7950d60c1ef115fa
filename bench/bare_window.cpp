// Shows the window that the program is compared with:
//
//   kbd-bare-window WIDTH HEIGHT [--tofocus]
//
// With --tofocus it never takes the focus, and a click on it presses a key in the focused window.

#include "BareWindow.h"

#include <QApplication>

#include <cstdio>

using namespace Qt::StringLiterals;

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    const QSize size(arguments.value(1).toInt(), arguments.value(2).toInt());
    if (size.isEmpty()) {
        std::fprintf(stderr, "Usage: %s WIDTH HEIGHT [--tofocus]\n", argv[0]);
        return EXIT_FAILURE;
    }
    BareWindow window(size, arguments.contains(u"--tofocus"_s));
    window.show();
    return QApplication::exec();
}
