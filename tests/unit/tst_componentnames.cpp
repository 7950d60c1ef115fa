#include "app/description/ComponentNames.h"
#include "app/description/ToolRun.h"
#include "x11/X11.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <cerrno>
#include <csignal>
#include <cstring>

namespace {

// The six names in the order of the record; a null one is null.
using Names = QByteArrayList;

const QByteArray null;

const QByteArray usual("xkb_keymap {\n"
                       "\txkb_keycodes  { include \"evdev+aliases(qwerty)\"\t};\n"
                       "\txkb_types     { include \"complete\"\t};\n"
                       "\txkb_compat    { include \"complete+ledscroll\"\t};\n"
                       "\txkb_symbols   { include \"pc+us+inet(evdev)\"\t};\n"
                       "\txkb_geometry  { include \"pc(pc101)\"\t};\n"
                       "};\n");
const Names usualNames{null, "evdev+aliases(qwerty)", "complete", "complete+ledscroll",
    "pc+us+inet(evdev)", "pc(pc101)"};

// Names that a row changes in one place.
Names usualBut(int index, const QByteArray& name)
{
    Names names = usualNames;
    names[index] = name;
    return names;
}

constexpr int typesIndex = 2;
constexpr int symbolsIndex = 4;
constexpr int geometryIndex = 5;

QByteArray usualWithGeometry(const QByteArray& geometry)
{
    return QByteArray(usual).replace("pc(pc101)", geometry);
}

// The usual keymap with another line for the types.
QByteArray usualWithTypes(const QByteArray& line)
{
    return QByteArray(usual).replace("\txkb_types     { include \"complete\"\t};", line);
}

Names namesOf(const XkbComponentNamesRec& record)
{
    return {record.keymap, record.keycodes, record.types, record.compat, record.symbols,
        record.geometry};
}

// As null and empty byte arrays count as equal.
QByteArrayList described(const Names& names)
{
    QByteArrayList result;
    for (const QByteArray& name : names)
        result.append(name.isNull() ? QByteArray("null") : '"' + name + '"');
    return result;
}

constexpr int longTimeoutMs = 20000;
constexpr int shortTimeoutMs = 200;
constexpr qsizetype mostOutput = 1048576; // bytes

// A line of this length is read in a thousandth of the time, unless the time grows with its square.
constexpr qsizetype hostileSize = mostOutput / 4;
constexpr int hostileLimitMs = 4000;

std::optional<QByteArray> shellOutput(const QString& script, int timeout = longTimeoutMs)
{
    return toolOutput("sh", {"-c", script}, timeout);
}

} // namespace

class ComponentNamesTest : public QObject {
    Q_OBJECT

private slots:
    void aKeymapIsReadLineByLine_data();
    void aKeymapIsReadLineByLine();
    void anIncompleteKeymapIsNone_data();
    void anIncompleteKeymapIsNone();
    void geometriesOfThePlatformComeInstead_data();
    void geometriesOfThePlatformComeInstead();
    void aHostileLineIsReadInTime_data();
    void aHostileLineIsReadInTime();

    void freedNamesAreNull();
    void copiedNamesAreTheCopysOwn();
    void aCopyOfItselfChangesNothing();

    void aToolsOutputIsReturned_data();
    void aToolsOutputIsReturned();
    void aToolGetsItsArgumentsAsTheyAre();
    void aToolThatFailsToAnswerHasNoOutput_data();
    void aToolThatFailsToAnswerHasNoOutput();
    void aToolThatHangsIsKilled();
};

