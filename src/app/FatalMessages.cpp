#include "app/FatalMessages.h"

#include "x11/ServerProbe.h"

#include <QGuiApplication>
#include <QList>
#include <QString>
#include <QtGlobal>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <unistd.h>

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

// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables): handlers carry no data
const char* platformOption = nullptr; // of the command line

// Whether Qt was to speak X11, as far as it has been told.
bool isForX11()
{
    const QString platform = platformOption ? QString::fromLocal8Bit(platformOption)
                                            : qEnvironmentVariable("QT_QPA_PLATFORM");
    return platform.startsWith("xcb"_L1);
}

// The X server that Qt tries to connect to.
const char* displayAskedFor()
{
    const char* fromEnvironment = std::getenv("DISPLAY");
    return displayOption ? displayOption : fromEnvironment ? fromEnvironment : "";
}

[[noreturn]] void endProcess(const QString& message)
{
    const bool starting = QGuiApplication::platformName().isEmpty();
    if (starting && isForX11() && !x11::serverAnswers(displayAskedFor())) {
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

// Qt takes its options with one dash and with two.
bool isOption(const char* argument, const char* option)
{
    return std::strcmp(argument, option) == 0
        || (argument[0] == '-' && std::strcmp(argument + 1, option) == 0);
}

} // namespace

void endOnFatalMessages(int argc, char** argv)
{
    for (int i = 1; i + 1 < argc; ++i) {
        if (isOption(argv[i], "-display"))
            displayOption = argv[i + 1];
        else if (isOption(argv[i], "-platform"))
            platformOption = argv[i + 1];
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
