#include "app/FatalMessages.h"
#include "app/KbdApp.h"

#include <cstdlib>

namespace {

// The program speaks X11: in a session that offers another system too, it goes through the X
// server of that session, unless the user has chosen.
void preferX11()
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "xcb");
}

} // namespace

int main(int argc, char** argv)
{
    preferX11();
    endOnFatalMessages(argc, argv);
    try {
        new KbdApp(argc, argv); // lives until the process ends
    } catch (KbdApp::ExceptionType exception) {
        // Without the keyboard extension Qt has warned of the same: its messages are dropped.
        if (exception != KbdApp::XkbInitError)
            releaseHeldMessages();
        if (KbdApp::report(exception))
            std::exit(EXIT_FAILURE);
    }
    return QApplication::exec();
}
