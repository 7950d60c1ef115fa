#include "model/GroupLayouts.h"

#include <QRegularExpression>

namespace {

constexpr int longestVariant = 1000; // characters, cut off from the opening parenthesis on

} // namespace

QStringList groupLayoutsOf(const QString& symbolsName)
{
    QString name = symbolsName;
    if (name.startsWith(QLatin1StringView("pc+")))
        name.remove(0, 3);
    if (name.endsWith(QLatin1StringView(":2")))
        name.chop(2);

    QStringList parts = name.split(QLatin1Char('+'));
    for (qsizetype i = parts.size() - 1; i >= 0; --i) {
        if (parts.at(i).startsWith(QLatin1StringView("inet"))) {
            parts.removeAt(i);
            continue;
        }
        const qsizetype variant = parts.at(i).indexOf(QLatin1Char('('));
        if (variant >= 0)
            parts[i].remove(variant, longestVariant);
    }
    return parts;
}

GroupNames groupNamesOf(const QString& symbolsName, int groupCount)
{
    static const QRegularExpression part(
        QStringLiteral("^([^(:]+)(?:\\(([^)]*)\\))?(?::([1-4]))?$"));

    GroupNames names{QStringList(groupCount), QStringList(groupCount)};
    const QStringList parts = symbolsName.split(QLatin1Char('+'));
    for (const QString& text : parts) {
        // XKB's rules write "pc", the layouts, "inet", and then the parts that options add.
        if (text == QLatin1StringView("pc"))
            continue;
        if (text.startsWith(QLatin1StringView("inet")))
            break;
        const QRegularExpressionMatch match = part.match(text);
        const int group = match.captured(3).isEmpty() ? 0 : match.captured(3).toInt() - 1;
        if (!match.hasMatch() || group >= groupCount || !names.layouts.at(group).isEmpty())
            continue;
        names.layouts[group] = match.captured(1);
        names.variants[group] = match.captured(2);
    }
    return names;
}
