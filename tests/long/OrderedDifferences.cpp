#include "tests/long/OrderedDifferences.h"

#include <QFile>
#include <QRegularExpression>
#include <QStringList>

#include <algorithm>

namespace {

bool fits(const QString& pattern, const QString& text)
{
    return QRegularExpression(QRegularExpression::wildcardToRegularExpression(pattern))
        .match(text)
        .hasMatch();
}

} // namespace

OrderedDifferences OrderedDifferences::read(const QString& path)
{
    OrderedDifferences differences;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return differences;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        const QStringList fields = line.split(QLatin1Char('\t'));
        if (!line.startsWith(QLatin1Char('#')) && fields.size() == 4)
            differences.rows.append({fields.at(0), fields.at(1), fields.at(2), fields.at(3)});
    }
    return differences;
}

bool OrderedDifferences::allow(const QString& kind, const QString& what, const QString& when)
{
    const auto row = std::find_if(rows.cbegin(), rows.cend(), [&](const Row& each) {
        return each.kind == kind && fits(each.what, what) && fits(each.when, when);
    });
    if (row == rows.cend())
        return false;
    ++countByReason[row->reason];
    return true;
}

QStringList OrderedDifferences::counts() const
{
    QStringList counts;
    for (auto each = countByReason.cbegin(); each != countByReason.cend(); ++each)
        counts << QStringLiteral("%1 × %2").arg(each.value()).arg(each.key());
    counts.sort();
    return counts;
}
