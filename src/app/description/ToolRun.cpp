#include "app/description/ToolRun.h"

#include <QProcess>

namespace {
constexpr qint64 outputLimit = 1024 * 1024;
}

std::optional<QByteArray> toolOutput(
    const QString& program, const QStringList& arguments, int timeout)
{
    QProcess tool;
    tool.setStandardErrorFile(QProcess::nullDevice());
    QObject::connect(&tool, &QProcess::readyReadStandardOutput, &tool, [&tool] {
        if (tool.bytesAvailable() > outputLimit)
            tool.kill();
    });
    tool.start(program, arguments, QIODevice::ReadWrite);
    tool.closeWriteChannel();

    const bool ended = tool.waitForFinished(timeout);
    if (tool.state() != QProcess::NotRunning) {
        tool.kill();
        tool.waitForFinished();
    }
    if (!ended || tool.bytesAvailable() > outputLimit)
        return std::nullopt;
    return tool.readAllStandardOutput();
}