void ComponentNamesTest::aKeymapIsReadLineByLine_data()
{
    QTest::addColumn<QByteArray>("keymap");
    QTest::addColumn<Names>("names");
    const auto types = [](const char* row, const QByteArray& line, const QByteArray& name) {
        QTest::newRow(row) << usualWithTypes(line) << usualBut(typesIndex, name);
    };
    QTest::newRow("as setxkbmap prints it") << usual << usualNames;
    QTest::newRow("with a name for the keymap")
        << "xkb_keymap { include \"whole\" };\n" + usual << usualBut(0, "whole");
    QTest::newRow("with other lines") << "Warning!\n\n" + usual + "// xkb_types\nxkb_types\n"
                                      << usualNames;
    QTest::newRow("without an end of line")
        << usual.left(usual.lastIndexOf(';', -4) + 1) << usualNames;
    QTest::newRow("with carriage returns") << QByteArray(usual).replace("\n", "\r\n") << usualNames;
    QTest::newRow("in another order")
        << QByteArray("xkb_geometry { include \"g\" }\nxkb_symbols { include \"s\" }\n"
                      "xkb_compat { include \"c\" }\nxkb_types { include \"t\" }\n"
                      "xkb_keycodes { include \"k\" }\n")
        << Names{null, "k", "t", "c", "s", "g"};

    types("without white space", "xkb_types{include \"t\"}", "t");
    types("with much white space", "\t xkb_types \t {\t\tinclude \t \"t\" \t }\t;", "t");
    types("with a comment behind", "xkb_types { include \"t\" }; // x", "t");
    types("inside other words", "my_xkb_types { include \"t\" }rest", "t");
    types("two names", "xkb_types { include \"a\" \"b\" };", "a\" \"b");
    types("up to the last quote before a brace", "xkb_types { include \"a\" }; \"b\" }; \"c\"",
        "a\" }; \"b");
    types("nothing between the quotes", "xkb_types { include \"\" };", "");
    types("blanks between the quotes", "xkb_types { include \" a  b \" };", " a  b ");
    types("not ASCII", "xkb_types { include \"größe\" };", "größe");
    types("not UTF-8", "xkb_types { include \"a\xff\" };", "a\xef\xbf\xbd");
    types("what follows a NUL is lost", QByteArray("xkb_types { include \"a\0b\" };", 28), "a");
    types(
        "the last line counts", "xkb_types { include \"a\" };\nxkb_types { include \"b\" };", "b");
    types(
        "a later line that does not match", "xkb_types { include \"a\" };\nxkb_types { b };", "a");
    types("one line, two sections: the keycodes are looked for first",
        "xkb_types { include \"complete\" };\n"
        "xkb_types { include \"x\" }; xkb_keycodes { include \"evdev+aliases(qwerty)\" };",
        "complete");
    QTest::newRow("one line, two sections: the capture is greedy")
        << usual + "xkb_symbols { include \"a\" }; xkb_geometry { include \"b\" };\n"
        << usualBut(symbolsIndex, "a\" }; xkb_geometry { include \"b");
}

void ComponentNamesTest::aKeymapIsReadLineByLine()
{
    QFETCH(QByteArray, keymap);
    QFETCH(Names, names);
    XkbComponentNamesRec record{};
    const ComponentNamesGuard guard(&record);
    QVERIFY(readComponentNames(&record, keymap));
    QCOMPARE(described(namesOf(record)), described(names));
}

void ComponentNamesTest::anIncompleteKeymapIsNone_data()
{
    QTest::addColumn<QByteArray>("keymap");
    for (const char* section :
        {"xkb_keycodes", "xkb_types", "xkb_compat", "xkb_symbols", "xkb_geometry"}) {
        QTest::addRow("without %s", section) << QByteArray(usual).replace(section, "xkb_nothing");
        QTest::addRow("%s in capitals", section)
            << QByteArray(usual).replace(section, QByteArray(section).toUpper());
    }
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("only line feeds") << QByteArray(1000, '\n');
    QTest::newRow("no keymap") << QByteArray("Error loading new keyboard description\n");
    QTest::newRow("a section that is not included")
        << usualWithTypes("xkb_types { virtual_modifiers NumLock; };");
    QTest::newRow("no brace") << usualWithTypes("xkb_types include \"t\" };");
    QTest::newRow("no closing brace") << usualWithTypes("xkb_types { include \"t\";");
    QTest::newRow("no quotes") << usualWithTypes("xkb_types { include t };");
    QTest::newRow("one quote") << usualWithTypes("xkb_types { include \"t };");
    QTest::newRow("no white space before the name")
        << usualWithTypes("xkb_types { include\"t\" };");
    QTest::newRow("in two lines") << usualWithTypes("xkb_types {\n\tinclude \"t\"\n};");
    QTest::newRow("an include in capitals") << usualWithTypes("xkb_types { INCLUDE \"t\" };");
    QTest::newRow("UTF-16") << QByteArray(usual).replace("x", QByteArray("x\0", 2));
}

