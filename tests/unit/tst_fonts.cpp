#include "keys/KbdLabelTable.h"
#include "ui/specs/SpecTable.h"

#include <QFont>
#include <QGlyphRun>
#include <QHash>
#include <QRawFont>
#include <QRegularExpression>
#include <QSet>
#include <QTest>
#include <QTextLayout>

#include <algorithm>
#include <memory>

#include <xkbcommon/xkbcommon.h>

namespace {

struct Unref {
    void operator()(xkb_context* context) const { xkb_context_unref(context); }
    void operator()(xkb_keymap* keymap) const { xkb_keymap_unref(keymap); }
};
using Context = std::unique_ptr<xkb_context, Unref>;
using Keymap = std::unique_ptr<xkb_keymap, Unref>;

using Characters = QSet<uint>; // code points

Keymap keymapOf(xkb_context* context, const SpecRow& row)
{
    const QByteArray model = row.model.toLatin1();
    const QByteArray layout = row.layout.toLatin1();
    const QByteArray variant = row.variant.toLatin1();
    const xkb_rule_names names{
        "evdev", model.constData(), layout.constData(), variant.constData(), ""};
    return Keymap(xkb_keymap_new_from_names(context, &names, XKB_KEYMAP_COMPILE_NO_FLAGS));
}

// Every keysym that some key of the group has on some level.
QSet<quint32> keysymsOf(xkb_keymap* keymap, xkb_layout_index_t group)
{
    QSet<quint32> keysyms;
    for (auto key = xkb_keymap_min_keycode(keymap); key <= xkb_keymap_max_keycode(keymap); ++key) {
        const auto levels = xkb_keymap_num_levels_for_key(keymap, key, group);
        for (xkb_level_index_t level = 0; level < levels; ++level) {
            const xkb_keysym_t* symbols = nullptr;
            const int count = xkb_keymap_key_get_syms_by_level(keymap, key, group, level, &symbols);
            std::for_each_n(symbols, count, [&](xkb_keysym_t symbol) { keysyms.insert(symbol); });
        }
    }
    return keysyms;
}

// What a key cap can show of a label: with Caps Lock on, its letter in the other case too.
Characters charactersOf(const QString& label)
{
    Characters characters;
    for (const QString& text : {label, label.toUpper(), label.toLower()})
        for (const uint character : text.toUcs4())
            characters.insert(character);
    return characters;
}

// Controls and format characters such as a line break or a joiner have no picture of their own,
// and what is private or not assigned means something in a special font only.
bool isForDrawing(uint character)
{
    switch (QChar::category(character)) {
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Other_NotAssigned:
    case QChar::Other_PrivateUse:
    case QChar::Other_Surrogate:
        return false;
    default:
        return true;
    }
}

// Glyph 0 is, by the font format, the picture of what is missing. Qt's last resort is a
// font of boxes, which claims to have even what is no character.
bool isMissing(const QGlyphRun& run)
{
    constexpr uint noCharacter = 0xFFFF;
    return run.glyphIndexes().contains(0) || run.rawFont().supportsCharacter(noCharacter);
}

bool isDrawn(const QString& text)
{
    QTextLayout layout(text, QFont());
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    const QList<QGlyphRun> runs = layout.glyphRuns();
    return !runs.isEmpty() && std::none_of(runs.cbegin(), runs.cend(), isMissing);
}

bool isDrawn(uint character)
{
    static QHash<uint, bool> known;
    const auto found = known.constFind(character);
    if (found != known.cend())
        return *found;
    const char32_t codePoint = character;
    return *known.insert(character, isDrawn(QString::fromUcs4(&codePoint, 1)));
}

QString englishName(const SpecRow& row)
{
    return row.name.section(QLatin1String(" ["), 0, 0);
}

QString missingOf(const Characters& characters)
{
    QStringList missing;
    for (const uint character : characters)
        if (isForDrawing(character) && !isDrawn(character))
            missing.append(QStringLiteral("U+%1").arg(character, 4, 16, QLatin1Char('0')));
    missing.sort();
    return missing.join(QLatin1Char(' '));
}

// While it lives, what Qt says about each font that it tries is dropped.
class Silence {
public:
    Silence()
        : previous(
              qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) { }))
    {
    }
    ~Silence() { qInstallMessageHandler(previous); }
    Q_DISABLE_COPY_MOVE(Silence)

private:
    QtMessageHandler previous;
};

} // namespace

// The fonts that the package asks for draw every label of every keyboard of the keyboard table.
class FontsTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();

    // First, because Qt complains of a font once.
    void everyNameIsDrawnWithoutAComplaint_data() { addRows(); }
    void everyNameIsDrawnWithoutAComplaint();
    void everyLabelOfAKeyboardIsDrawn_data() { addRows(); }
    void everyLabelOfAKeyboardIsDrawn();
    void anUnassignedCharacterIsFoundMissing();

private:
    void addRows() const;
    Characters labelCharacters(const SpecRow& row) const;

    QList<SpecRow> rows;
    Context context;
    KbdLabelTable table;
};

void FontsTest::initTestCase()
{
    rows = SpecTable::rowsOf(QStringLiteral(KBD_SPECS_FILE)).value_or(SpecRows()).all();
    QVERIFY(!rows.isEmpty());
    context.reset(xkb_context_new(XKB_CONTEXT_NO_FLAGS));
    QVERIFY(context);
}

void FontsTest::addRows() const
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < rows.size(); ++i)
        QTest::newRow(qUtf8Printable(englishName(rows.at(i)))) << i;
}

// Empty when the keyboard does not compile.
Characters FontsTest::labelCharacters(const SpecRow& row) const
{
    const Keymap keymap = keymapOf(context.get(), row);
    if (!keymap)
        return {};
    const QStringList layouts = row.layout.split(QLatin1Char(','));
    const QStringList variants = row.variant.split(QLatin1Char(','));
    Characters characters;
    for (int group = 0; group < layouts.size(); ++group)
        for (const quint32 keysym : keysymsOf(keymap.get(), xkb_layout_index_t(group)))
            characters |=
                charactersOf(table.label(keysym, layouts.at(group), variants.value(group)));
    return characters;
}

void FontsTest::everyLabelOfAKeyboardIsDrawn()
{
    QFETCH(int, index);
    const Characters characters = labelCharacters(rows.at(index));
    QVERIFY(characters.size() > 60);
    QString missing;
    {
        const Silence silence;
        missing = missingOf(characters);
    }
    QCOMPARE(missing, QString());
}

// The selector draws the names, so none may cost a warning on standard error either.
void FontsTest::everyNameIsDrawnWithoutAComplaint()
{
    QFETCH(int, index);
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
    const QString name = rows.at(index).name;
    QVERIFY2(isDrawn(name), qUtf8Printable(missingOf(charactersOf(name))));
}

void FontsTest::anUnassignedCharacterIsFoundMissing()
{
    QVERIFY(!isDrawn(0xFFEF));
}

QTEST_MAIN(FontsTest)

#include "tst_fonts.moc"
