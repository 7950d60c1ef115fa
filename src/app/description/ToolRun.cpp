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
    endNow();
}

std::optional<QByteArray> ToolRun::output(int timeout, const std::function<void()>& whenSlow)
{
    const int patience = std::min(timeout, slowness);
    bool ended = hasEnded(patience);
    if (!ended && timeout > patience && tool.state() != QProcess::NotRunning) {
        whenSlow();
        ended = hasEnded(timeout - patience);
    }
    endNow();
    if (!ended || tool.bytesAvailable() > outputLimit)
        return std::nullopt;
    return tool.readAllStandardOutput();
}

// QProcess::waitForFinished returns false for a process that has ended already.
bool ToolRun::hasEnded(int timeout)
{
    if (tool.error() == QProcess::FailedToStart)
        return false;
    return tool.state() == QProcess::NotRunning || tool.waitForFinished(timeout);
}

// QProcess warns when it is destroyed while its process runs.
void ToolRun::endNow()
{
    if (tool.state() == QProcess::NotRunning)
        return;
    tool.kill();
    tool.waitForFinished();
}

void appendOption(QStringList& arguments, const char* option, const QString& value)
{
    if (!value.isEmpty())
        arguments << QString::fromLatin1(option) << value;
}
