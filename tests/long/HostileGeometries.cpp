#include "tests/long/HostileGeometries.h"

#include <QDir>
#include <QFile>

#include <stdexcept>

namespace {

constexpr int manyKeys = 3000;
constexpr int manyShapes = 1000;
constexpr int manyPoints = 200;
constexpr int manyDoodads = 2000;
constexpr int longText = 20000;
constexpr int longColour = 90; // the server takes no longer one

constexpr char rulesFile[] = "rules/evdev";
constexpr char modelRules[] = "! model\t\t=\tgeometry\n"; // where that file has them

// All are in millimetres: 3276.7 is the most that the protocol can say.
constexpr char size[] = "width= 400; height= 150;\n";
constexpr char usualShape[] =
    "shape \"NORM\" { cornerRadius= 1, { [18,18] }, { [2,1], [16,16] } };\n";
constexpr char keys[] = "section \"Keys\" { top= 10; left= 10; key.shape= \"NORM\";\n"
                        "  row { keys { <AC01>, <AC02>, <LFSH>, <CAPS>, <RTRN>, <SPCE> }; }; };\n";

QByteArray usual()
{
    return QByteArray(size) + usualShape;
}

QByteArray numbered(const char* text, int number)
{
    return QByteArray(text).replace('#', QByteArray::number(number));
}

// The text once for each number, which stands in place of "#".
QByteArray repeated(const char* text, int count)
{
    QByteArray all;
    for (int number = 0; number < count; ++number)
        all += numbered(text, number);
    return all;
}

// Of four characters, the most that a key's name has.
QByteArray keyNames(int count)
{
    QByteArrayList names;
    for (int number = 0; number < count; ++number)
        names << "<" + QByteArray::number(number + 1000) + ">";
    return names.join(',');
}

QByteArray oddSections()
{
    return usual()
        + "section \"NoRows\" { top= 20; left= 20; angle= 45; };\n"
          "section \"NoKeys\" { top= 3000; left= -3000; row { top= 10; }; };\n"
        + keys;
}

QByteArray doodadsOfEverySize()
{
    QByteArray text = usual();
    for (const char* length : {"0", "0.1", "-1", "-3276.8", "3276.7", "6000"}) {
        text += QByteArray("shape \"S%\" { { [%,%] } };\n"
                           "solid \"A%\" { top= %; left= %; shape= \"S%\"; color= \"red\"; };\n"
                           "outline \"O%\" { top= %; left= %; shape= \"S%\"; color= \"red\"; };\n"
                           "indicator \"I%\" { top= %; left= %; shape= \"S%\"; };\n"
                           "logo \"L%\" { top= %; left= %; shape= \"S%\"; name= \"X-Flag\"; };\n")
                    .replace('%', length);
        // A text that would not be as wide as nothing is refused.
        text += QByteArray("text \"T%\" { top= %; left= %; width= #; height= #; text= \"T\"; };\n")
                    .replace('%', length)
                    .replace('#', QByteArray(length).replace('-', ""));
    }
    return text + keys;
}

QByteArray keysOfEverySize()
{
    QByteArray text = size;
    const QByteArrayList lengths{"0", "0.1", "-1", "-3000", "3276.7", "1000", "6000"};
    QByteArrayList row;
    for (const QByteArray& length : lengths) {
        text += QByteArray("shape \"S#\" { cornerRadius= #, { [#,18] }, { [2,1], [#,16] } };\n")
                    .replace('#', length);
        row << QByteArray("{ <AC0%>, shape= \"S#\", # }")
                   .replace('#', length)
                   .replace('%', QByteArray::number(row.size() + 1));
    }
    return text + "section \"Keys\" { row { keys { " + row.join(',') + " }; }; };\n";
}

QByteArray farAway()
{
    return QByteArray("width= 6000; height= 6000;\n") + usualShape
        + "section \"Far\" { top= 6000; left= 6000; priority= 255; angle= 359.9;\n"
          "  key.shape= \"NORM\"; key.gap= 3276.7; row { top= -3276.8; left= 3276.7; vertical= "
          "true;\n"
          "  keys { <AC01>, <AC02>, <AC03>, <AC04> }; }; };\n"
          "section \"Near\" { top= -3276.8; left= -3276.8; key.shape= \"NORM\";\n"
          "  row { keys { <AB01> }; }; };\n";
}

QByteArray nothingInTheirShapes()
{
    return QByteArray(size)
        + "shape \"POINT\" { { [0,0] } };\n"
          "shape \"LINE\" { { [0,0], [0,0], [0,0], [0,0] } };\n"
          "shape \"CROSSED\" { cornerRadius= 3276.7, { [0,0], [18,18], [18,0], [0,18] } };\n"
          "section \"Keys\" { row { keys { { <AC02>, shape= \"POINT\" },\n"
          "  { <AC03>, shape= \"LINE\" }, { <AC04>, shape= \"CROSSED\" } }; }; };\n";
}

QByteArray shapeOfManyPoints()
{
    QByteArrayList points;
    for (int number = 0; number < manyPoints; ++number)
        points << "[" + QByteArray::number(number) + "," + QByteArray::number(number % 2 * 18)
                + "]";
    return QByteArray(size) + "shape \"NORM\" { { " + points.join(',') + " } };\n" + keys;
}

QByteArray overlaysInACircle()
{
    return usual()
        + "section \"Keys\" { key.shape= \"NORM\"; row { keys { <AC01>, <AC02>, <AC03> }; };\n"
          "  overlay \"One\" { <AC01>=<AC02>, <AC02>=<AC03>, <AC03>=<AC01> };\n"
          "  overlay \"Two\" { <AC01>=<AC01> }; };\n"
          "alias <XX01> = <XX02>;\nalias <XX02> = <XX01>;\n"
          "alias <AC01> = <AC02>;\nalias <AC02> = <AC01>;\n";
}

QByteArray longTexts()
{
    const QByteArray text(longText, 'W');
    return usual() + "text \"" + text + "\" { top= 1; left= 1; text= \"" + text + "\"; };\n"
        + "text \"Lines\" { top= 1; left= 1; text= \"" + QByteArray("a\\n").repeated(longText / 10)
        + "\"; };\nindicator \"" + text + "\" { top= 1; left= 1; shape= \"NORM\"; };\nlogo \"X-Flag"
        + text + "\" { top= 1; left= 1; shape= \"NORM\"; name= \"" + text + "\"; };\n" + keys;
}

QByteArray wordsOfEveryKind()
{
    return usual()
        + "text \"\" { top= 1; left= 1; text= \"\"; };\n"
          "text \"Escapes\" { top= 1; left= 1; text= "
          "\"\\000\\377\\033[2J\\t\\v\\f\\b<b>&amp;%s%n%1\"; };\n"
          "text \"Font\" { top= 1; left= 1; text= \"T\"; font= \"../../../../dev/zero\"; fontSize= "
          "9999; };\n"
          "text \"Slant\" { top= 1; left= 1; text= \"T\"; xfont= "
          "\"-*-*-*-*-*-*-99999-*-*-*-*-*-*-*\"; };\n"
          "logo \"X-Flag\" { top= 1; left= 1; shape= \"NORM\"; name= \"../../../../dev/zero\"; };\n"
          "logo \"x-flag%s%n\" { top= 1; left= 1; shape= \"NORM\"; name= \"/dev/zero\"; };\n"
          "logo \"Caps Lock\" { top= 1; left= 1; shape= \"NORM\"; name= \"/\"; };\n"
        + keys;
}

QByteArray coloursThatDoNotExist()
{
    QByteArray text = usual();
    const QByteArrayList colours{"rgb:ffff/zz/0", "#12345678901234567890", "grey999", "%s%n",
        "transparent", QByteArray(longColour, 'x')};
    for (qsizetype i = 0; i < colours.size(); ++i) {
        const QByteArray name = QByteArray::number(i);
        text += "solid \"S" + name + "\" { top= 1; left= 1; shape= \"NORM\"; color= \""
            + colours.at(i) + "\"; };\n";
        text += "indicator \"I" + name + "\" { top= 1; left= 1; shape= \"NORM\"; onColor= \""
            + colours.at(i) + "\"; offColor= \"" + colours.at(i) + "\"; };\n";
    }
    return text + keys;
}

QByteArray keysWithoutCodes()
{
    return usual()
        + "section \"Keys\" { key.shape= \"NORM\"; key.color= \"no such colour\";\n"
          "  row { keys { <NONE>, <ZZZZ>, <I255>, <A>, <AC01> }; }; };\n";
}

QByteArray manyKeysOfARow()
{
    return usual() + "section \"Many\" { key.shape= \"NORM\"; row { keys { " + keyNames(250)
        + " }; }; };\n" + keys;
}

QByteArray manyKeysInRows()
{
    QByteArray text = usual() + "section \"Many\" { key.shape= \"NORM\";\n";
    const QByteArrayList names = keyNames(manyKeys).split(',');
    for (qsizetype first = 0; first < names.size(); first += 100)
        text += "row { top= " + QByteArray::number(first / 5) + "; keys { "
            + names.mid(first, 100).join(',') + " }; };\n";
    return text + "};\n" + keys;
}

} // namespace

