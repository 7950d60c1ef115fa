#include "app/FatalMessages.h"

#include <QGuiApplication>
#include <QList>
#include <QString>
#include <QtGlobal>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <unistd.h>
#include <xcb/xcb.h>

using namespace Qt::StringLiterals;

namespace {

QList<QString>& heldMessages()
{
    // Qt may send messages until the very end of the process: this is never destroyed.
    // NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables): no object to keep it in
    static auto* const held = new QList<QString>;
    return *held;
}

// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables): handlers carry no data
bool holding = true;

// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables): handlers carry no data
const char* displayOption = nullptr; // of the command line

// The X server that Qt tries to connect to.
const char* displayAskedFor()
{
    const char* fromEnvironment = std::getenv("DISPLAY");
    return displayOption ? displayOption : fromEnvironment ? fromEnvironment : "";
}

// Whether there is such a server, and such a screen of it.
bool serverAnswers()
{
    int screen = 0;
    xcb_connection_t* connection = xcb_connect(displayAskedFor(), &screen);
    const bool answers = xcb_connection_has_error(connection) == 0
        && screen < xcb_setup_roots_length(xcb_get_setup(connection));
    xcb_disconnect(connection);
    return answers;
}

[[noreturn]] void endProcess(const QString& message)
{
    const QString platform = qEnvironmentVariable("QT_QPA_PLATFORM");
    const bool starting = QGuiApplication::platformName().isEmpty();
    if (starting && platform.startsWith("xcb"_L1) && !serverAnswers()) {
        std::fprintf(
            stderr, "orvix-kbd-display: cannot connect to the X server '%s'\n", displayAskedFor());
    } else {
        std::fprintf(
            stderr, "orvix-kbd-display: %s\n", message.simplified().toLocal8Bit().constData());
    }
    // Qt may be half built: its destructors must not run.
    _exit(EXIT_FAILURE);
}

void handleMessage(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (type == QtFatalMsg)
        endProcess(message);
    const QString line = qFormatLogMessage(type, context, message);
    if (holding)
        heldMessages() << line;
    else
        std::fprintf(stderr, "%s\n", line.toLocal8Bit().constData());
}

} // namespace

void endOnFatalMessages(int argc, char** argv)
{
    for (int i = 1; i + 1 < argc; ++i) {
        if (std::strcmp(argv[i], "-display") == 0 || std::strcmp(argv[i], "--display") == 0)
            displayOption = argv[i + 1];
    }
    qInstallMessageHandler(handleMessage);
}

void releaseHeldMessages()
{
    holding = false;
    for (const QString& line : std::as_const(heldMessages()))
        std::fprintf(stderr, "%s\n", line.toLocal8Bit().constData());
    heldMessages().clear();
}
