#include "Terminal.h"

#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int lineDeadline = 10000; // milliseconds

// Goes on reading after the line, so that the terminal stays to be seen.
constexpr char readLine[] = "IFS= read -r line && printf '%s\\n' \"$line\" >\"$1.part\""
                            " && mv \"$1.part\" \"$1\"; exec cat >/dev/null";

} // namespace

Terminal::Terminal(const QByteArray& display)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"DISPLAY"_s, QString::fromLatin1(display));
    environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
    process.setProcessEnvironment(environment);
    process.start(u"xterm"_s,
        {u"-u8"_s, u"-fa"_s, u"Monospace"_s, u"-fs"_s, u"16"_s, u"-geometry"_s, u"60x8+250+300"_s,
            u"-e"_s, u"sh"_s, u"-c"_s, QString::fromLatin1(readLine), u"sh"_s, lineFile()});
    process.waitForStarted();
}

Terminal::~Terminal()
{
    process.terminate();
    if (!process.waitForFinished(2000))
        process.kill();
    process.waitForFinished();
}

QString Terminal::lineFile() const
{
    return directory.filePath(u"line"_s);
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