QList<HostileGeometry> hostileGeometries()
{
    return {
        {"itself", "include \"hostile0\"\n" + usual() + keys},
        {"nothing", {}},
        {"no size", "width= 0; height= 0;\n"},
        {"sections and rows without keys", oddSections()},
        {"doodads of every size", doodadsOfEverySize()},
        {"keys of every size", keysOfEverySize()},
        {"far away", farAway()},
        {"shapes with nothing in them", nothingInTheirShapes()},
        {"a shape without outlines", usual() + "shape \"NONE\" { };\n" + keys},
        {"a row without a list of keys", usual() + "section \"None\" { row { }; };\n" + keys},
        {"a shape of many points", shapeOfManyPoints()},
        {"overlays and aliases in a circle", overlaysInACircle()},
        {"long texts", longTexts()},
        {"words of every kind", wordsOfEveryKind()},
        {"colours that do not exist", coloursThatDoNotExist()},
        {"a base that has no colour",
            usual() + "baseColor= \"no such colour\";\nlabelColor= \"#ff\";\n" + keys},
        {"a colour without a name",
            usual() + "solid \"S\" { top= 1; left= 1; shape= \"NORM\"; color= \"\"; };\n" + keys},
        {"keys without codes", keysWithoutCodes()},
        {"many shapes", usual() + repeated("shape \"S#\" { { [18,18] } };\n", manyShapes) + keys},
        {"many doodads",
            usual()
                + repeated("indicator \"I#\" { top= 1; left= #; shape= \"NORM\"; };\n", manyDoodads)
                + keys},
        {"many keys in a row", manyKeysOfARow()},
        {"many keys", manyKeysInRows()},
    };
}

