#include "harness/KeyTargetProcess.h"

#include <QtTest/qtestsystem.h>

namespace {

constexpr int endLimitMs = 5000;

QString geometryText(const QRect& area)
{
    return QString("%1x%2+%3+%4").arg(area.width()).arg(area.height()).arg(area.x()).arg(area.y());
}

bool isKey(const KeyTargetLine& line)
{
    return line.kind == KeyTargetLine::Kind::Press || line.kind == KeyTargetLine::Kind::Release;
}

} // namespace

KeyTargetProcess::KeyTargetProcess(const QByteArray& display, const QRect& area)
{
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(KBD_KEY_TARGET, {QString::fromLatin1(display), geometryText(area)});
}

KeyTargetProcess::~KeyTargetProcess()
{
    process.closeWriteChannel();
    if (!process.waitForFinished(endLimitMs))
        process.kill();
}

bool KeyTargetProcess::waitForReady(int milliseconds)
{
    const auto isReady = [this] {
        readLines();
        return window != 0;
    };
    return QTest::qWaitFor(isReady, milliseconds);
}

QList<KeyTargetLine> KeyTargetProcess::lines()
{
    readLines();
    return received;
}

QList<KeyTargetLine> KeyTargetProcess::keys()
{
    QList<KeyTargetLine> result = lines();
    result.removeIf([](const KeyTargetLine& line) { return !isKey(line); });
    return result;
}

bool KeyTargetProcess::waitForLines(qsizetype count, int milliseconds)
{
    return QTest::qWaitFor([&] { return lines().size() >= count; }, milliseconds);
}

bool KeyTargetProcess::waitForKeys(qsizetype count, int milliseconds)
{
    return QTest::qWaitFor([&] { return keys().size() >= count; }, milliseconds);
}

void KeyTargetProcess::clear()
{
    readLines();
    received.clear();
}

void KeyTargetProcess::readLines()
{
    process.waitForReadyRead(0);
    while (process.canReadLine()) {
        QByteArray text = process.readLine();
        text.chop(1);
        const auto line = KeyTargetLine::parse(text);
        if (!line)
            continue;
        if (line->kind == KeyTargetLine::Kind::Ready)
            window = line->window;
        else
            received.append(*line);
    }
}