void ComponentNamesTest::anIncompleteKeymapIsNone()
{
    QFETCH(QByteArray, keymap);
    XkbComponentNamesRec record{};
    const ComponentNamesGuard guard(&record);
    QVERIFY(!readComponentNames(&record, keymap));
}

void ComponentNamesTest::geometriesOfThePlatformComeInstead_data()
{
    QTest::addColumn<QByteArray>("used");
    for (const QByteArray model : {"pc104", "pc105", "jp106", "kr106", "abnt2"})
        QTest::newRow(("pc(" + model + ')').constData()) << "pc-arvane(" + model + ')';
    for (const char* kept : {"pc(pc101)", "pc(intl)", "pc", "pc()", "pc(pc105", "pc(pc105)+keypad",
             " pc(pc105)", "pc(pc105) ", "PC(pc105)", "pc(PC105)", "xpc(pc105)", "pc-arvane(pc105)",
             "everex(STEPnote)", "pc(pc102)"})
        QTest::newRow(kept) << QByteArray(kept);
}

void ComponentNamesTest::geometriesOfThePlatformComeInstead()
{
    QFETCH(QByteArray, used);
    XkbComponentNamesRec record{};
    const ComponentNamesGuard guard(&record);
    QVERIFY(readComponentNames(&record, usualWithGeometry(QTest::currentDataTag())));
    QCOMPARE(described(namesOf(record)), described(usualBut(geometryIndex, used)));
}

void ComponentNamesTest::aHostileLineIsReadInTime_data()
{
    QTest::addColumn<QByteArray>("piece");
    QTest::newRow("beginnings") << QByteArray("xkb_types { include \"");
    QTest::newRow("keywords") << QByteArray("xkb_types");
    QTest::newRow("blanks") << QByteArray(" ");
    QTest::newRow("quotes and blanks") << QByteArray("\"    ");
}

void ComponentNamesTest::aHostileLineIsReadInTime()
{
    QFETCH(QByteArray, piece);
    const QByteArray line = "xkb_types { include \"" + piece.repeated(hostileSize / piece.size());
    XkbComponentNamesRec record{};
    const ComponentNamesGuard guard(&record);
    QElapsedTimer clock;
    clock.start();
    QVERIFY(!readComponentNames(&record, line));
    QCOMPARE_LT(clock.elapsed(), hostileLimitMs);
}

void ComponentNamesTest::freedNamesAreNull()
{
    XkbComponentNamesRec record{};
    QVERIFY(readComponentNames(&record, "xkb_keymap { include \"whole\" };\n" + usual));
    freeComponentNames(&record);
    QCOMPARE(described(namesOf(record)), described(Names(6)));
    freeComponentNames(&record);
    QCOMPARE(described(namesOf(record)), described(Names(6)));
}

void ComponentNamesTest::copiedNamesAreTheCopysOwn()
{
    XkbComponentNamesRec copy{};
    const ComponentNamesGuard guard(&copy);
    QVERIFY(readComponentNames(&copy, "xkb_keymap { include \"whole\" };\n" + usual));
    XkbComponentNamesRec source{};
    QVERIFY(readComponentNames(&source, usualWithGeometry("sun(type5)")));

    copyComponentNames(&copy, source);

    QVERIFY(copy.geometry != source.geometry);
    freeComponentNames(&source);
    QCOMPARE(described(namesOf(copy)), described(usualBut(geometryIndex, "sun(type5)")));
}

void ComponentNamesTest::aCopyOfItselfChangesNothing()
{
    XkbComponentNamesRec record{};
    const ComponentNamesGuard guard(&record);
    QVERIFY(readComponentNames(&record, usual));
    copyComponentNames(&record, record);
    QCOMPARE(described(namesOf(record)), described(usualNames));
}

