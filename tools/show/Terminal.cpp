#include "Terminal.h"

#include <QFile>
#include <QTest>

namespace {

constexpr int lineDeadline = 10000; // milliseconds

// Goes on reading after the line, so that the terminal stays to be seen.
constexpr char readLine[] = "IFS= read -r line && printf '%s\\n' \"$line\" >\"$1.part\""
                            " && mv \"$1.part\" \"$1\"; exec cat >/dev/null";

} // namespace

Terminal::Terminal(const QByteArray& display)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), QString::fromLatin1(display));
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral("xterm"),
        {QStringLiteral("-u8"), QStringLiteral("-fa"), QStringLiteral("Monospace"),
            QStringLiteral("-fs"), QStringLiteral("16"), QStringLiteral("-geometry"),
            QStringLiteral("60x8+250+300"), QStringLiteral("-e"), QStringLiteral("sh"),
            QStringLiteral("-c"), QString::fromLatin1(readLine), QStringLiteral("sh"), lineFile()});
    process.waitForStarted();
}

Terminal::~Terminal()
{
    process.terminate();
    if (!process.waitForFinished(2000))
        process.kill();
    process.waitForFinished();
}

QString Terminal::waitForLine()
{
    if (!QTest::qWaitFor([this] { return QFile::exists(lineFile()); }, lineDeadline))
        return {};
    QFile file(lineFile());
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QString line = QString::fromUtf8(file.readAll());
    line.chop(1);
    return line;
}
