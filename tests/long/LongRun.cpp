#include "tests/long/LongRun.h"

#include <QDateTime>

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace {

constexpr int mostInFull = 200;
constexpr qint64 millisecondsPerSecond = 1000;

} // namespace

LongRun::LongRun(QByteArray partName, int argc, char** argv)
    : name(std::move(partName))
    , chosenSeed(static_cast<quint32>(QDateTime::currentSecsSinceEpoch()))
{
    clock.start();
    for (int i = 1; i < argc; i += 2) {
        if (i + 1 < argc && take(argv[i], argv[i + 1]))
            continue;
        std::fprintf(stderr, "Usage: %s [--seconds N] [--seed N] [--part I/N]\n", argv[0]);
        std::exit(2);
    }
}

bool LongRun::take(const QByteArray& option, const QByteArray& value)
{
    bool isNumber = false;
    if (option == "--seconds") {
        milliseconds = value.toLongLong(&isNumber) * millisecondsPerSecond;
        return isNumber && milliseconds >= 0;
    }
    if (option == "--seed") {
        chosenSeed = value.toUInt(&isNumber);
        return isNumber;
    }
    const QByteArrayList numbers = value.split('/');
    if (option != "--part" || numbers.size() != 2)
        return false;
    part = numbers.at(0).toInt() - 1;
    parts = numbers.at(1).toInt();
    return part >= 0 && part < parts;
}

bool LongRun::goesOn() const
{
    return !hasTimeLimit() || clock.elapsed() < milliseconds;
}

void LongRun::broken(const QString& what)
{
    ++brokenCount;
    if (brokenCount <= mostInFull)
        std::printf("%s: BROKEN: %s\n", name.constData(), qUtf8Printable(what));
    std::fflush(stdout);
}

int LongRun::finish(const QStringList& figures) const
{
    std::printf("%s: %s, %lld broken (seed %u, %lld s)\n", name.constData(),
        qUtf8Printable(figures.join(QStringLiteral(", "))), static_cast<long long>(brokenCount),
        chosenSeed, static_cast<long long>(clock.elapsed() / millisecondsPerSecond));
    return brokenCount == 0 ? 0 : 1;
}
