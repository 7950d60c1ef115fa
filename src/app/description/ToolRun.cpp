#include "app/description/ToolRun.h"

#include <QProcess>

namespace {
constexpr qint64 outputLimit = 1048576; // bytes
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

void appendOption(QStringList& arguments, const char* option, const QString& value)
{
    if (!value.isEmpty())
        arguments << QString::fromLatin1(option) << value;
}
