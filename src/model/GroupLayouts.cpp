#include "model/GroupLayouts.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

constexpr int longestVariant = 1000; // characters, cut off from the opening parenthesis on

} // namespace

QStringList groupLayoutsOf(const QString& symbolsName)
{
    QString name = symbolsName;
    if (name.startsWith("pc+"_L1))
        name.remove(0, 3);
    if (name.endsWith(":2"_L1))
        name.chop(2);

    QStringList parts = name.split(u'+');
    for (qsizetype i = parts.size() - 1; i >= 0; --i) {
        if (parts.at(i).startsWith("inet"_L1)) {
            parts.removeAt(i);
            continue;
        }
        const qsizetype variant = parts.at(i).indexOf(u'(');
        if (variant >= 0)
            parts[i].remove(variant, longestVariant);
    }
    return parts;
}

GroupNames groupNamesOf(const QString& symbolsName, int groupCount)
{
    static const QRegularExpression part(u"^([^(:]+)(?:\\(([^)]*)\\))?(?::([1-4]))?$"_s);

    GroupNames names{QStringList(groupCount), QStringList(groupCount)};
    const QStringList parts = symbolsName.split(u'+');
    for (const QString& text : parts) {
        // XKB's rules write "pc", the layouts, "inet", and then the parts that options add.
        if (text == "pc"_L1)
            continue;
        if (text.startsWith("inet"_L1))
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
