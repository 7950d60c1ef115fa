#include "ui/specs/SpecTable.h"

#include "ui/specs/KbdConstants.h"

#include <QFile>
#include <QFileInfo>
#include <QStringConverter>

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t fewestFields = 4;
constexpr std::size_t mostFields = 5;

constexpr QByteArrayView utf8Mark("\xEF\xBB\xBF");

bool isAscii(char byte)
{
    return static_cast<unsigned char>(byte) < 0x80;
}

// In UTF-8, without a byte order mark, and with a line feed alone at the ends of lines.
QByteArray plainText(QByteArray text)
{
    const auto encoding = QStringConverter::encodingForData(text);
    if (encoding && *encoding != QStringConverter::Utf8)
        text = QString(QStringDecoder(*encoding)(text)).toUtf8();
    if (text.startsWith(utf8Mark))
        text.remove(0, utf8Mark.size());
    if (text.contains('\r'))
        text.removeIf([](char byte) { return byte == '\r'; });
    return text;
}

// A byte order mark counts as space: files that were joined have some in the middle.
bool isSpaceOrMark(QChar each)
{
    return each.isSpace() || each == QChar(QChar::ByteOrderMark);
}

// In bytes.
qsizetype spaceBefore(QByteArrayView line)
{
    const auto* plain = std::find_if_not(line.begin(), line.end(),
        [](char byte) { return isAscii(byte) && QChar::isSpace(static_cast<char32_t>(byte)); });
    const qsizetype skipped = plain - line.begin();
    if (plain == line.end() || isAscii(*plain))
        return skipped;
    // Unicode has spaces beyond ASCII.
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    const QString rest = decoder(line.sliced(skipped));
    const auto* text = std::find_if_not(rest.begin(), rest.end(), isSpaceOrMark);
    return skipped + rest.first(text - rest.begin()).toUtf8().size();
}

QByteArrayView lineAt(const QByteArray& text, qsizetype start)
{
    const qsizetype end = text.indexOf('\n', start);
    return QByteArrayView(text).sliced(start, (end < 0 ? text.size() : end) - start);
}

// Where it is, or the end of the line.
qsizetype tabFrom(QByteArrayView line, qsizetype start)
{
    const char* const from = line.data() + start;
    const void* const tab = std::memchr(from, '\t', static_cast<std::size_t>(line.size() - start));
    return tab ? static_cast<const char*>(tab) - line.data() : line.size();
}

// From the model on to the end of the layout, with the tab between them; nothing for a line that
// describes no keyboard.
std::optional<QByteArrayView> modelAndLayout(QByteArrayView line)
{
    if (line.isEmpty() || line.front() == '#')
        return std::nullopt;
    std::array<qsizetype, fewestFields> starts{};
    for (std::size_t field = 1; field < fewestFields; ++field) {
        const qsizetype tab = tabFrom(line, starts[field - 1]);
        if (tab == line.size())
            return std::nullopt;
        starts[field] = tab + 1;
    }
    const qsizetype model = starts[fewestFields - 2];
    return line.sliced(model, tabFrom(line, starts.back()) - model);
}

quint32 hashOf(QByteArrayView text)
{
    return static_cast<quint32>(qHash(text));
}

} // namespace

SpecRows::SpecRows(QByteArray tableText)
    : text(plainText(std::move(tableText)))
{
    for (qsizetype start = 0; start < text.size();) {
        const QByteArrayView whole = lineAt(text, start);
        const qsizetype space = spaceBefore(whole);
        if (const auto keyboard = modelAndLayout(whole.sliced(space))) {
            starts.append(start + space);
            marks.append(hashOf(*keyboard));
        }
        start += whole.size() + 1;
    }
}

quint32 SpecRows::markOf(QByteArrayView model, QByteArrayView layout)
{
    return hashOf(model.toByteArray().append('\t').append(layout));
}

SpecFields SpecRows::fieldsAt(qsizetype row) const
{
    const QByteArrayView line = lineAt(text, starts.at(row));
    std::array<QByteArrayView, mostFields> fields;
    qsizetype start = 0;
    for (QByteArrayView& field : fields) {
        const qsizetype tab = line.indexOf('\t', start);
        field = line.sliced(start, (tab < 0 ? line.size() : tab) - start);
        if (tab < 0)
            break;
        start = tab + 1;
    }
    const auto& [name, icon, model, layout, variant] = fields;
    return {name, icon, model, layout, variant};
}

SpecRow SpecRows::at(qsizetype row) const
{
    const SpecFields fields = fieldsAt(row);
    return {QString::fromUtf8(fields.name), QString::fromUtf8(fields.icon),
        QString::fromUtf8(fields.model), QString::fromUtf8(fields.layout),
        QString::fromUtf8(fields.variant)};
}

QList<SpecRow> SpecRows::all() const
{
    QList<SpecRow> rows;
    rows.reserve(size());
    for (qsizetype row = 0; row < size(); ++row)
        rows.append(at(row));
    return rows;
}

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

std::optional<SpecRows> SpecTable::rowsOf(const QString& path)
{
    // Opening a pipe would wait for a writer.
    QFile file(path);
    if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return SpecRows(file.readAll());
}
