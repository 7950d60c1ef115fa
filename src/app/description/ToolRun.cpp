#include "app/description/ToolRun.h"

#include <algorithm>

namespace {

constexpr qint64 outputLimit = 1048576; // bytes
constexpr int slowness = 1000; // milliseconds

} // namespace

ToolRun::ToolRun(const QString& program, const QStringList& arguments)
{
    tool.setStandardErrorFile(QProcess::nullDevice());
    QObject::connect(&tool, &QProcess::readyReadStandardOutput, &tool, [this] {
        if (tool.bytesAvailable() > outputLimit)
            tool.kill();
    });
    tool.start(program, arguments, QIODevice::ReadWrite);
    tool.closeWriteChannel();
}

ToolRun::~ToolRun()
{
    endNow(tool);
}

std::optional<QByteArray> ToolRun::output(int timeout, const std::function<void()>& whenSlow)
{
    const int patience = std::min(timeout, slowness);
    bool ended = hasEnded(tool, patience);
    if (!ended && timeout > patience && tool.state() != QProcess::NotRunning) {
        whenSlow();
        ended = hasEnded(tool, timeout - patience);
    }
    endNow(tool);
    if (!ended || tool.bytesAvailable() > outputLimit)
        return std::nullopt;
    return tool.readAllStandardOutput();
}

void endNow(QProcess& process)
{
    if (process.state() == QProcess::NotRunning)
        return;
    process.kill();
    process.waitForFinished();
}

// QProcess::waitForFinished returns false for a process that has ended already.
bool hasEnded(QProcess& process, int timeout)
{
    if (process.error() == QProcess::FailedToStart)
        return false;
    return process.state() == QProcess::NotRunning || process.waitForFinished(timeout);
}

void appendOption(QStringList& arguments, const char* option, const QString& value)
{
    if (!value.isEmpty())
        arguments << QString::fromLatin1(option) << value;
}
