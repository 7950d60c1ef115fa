#include "ManyKeys.h"

#include <QFile>

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView keycodesFile("keycodes/evdev");
constexpr QLatin1StringView geometryFile("geometry/pc-arvane");
constexpr char keycodesHead[] = "xkb_keycodes \"evdev\" {\n";

// The 255 that the protocol's byte counts, less those that the keymap has already: the keymap
// compiler does not look whether they fit.
constexpr int aliasCount = 175;

constexpr int side = 18; // of a key, in millimetres
constexpr int pitch = 19;
constexpr double wide = 3; // of the picture: its width by its height

// Four characters, as XKB names keys.
QByteArray nameOf(int key)
{
    return '<' + QByteArray::number(key).rightJustified(4, '0') + '>';
}

// Shift, and then the keys of the letters, row by row and over again.
QByteArray usualKey(int number)
{
    if (number == 0)
        return "<LFSH>";
    struct Row {
        const char* name;
        int keys;
    };
    constexpr std::array<Row, 3> rows{{{"AD", 10}, {"AC", 9}, {"AB", 7}}};
    constexpr int letters = 26;
    int key = (number - 1) % letters;
    auto row = rows.begin();
    for (; key >= row->keys; ++row)
        key -= row->keys;
    return QByteArray("<") + row->name + QByteArray::number(key + 1).rightJustified(2, '0') + '>';
}

// Among the keys of the picture those with symbols are spread evenly.
QByteArray aliases(int keyCount)
{
    const int count = std::min(keyCount, aliasCount);
    QByteArray text;
    for (int i = 0; i < count; ++i)
        text += "    alias " + nameOf(i * (keyCount / count)) + " = " + usualKey(i) + ";\n";
    return text;
}

QByteArray rowText(int first, int end, int top)
{
    QByteArrayList names;
    for (int key = first; key < end; ++key)
        names << nameOf(key);
    return "        row { top= " + QByteArray::number(top) + "; keys { " + names.join(", ")
        + " }; };\n";
}

QByteArray geometry(int keyCount)
{
    const int columns = static_cast<int>(std::ceil(std::sqrt(keyCount * wide)));
    const int rows = (keyCount + columns - 1) / columns;
    const QByteArray size = QByteArray::number(side);
    QByteArray text = "default xkb_geometry \"pc105\" {\n    width= "
        + QByteArray::number(columns * pitch) + "; height= " + QByteArray::number(rows * pitch)
        + ";\n    shape.cornerRadius= 1;\n    shape \"KEY\" { { [" + size + ", " + size
        + "] } };\n    key.shape= \"KEY\"; key.gap= " + QByteArray::number(pitch - side)
        + ";\n    section \"keys\" {\n";
    for (int row = 0; row < rows; ++row)
        text += rowText(row * columns, std::min(keyCount, (row + 1) * columns), row * pitch);
    return text + "    };\n};\n";
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("cannot read " + path.toStdString());
    return file.readAll();
}

} // namespace

ManyKeys::ManyKeys(int keyCount)
    : data(QStringLiteral(KBD_BENCH_XKB_DIR))
{
    QByteArray keycodes = contentOf(data.path() + u'/' + keycodesFile);
    const qsizetype head = keycodes.indexOf(keycodesHead);
    if (head < 0)
        throw std::runtime_error("the key codes have no map for evdev");
    keycodes.insert(head + qsizetype(sizeof keycodesHead) - 1, aliases(keyCount));
    data.replace(keycodesFile, keycodes);
    data.replace(geometryFile, geometry(keyCount));
}