void ComponentNamesTest::aToolsOutputIsReturned_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QByteArray>("output");
    QTest::newRow("a line") << "echo yes" << QByteArray("yes\n");
    QTest::newRow("nothing") << ":" << QByteArray();
    QTest::newRow("standard error is left out") << "echo no >&2; echo yes" << QByteArray("yes\n");
    QTest::newRow("a failure has output too") << "echo yes; exit 1" << QByteArray("yes\n");
    QTest::newRow("a crash too") << "echo yes; kill -SEGV $$" << QByteArray("yes\n");
    QTest::newRow("the standard input is at its end") << "cat; echo yes" << QByteArray("yes\n");
    QTest::newRow("a child that goes on") << "sleep 2 & echo yes" << QByteArray("yes\n");
    QTest::newRow("as much as there may be")
        << QString("head -c %1 /dev/zero | tr '\\0' x").arg(mostOutput)
        << QByteArray(mostOutput, 'x');
    QTest::newRow("much on standard error")
        << QString("head -c %1 /dev/zero >&2; echo yes").arg(3 * mostOutput) << QByteArray("yes\n");
}

void ComponentNamesTest::aToolsOutputIsReturned()
{
    QFETCH(QString, script);
    QFETCH(QByteArray, output);
    const auto result = shellOutput(script);
    QVERIFY(result);
    QVERIFY2(*result == output, result->left(100).constData());
}

// No shell reads them.
void ComponentNamesTest::aToolGetsItsArgumentsAsTheyAre()
{
    const QString hostile = "us; touch here $(touch here) `touch here` > here \"'* $HOME \\";
    QCOMPARE(toolOutput("printf", {"%s", hostile}, longTimeoutMs), hostile.toUtf8());
}

void ComponentNamesTest::aToolThatFailsToAnswerHasNoOutput_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("timeout");
    QTest::newRow("not there") << "no-such-program" << QStringList() << longTimeoutMs;
    QTest::newRow("no name") << QString() << QStringList() << longTimeoutMs;
    QTest::newRow("not to be run") << "/dev/null" << QStringList() << longTimeoutMs;
    QTest::newRow("hanging") << "sleep" << QStringList{"300"} << shortTimeoutMs;
    QTest::newRow("hanging after its output")
        << "sh" << QStringList{"-c", "echo yes; exec sleep 300"} << shortTimeoutMs;
    QTest::newRow("hanging, deaf to requests to end")
        << "sh" << QStringList{"-c", "trap '' TERM INT HUP; echo yes; exec sleep 300"}
        << shortTimeoutMs;
    QTest::newRow("lines without end") << "yes" << QStringList() << longTimeoutMs;
    QTest::newRow("a line without end") << "cat" << QStringList{"/dev/zero"} << longTimeoutMs;
    QTest::newRow("a byte more than there may be")
        << "head" << QStringList{"-c", QString::number(mostOutput + 1), "/dev/zero"}
        << longTimeoutMs;
}

void ComponentNamesTest::aToolThatFailsToAnswerHasNoOutput()
{
    QFETCH(QString, program);
    QFETCH(QStringList, arguments);
    QFETCH(int, timeout);
    QElapsedTimer clock;
    clock.start();
    QVERIFY(!toolOutput(program, arguments, timeout));
    QCOMPARE_LT(clock.elapsed(), longTimeoutMs);
}

void ComponentNamesTest::aToolThatHangsIsKilled()
{
    const QTemporaryDir directory;
    const QString path = directory.filePath("process");
    QVERIFY(!toolOutput("sh", {"-c", "echo $$ > \"$0\"; exec sleep 300", path}, 1000));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const pid_t process = file.readAll().trimmed().toInt();
    QVERIFY(process > 0);
    QCOMPARE(::kill(process, 0), -1);
    QCOMPARE(errno, ESRCH);
}

QTEST_GUILESS_MAIN(ComponentNamesTest)

#include "tst_componentnames.moc"
