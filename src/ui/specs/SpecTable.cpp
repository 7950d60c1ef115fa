#include "ui/specs/SpecTable.h"

#include "ui/specs/KbdConstants.h"

#include <QFile>
#include <QFileInfo>
#include <QTextStream>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype fewestFields = 4;

std::optional<SpecRow> rowOf(const QString& line)
{
    if (line.isEmpty() || line.startsWith(u'#'))
        return std::nullopt;
    const QStringList fields = line.split(u'\t');
    if (fields.size() < fewestFields)
        return std::nullopt;
    return SpecRow{fields.at(0), fields.at(1), fields.at(2), fields.at(3), fields.value(4)};
}

} // namespace

SpecTable SpecTable::find()
{
    const std::pair<Place, QString> candidates[] = {
        {Place::Installed, KbdConstants::specTablePath},
        {Place::WorkingDirectory, u"./kbdSpecs.tab"_s},
        {Place::SourceTree, u"../src/kbdSpecs.tab"_s},
    };
    for (const auto& [place, path] : candidates) {
        if (QFileInfo(path).isReadable())
            return {place, rowsOf(path)};
    }
    return {};
}

std::optional<QList<SpecRow>> SpecTable::rowsOf(const QString& path)
{
    // Opening a pipe would wait for a writer.
    QFile file(path);
    if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly | QIODevice::Text))
        return std::nullopt;

    QTextStream text(&file);
    text.setEncoding(QStringConverter::Utf8);
    QList<SpecRow> rows;
    while (!text.atEnd()) {
        text.skipWhiteSpace();
        if (const std::optional<SpecRow> row = rowOf(text.readLine()))
            rows.append(*row);
    }
    return rows;
}
