#include "harness/KeyTargetLine.h"

#include <QByteArrayList>

#include <algorithm>
#include <array>
#include <iterator>

namespace {

using Kind = KeyTargetLine::Kind;

struct KindWord {
    const char* word;
    Kind kind;
    int fields;
};

constexpr std::array<KindWord, 5> kindWords{{
    {"ready", Kind::Ready, 1},
    {"press", Kind::Press, 4},
    {"release", Kind::Release, 4},
    {"focusin", Kind::FocusIn, 2},
    {"focusout", Kind::FocusOut, 2},
}};

// Cuts off `count` words; what follows them, blanks included, is the last field.
QByteArrayList splitFields(QByteArray line, int count)
{
    QByteArrayList fields;
    for (int i = 1; i < count && line.contains(' '); ++i) {
        const qsizetype blank = line.indexOf(' ');
        fields.append(line.left(blank));
        line.remove(0, blank + 1);
    }
    return fields << line;
}

// The target writes control characters and the backslash as \xNN.
QString unescaped(const QByteArray& text)
{
    QByteArray result;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            result.append(text[i]);
            continue;
        }
        result.append(QByteArray::fromHex(text.mid(i + 2, 2)));
        i += 3;
    }
    return QString::fromUtf8(result);
}

KeyTargetLine fromFields(Kind kind, const QByteArrayList& fields)
{
    KeyTargetLine line;
    line.kind = kind;
    if (kind == Kind::Ready) {
        line.window = fields[1].toULong();
    } else if (kind == Kind::FocusIn || kind == Kind::FocusOut) {
        line.mode = fields[1].toInt();
        line.detail = fields[2].toInt();
    } else {
        line.keycode = fields[1].toInt();
        line.state = fields[2].toUInt();
        line.keysym = QString::fromLatin1(fields[3]);
        line.text = unescaped(fields[4]);
    }
    return line;
}

} // namespace

std::optional<KeyTargetLine> KeyTargetLine::parse(const QByteArray& line)
{
    const QByteArray word = line.left(line.indexOf(' '));
    const auto* const row = std::find_if(kindWords.begin(), kindWords.end(),
        [&](const KindWord& each) { return word == each.word; });
    if (row == kindWords.end())
        return std::nullopt;
    const QByteArrayList fields = splitFields(line, row->fields + 1);
    if (fields.size() != row->fields + 1)
        return std::nullopt;
    return fromFields(row->kind, fields);
}