HostileXkbData::HostileXkbData()
{
    for (const char* folder : {"compat", "keycodes", "symbols", "types"})
        link(QLatin1StringView(folder));
    linkFiles(QStringLiteral("geometry"));
    linkFiles(QStringLiteral("rules"));
    QFile::remove(directory.filePath(QLatin1StringView(rulesFile)));

    QByteArray models = modelRules;
    const QList<HostileGeometry> all = hostileGeometries();
    for (qsizetype i = 0; i < all.size(); ++i) {
        write(QStringLiteral("geometry/") + name(i), "xkb_geometry {\n" + all.at(i).text + "};\n");
        models += QStringLiteral("  %1 = %1\n").arg(name(i)).toLatin1();
    }
    QFile rules(QStringLiteral(KBD_XKB_DIR "/") + QLatin1StringView(rulesFile));
    if (!rules.open(QIODevice::ReadOnly))
        throw std::runtime_error("the machine has no rules for keyboards");
    write(QLatin1StringView(rulesFile), rules.readAll().replace(modelRules, models));
}

QString HostileXkbData::name(qsizetype index)
{
    return QStringLiteral("hostile%1").arg(index);
}

void HostileXkbData::link(const QString& file) const
{
    QFile::link(QStringLiteral(KBD_XKB_DIR "/") + file, directory.filePath(file));
}

void HostileXkbData::linkFiles(const QString& folder) const
{
    QDir(directory.path()).mkdir(folder);
    const QStringList files = QDir(QStringLiteral(KBD_XKB_DIR "/") + folder)
                                  .entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    for (const QString& file : files)
        link(folder + QLatin1Char('/') + file);
}

void HostileXkbData::write(const QString& file, const QByteArray& content) const
{
    QFile written(directory.filePath(file));
    if (!written.open(QIODevice::WriteOnly) || written.write(content) != content.size())
        throw std::runtime_error("no XKB data can be written");
}
