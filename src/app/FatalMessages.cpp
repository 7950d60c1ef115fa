#include "app/FatalMessages.h"

#include <QGuiApplication>
#include <QList>
#include <QString>
#include <QtGlobal>

#include <cstdio>
#include <cstdlib>
#include <unistd.h>
#include <xcb/xcb.h>

namespace {

QList<QString>& heldMessages()
{
    // The toolkit has its say until the very end of the process: this is never destroyed.
    static auto* const held = new QList<QString>;
    return *held;
}

bool holding = true;

bool serverAnswers()
{
    xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
    const bool answers = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return answers;
}

[[noreturn]] void endProcess(const QString& message)
{
    const QString platform = qEnvironmentVariable("QT_QPA_PLATFORM");
    const bool starting = QGuiApplication::platformName().isEmpty();
    if (starting && platform.startsWith(QLatin1StringView("xcb")) && !serverAnswers()) {
        const char* display = std::getenv("DISPLAY");
        std::fprintf(stderr, "orvix-kbd-display: cannot connect to the X server '%s'\n",
            display ? display : "");
    } else {
        std::fprintf(
            stderr, "orvix-kbd-display: %s\n", message.simplified().toLocal8Bit().constData());
    }
    // The toolkit may be half built: its destructors must not run.
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

void endOnFatalMessages()
{
    qInstallMessageHandler(handleMessage);
}

void releaseHeldMessages()
{
    holding = false;
    for (const QString& line : std::as_const(heldMessages()))
        std::fprintf(stderr, "%s\n", line.toLocal8Bit().constData());
    heldMessages().clear();
}
