#include "harness/PrivateServer.h"

#include "harness/UserEnvironment.h"

#include <QDeadlineTimer>

#include <fcntl.h>
#include <poll.h>
#include <stdexcept>
#include <unistd.h>

namespace {

constexpr int startLimitMs = 10000;
constexpr char socketFolder[] = "/tmp/.X11-unix/X";

// A server's own arguments after those that all have.
QByteArrayList fullCommand(const QByteArrayList& ownCommand, int displayDescriptor)
{
    QByteArrayList command{ownCommand.first(), "-displayfd", QByteArray::number(displayDescriptor),
        "-nolisten", "tcp", "-noreset"};
    if (const QByteArray xkbDirectory = KBD_TEST_XKB_DIR; !xkbDirectory.isEmpty())
        command << "-xkbdir" << xkbDirectory;
    return command + ownCommand.mid(1);
}

QByteArrayList virtualScreenCommand(const QStringList& extraArguments)
{
    QByteArrayList command{"Xvfb", "-screen", "0", "1280x1024x24"};
    for (const QString& argument : extraArguments)
        command.append(argument.toLocal8Bit());
    return command;
}

// The line that the server writes once it listens; empty when it ended or the time is over.
QByteArray readDisplayNumber(int descriptor)
{
    const QDeadlineTimer deadline(startLimitMs);
    QByteArray line;
    while (!line.endsWith('\n')) {
        pollfd readable{descriptor, POLLIN, 0};
        char byte = 0;
        if (poll(&readable, 1, static_cast<int>(deadline.remainingTime())) != 1
            || read(descriptor, &byte, 1) != 1)
            return {};
        line.append(byte);
    }
    return line.trimmed();
}

} // namespace

PrivateServer::PrivateServer(const QStringList& extraArguments)
    : PrivateServer(virtualScreenCommand(extraArguments), currentEnvironment())
{
}

PrivateServer::PrivateServer(const QByteArrayList& command, const QByteArrayList& environment)
{
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe for the display number");
    server = std::make_unique<ChildProcess>(fullCommand(command, ends[1]), environment, ends[1]);
    close(ends[1]);
    const QByteArray number = readDisplayNumber(ends[0]);
    close(ends[0]);
    if (number.isEmpty())
        throw std::runtime_error(
            (command.first() + " gave no display: " + server->output()).toStdString());
    displayName = ':' + number;
}

PrivateServer::~PrivateServer()
{
    if (!server->stop())
        unlink((socketFolder + displayName.mid(1)).constData());
}

void PrivateServer::useForThisProcess() const
{
    for (const QByteArray& variable : userVariables())
        qunsetenv(variable.constData());
    qputenv("DISPLAY", displayName);
    qputenv("QT_QPA_PLATFORM", "xcb");
    // Without a session bus Qt's accessibility would start one, which outlives the test.
    if (qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS"))
        qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
}
