#include "DataFixture.h"
#include "ui/CKbdSpecSelector.h"
#include "ui/GroupCombo.h"
#include "ui/specs/FileIconEngine.h"
#include "ui/specs/SpecTable.h"

#include <QAbstractItemModelTester>
#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <QTranslator>
#include <QWheelEvent>

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>

#include <csignal>
#include <malloc.h>
#include <sys/stat.h>
#include <unistd.h>

Q_DECLARE_METATYPE(std::function<void(QComboBox&)>)

namespace {

const QByteArray threeKeyboards = "USA\tred.png\tpc104\tus\t\n"
                                  "Germany\tblue.png\tpc105\tde\tnodeadkeys\n"
                                  "Russia\tnone.png\tpc105\tus,ru\t,phonetic\n";

QStringList textsOf(const QComboBox& combo)
{
    QStringList texts;
    for (int i = 0; i < combo.count(); ++i)
        texts.append(combo.itemText(i));
    return texts;
}

// The texts that a table's keyboards show, without "<Custom>".
QStringList textsOfTable()
{
    const CKbdSpecSelector selector(false, nullptr);
    return textsOf(selector);
}

// What the selector's constructor throws; nothing when it throws nothing.
std::optional<int> errorOfTable()
{
    try {
        const CKbdSpecSelector selector(true, nullptr);
    } catch (CKbdSpecSelector::SpecTableError error) {
        return error;
    }
    return std::nullopt;
}

QColor middleOf(const QIcon& icon)
{
    const QImage image = icon.pixmap(24, 18).toImage();
    return image.pixelColor(image.rect().center());
}

// Makes words of names: "Germany" is "Zermany" and the "<Custom>" entry comes first.
class RenamingTranslator : public QTranslator {
public:
    QString translate(const char* context, const char* text, const char*, int) const override
    {
        if (QLatin1String(context) != QLatin1String("CKbdSpecSelector"))
            return {};
        if (QLatin1String(text) == QLatin1String("Germany"))
            return QStringLiteral("Zermany");
        return QLatin1String(text) == QLatin1String("<Custom>") ? QStringLiteral("<A>") : QString();
    }
    bool isEmpty() const override { return false; }
};

// Stand-ins for the package tools, first in the search path while this lives.
class FakeTools {
public:
    explicit FakeTools(const DataFixture& fixture)
        : directory(fixture.path(QStringLiteral("bin/")))
        , previousPath(qgetenv("PATH"))
    {
        qputenv("PATH", QFile::encodeName(directory) + ":" + previousPath);
    }

    ~FakeTools() { qputenv("PATH", previousPath); }

    Q_DISABLE_COPY_MOVE(FakeTools)

    // The script finds the directory of its records as $0.d.
    bool write(const QString& name, const QByteArray& script) const
    {
        const QString path = directory + name;
        return QDir().mkpath(path + QLatin1String(".d"))
            && DataFixture::write(path, "#!/bin/sh\n" + script)
            && QFile::setPermissions(path, QFile::ReadOwner | QFile::ExeOwner);
    }

    // What a tool has recorded of its calls.
    QByteArray record(const QString& tool, const QString& name) const
    {
        QFile file(directory + tool + QLatin1String(".d/") + name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    // Leaves only the stand-ins in the search path.
    void hideOthers() const { qputenv("PATH", QFile::encodeName(directory)); }

private:
    QString directory;
    QByteArray previousPath;
};

// A dpkg that has these packages installed, no others, and notes every question.
QByteArray dpkgWith(const QByteArray& packages)
{
    return "echo \"$LANG $*\" >>$0.d/calls\n"
           "case ' "
        + packages
        + " ' in\n"
          "*\" $2 \"*) echo \"Package: $2\"; echo 'Status: install ok installed';;\n"
          "*) echo \"package '$2' is not installed\" >&2; exit 1;;\n"
          "esac\n";
}

// A tool that notes its process and does not end.
const QByteArray hangingTool = "echo $$ >$0.d/process\nexec /bin/sleep 60\n";

// A process that has been reaped as well is not there to be signalled.
bool isGone(const QByteArray& process)
{
    const pid_t id = process.trimmed().toInt();
    return id > 0 && kill(id, 0) != 0 && errno == ESRCH;
}

// Notes the signals of a user's choice in their order.
class ChoiceLog {
public:
    explicit ChoiceLog(CKbdSpecSelector& selector)
    {
        QObject::connect(&selector, qOverload<kbdSpec_t*>(&CKbdSpecSelector::activated), &selector,
            [this](const kbdSpec_t* spec) { lines.append(spec->name); });
        note(selector, &CKbdSpecSelector::primaryModelChanged, "model");
        note(selector, &CKbdSpecSelector::primaryLayoutChanged, "layout");
        note(selector, &CKbdSpecSelector::primaryVariantChanged, "variant");
        note(selector, &CKbdSpecSelector::secondaryModelChanged, "second model");
        note(selector, &CKbdSpecSelector::secondaryLayoutChanged, "second layout");
        note(selector, &CKbdSpecSelector::secondaryVariantChanged, "second variant");
    }

    QStringList lines;

private:
    void note(CKbdSpecSelector& selector, void (CKbdSpecSelector::*signal)(const QString&),
        const char* name)
    {
        QObject::connect(&selector, signal, &selector, [this, name](const QString& value) {
            lines.append(QLatin1String(name) + QLatin1Char(' ') + value);
        });
    }
};

} // namespace

class SpecSelectorTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void theTableIsLookedForInThreePlaces();
    void aTableThatCannotBeReadIsNotFound_data();
    void aTableThatCannotBeReadIsNotFound();
    void aTableThatIsNoFileIsNotOpened_data();
    void aTableThatIsNoFileIsNotOpened();
    void aLineMakesAnEntry_data();
    void aLineMakesAnEntry();
    void aForeignTableIsReadAsFarAsItGoes_data();
    void aForeignTableIsReadAsFarAsItGoes();
    void aHugeTableIsReadQuickly();
    void aHugeTableTakesLittleMoreThanItsText();
    void theListComesIntoOrderBeforeItIsSeen_data();
    void theListComesIntoOrderBeforeItIsSeen();
    void outOfOrderTheFirstNameIsSelectedToo();
    void aHugeLineDoesNotStretchTheWindow();
    void onlyTheCurrentNameIsGivenRoom();

    void entriesAreSortedByTheirTranslatedNames();
    void equalNamesAllStay();
    void nativeNamesStandInBrackets_data();
    void nativeNamesStandInBrackets();
    void aNativeNameNeedsItsFont_data();
    void aNativeNameNeedsItsFont();
    void everyPackageIsAskedForOnce();
    void aNativeNameComesWhenItIsShown();
    void aBadPackageToolMeansNotInstalled_data();
    void aBadPackageToolMeansNotInstalled();
    void aTalkativePackageToolIsUnderstood();

    void anIconIsLookedForInThreePlaces();
    void anIconThatIsNoFileIsLeftOut_data();
    void anIconThatIsNoFileIsLeftOut();
    void anImageIsDecodedWhenItIsDrawn();
    void aFileThatIsNoImageDrawsNothing();
    void anImageThatBreaksOffDrawsNothing();
    void anIconKeepsItsShape_data();
    void anIconKeepsItsShape();

    void customIsTheLastEntry();
    void onlyTheCustomEntryIsCustom();
    void anEmptyTableHasOnlyCustom_data();
    void anEmptyTableHasOnlyCustom();
    void theControlRefusesTheFocus();
    void aDescriptionSelectsItsEntry_data();
    void aDescriptionSelectsItsEntry();
    void aDescriptionWithoutEntryOrItemSelectsNothing();
    void aNameSelectsTheLastEntry_data();
    void aNameSelectsTheLastEntry();
    void theCurrentKeyboardIsTheEntrys();
    void withoutAnEntryTheKeyboardIsTheDefault_data();
    void withoutAnEntryTheKeyboardIsTheDefault();
    void everyChangeIsReportedOnce();
    void indicesThatNoEntryHasAreIgnored_data();
    void indicesThatNoEntryHasAreIgnored();
    void aChoiceReportsTheKeyboard_data();
    void aChoiceReportsTheKeyboard();
    void aSecondaryKeyboardIsReportedToo();

private:
    std::unique_ptr<DataFixture> data;
};

void SpecSelectorTest::init()
{
    QVERIFY(DataFixture::isApart());
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    data = std::make_unique<DataFixture>();
}

void SpecSelectorTest::cleanup()
{
    data.reset();
}

void SpecSelectorTest::theTableIsLookedForInThreePlaces()
{
    QVERIFY(data->write(QStringLiteral("../src/kbdSpecs.tab"), "Source\ti\tpc104\tus\t\n"));
    QCOMPARE(textsOfTable(), QStringList{QStringLiteral("Source")});
    QVERIFY(data->writeTable("Local\ti\tpc104\tus\t\n"));
    QCOMPARE(textsOfTable(), QStringList{QStringLiteral("Local")});
    QVERIFY(data->write(KbdConstants::specTablePath, "Installed\ti\tpc104\tus\t\n"));
    QCOMPARE(textsOfTable(), QStringList{QStringLiteral("Installed")});
}

void SpecSelectorTest::aTableThatCannotBeReadIsNotFound_data()
{
    QTest::addColumn<QString>("installed");
    QTest::newRow("no file") << QString();
    QTest::newRow("a dangling link") << QStringLiteral("link");
    QTest::newRow("a path under a file") << QStringLiteral("file");
}

void SpecSelectorTest::aTableThatCannotBeReadIsNotFound()
{
    QFETCH(const QString, installed);
    QString directory = DataFixture::installed(QString());
    directory.chop(1);
    if (installed == QLatin1String("file"))
        QVERIFY(DataFixture::write(directory, "no directory"));
    if (installed == QLatin1String("link")) {
        QVERIFY(QDir().mkpath(directory));
        QVERIFY(QFile::link(QStringLiteral("nowhere"), KbdConstants::specTablePath));
    }

    QCOMPARE(errorOfTable(), std::optional<int>(1));
    QVERIFY(data->writeTable("Local\ti\tpc104\tus\t\n"));
    QCOMPARE(errorOfTable(), std::optional<int>());
    QFile::remove(directory);
}

void SpecSelectorTest::aTableThatIsNoFileIsNotOpened_data()
{
    QTest::addColumn<bool>("pipe");
    QTest::newRow("a directory") << false;
    QTest::newRow("a pipe that nobody writes") << true;
}

void SpecSelectorTest::aTableThatIsNoFileIsNotOpened()
{
    QFETCH(bool, pipe);
    const char* path = "kbdSpecs.tab";
    QCOMPARE(pipe ? mkfifo(path, 0600) : mkdir(path, 0700), 0);
    QVERIFY(data->write(QStringLiteral("../src/kbdSpecs.tab"), "Source\ti\tpc104\tus\t\n"));
    QCOMPARE(errorOfTable(), std::optional<int>(2));
}

void SpecSelectorTest::aLineMakesAnEntry_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("entry");
    const auto row = [](const char* name, const QByteArray& line, const char* entry) {
        QTest::newRow(name) << line << QString::fromUtf8(entry);
    };
    row("five fields", "USA\tus.png\tpc104\tus\tintl", "USA|us.png|pc104|us|intl");
    row("an empty variant", "USA\tus.png\tpc104\tus\t", "USA|us.png|pc104|us|");
    row("four fields", "USA\tus.png\tpc104\tus", "USA|us.png|pc104|us|");
    row("more than five fields", "USA\tus.png\tpc104\tus\tintl\tx\ty", "USA|us.png|pc104|us|intl");
    row("empty fields", "USA\t\t\tus\t", "USA|||us|");
    row("a list of layouts", "Russia\tru.png\tpc105\tus,ru\t,winkeys",
        "Russia|ru.png|pc105|us,ru|,winkeys");
    row("blanks and tabs before the name", "  \t USA\tus.png\tpc104\tus\t", "USA|us.png|pc104|us|");
    row("empty lines before it", "\n \n\t\nUSA\tus.png\tpc104\tus\t", "USA|us.png|pc104|us|");
    row("UTF-8", "\xC3\x96sterreich\tat.png\tpc104\tat\t", "\u00D6sterreich|at.png|pc104|at|");
    row("a comment", "#USA\tus.png\tpc104\tus\t", "");
    row("a comment behind blanks", "  # USA\tus.png\tpc104\tus\t", "");
    row("three fields", "USA\tus.png\tpc104", "");
    row("one field", "USA", "");
    row("blanks for tabs", "USA us.png pc104 us intl", "");
}

void SpecSelectorTest::aLineMakesAnEntry()
{
    QFETCH(const QByteArray, line);
    QVERIFY(data->writeTable(line + '\n'));
    CKbdSpecSelector selector(true, nullptr);
    QString entry;
    connect(&selector, qOverload<kbdSpec_t*>(&CKbdSpecSelector::activated), this,
        [&](const kbdSpec_t* spec) {
            entry = QStringList{spec->name, spec->icon, spec->models.join(QLatin1Char(';')),
                spec->layouts.join(QLatin1Char(';')), spec->variants.join(QLatin1Char(';'))}
                        .join(QLatin1Char('|'));
        });
    if (selector.count() > 1)
        selector.userSelectionChanged(0);
    QTEST(entry, "entry");
}

void SpecSelectorTest::aForeignTableIsReadAsFarAsItGoes_data()
{
    QTest::addColumn<QByteArray>("table");
    QTest::addColumn<QStringList>("texts");
    const QByteArray good = "A\ti\tpc104\tus\t";
    const QString a = QStringLiteral("A");
    QTest::newRow("nothing") << QByteArray() << QStringList();
    QTest::newRow("no newline at the end") << good << QStringList{a};
    QTest::newRow("CR LF") << good + "\r\nB\ti\tpc104\tus\r\n"
                           << QStringList{a, QStringLiteral("B")};
    QTest::newRow("a byte order mark") << "\xEF\xBB\xBF" + good + '\n' << QStringList{a};
    QTest::newRow("a byte order mark before a comment")
        << "\xEF\xBB\xBF#x\ti\tpc104\tus\n" + good << QStringList{a};
    QTest::newRow("a byte order mark in the middle, where tables were joined")
        << good + "\n \xEF\xBB\xBF#x\ti\tpc104\tus\n\xEF\xBB\xBF" + "B\ti\tpc104\tus\n"
        << QStringList{a, QStringLiteral("B")};
    QTest::newRow("NUL bytes") << QByteArray("B\0\0\ti\tp\0c\tus\n", 13) + good
                               << QStringList{a, QStringLiteral("B")};
    QTest::newRow("a NUL byte in the icon name")
        << QByteArray("A\ti\0i\tpc104\tus\t\n", 16) << QStringList{a};
    QTest::newRow("bytes that are no UTF-8") << QByteArray("\x80\xFF\xFE\n\xC3(\ti\tpc104\tus\n")
                                             << QStringList{QStringLiteral("\uFFFD(")};
    QTest::newRow("a picture") << DataFixture::png(Qt::red) << QStringList();
    QTest::newRow("a megabyte in one line, no keyboard")
        << QByteArray(1 << 20, 'm') + '\n' + good << QStringList{a};
    QTest::newRow("a megabyte of tabs, white space before the next line")
        << QByteArray(1 << 20, '\t') + '\n' + good << QStringList{a};
    QTest::newRow("a line of a million fields")
        << 'A' + QByteArray(1 << 20, '\t') << QStringList{a};
}

void SpecSelectorTest::aForeignTableIsReadAsFarAsItGoes()
{
    QFETCH(const QByteArray, table);
    QVERIFY(data->writeTable(table));
    QTEST(textsOfTable(), "texts");
}

void SpecSelectorTest::aHugeTableIsReadQuickly()
{
    constexpr int lines = 100'000;
    QByteArray table;
    for (int i = 0; i < lines; ++i)
        table += "Country " + QByteArray::number(i * 7919 % lines) + "\tred.png\tpc104\tus\t\n";
    QVERIFY(data->writeTable(table));

    QElapsedTimer timer;
    timer.start();
    const CKbdSpecSelector selector(true, nullptr);
    QCOMPARE(selector.count(), lines + 1);
    QVERIFY2(timer.elapsed() < 10'000, qPrintable(QString::number(timer.elapsed())));
}

// The window does without the order and the icons until the list is opened.
void SpecSelectorTest::aHugeTableTakesLittleMoreThanItsText()
{
    constexpr int lines = 200'000;
    QByteArray text;
    for (int i = 0; i < lines; ++i)
        text += "Country " + QByteArray::number(i) + "\tred.png\tpc104\tus\t\n";
    QVERIFY(data->writeTable(text));
    const auto inUse = [] {
        const struct mallinfo2 info = mallinfo2();
        return static_cast<qsizetype>(info.uordblks) + static_cast<qsizetype>(info.hblkhd);
    };

    const qsizetype before = inUse();
    const SpecTable table = SpecTable::find();
    CKbdSpecSelector selector(true, nullptr, table);
    const GroupCombo groups({QStringLiteral("English")}, false, nullptr, table);
    selector.select({QStringLiteral("pc104"), QStringLiteral("us"), {}, {}});
    QCOMPARE(selector.count(), lines + 1);
    QCOMPARE(selector.currentText(), QStringLiteral("Country 0"));
    const qsizetype taken = inUse() - before;
    QVERIFY2(taken < 3 * text.size(), qPrintable(QString::number(taken)));
}

void SpecSelectorTest::theListComesIntoOrderBeforeItIsSeen_data()
{
    QTest::addColumn<std::function<void(QComboBox&)>>("look");
    QTest::newRow("the list is opened") << std::function<void(QComboBox&)>([](QComboBox& combo) {
        QTest::ignoreMessage(QtWarningMsg, "This plugin does not support raise()");
        QTest::ignoreMessage(QtWarningMsg, "This plugin does not support grabbing the keyboard");
        combo.showPopup();
    });
    QTest::newRow("the wheel is turned") << std::function<void(QComboBox&)>([](QComboBox& combo) {
        QWheelEvent event(
            {1, 1}, {1, 1}, {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&combo, &event);
    });
    QTest::newRow("a key is pressed") << std::function<void(QComboBox&)>(
        [](QComboBox& combo) { QTest::keyClick(&combo, Qt::Key_F7); });
}

// Coming into order is no choice of another keyboard.
void SpecSelectorTest::theListComesIntoOrderBeforeItIsSeen()
{
    QFETCH(const std::function<void(QComboBox&)>, look);
    QVERIFY(data->writeTable("C\t\tpc104\tus\t\nA\t\tpc105\tde\t\nB\t\tpc105\tfr\t\n"));
    CKbdSpecSelector selector(true, nullptr, SpecTable::find());
    const QAbstractItemModelTester tester(selector.model());
    selector.select({QStringLiteral("pc104"), QStringLiteral("us"), {}, {}});
    selector.removeItem(selector.count() - 1);
    QStringList changes;
    connect(&selector, &CKbdSpecSelector::currentChanged, this,
        [&](const kbdSpec_t* spec) { changes.append(spec->name); });

    look(selector);
    QCOMPARE(textsOf(selector),
        QStringList({QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")}));
    QCOMPARE(selector.currentIndex(), 2);
    QCOMPARE(selector.currentText(), QStringLiteral("C"));
    QCOMPARE(changes, QStringList());
}

void SpecSelectorTest::outOfOrderTheFirstNameIsSelectedToo()
{
    QVERIFY(data->writeTable("C\t\tpc104\tus\t\nA\t\tpc104\tus\t\nB\t\tpc104\tus\t\n"));
    CKbdSpecSelector selector(true, nullptr, SpecTable::find());
    selector.setCurrent(QStringLiteral("pc104"), QStringLiteral("us"), QString());
    QCOMPARE(selector.currentText(), QStringLiteral("A"));
}

void SpecSelectorTest::aHugeLineDoesNotStretchTheWindow()
{
    QVERIFY(data->writeTable(QByteArray(1 << 20, 'm') + "\ti\tpc104\tus\t\n"));
    QWidget window;
    QHBoxLayout row(&window);
    row.addWidget(new CKbdSpecSelector(true, &window));
    QVERIFY(window.sizeHint().width() < 1000);
    QVERIFY(window.minimumSizeHint().width() < 1000);
}

// To depend on all of them it would have to measure them, in every script.
void SpecSelectorTest::onlyTheCurrentNameIsGivenRoom()
{
    const QByteArray longName(35, 'm');
    QVERIFY(data->writeTable("A\t\tpc104\tus\t\n" + longName + "\t\tpc105\tde\t\n"));
    CKbdSpecSelector selector(true, nullptr);
    selector.setCurrent("pc104", "us", "");
    const int usual = selector.sizeHint().width();
    QVERIFY(data->writeTable("A\t\tpc104\tus\t\n"));
    QCOMPARE(CKbdSpecSelector(true, nullptr).sizeHint().width(), usual);

    selector.setCurrent("pc105", "de", "");
    QVERIFY(selector.sizeHint().width() > usual);
    QVERIFY(selector.sizeHint().width() > selector.fontMetrics().horizontalAdvance(longName));
    QVERIFY(selector.minimumSizeHint().width() < usual);
    selector.setCurrent("pc104", "us", "");
    QCOMPARE(selector.sizeHint().width(), usual);
}

void SpecSelectorTest::entriesAreSortedByTheirTranslatedNames()
{
    RenamingTranslator translator;
    QCoreApplication::installTranslator(&translator);
    QVERIFY(data->writeTable(threeKeyboards));
    CKbdSpecSelector selector(true, nullptr);
    const QStringList texts{QStringLiteral("Russia"), QStringLiteral("USA"),
        QStringLiteral("Zermany"), QStringLiteral("<A>")};
    QCOMPARE(textsOf(selector), texts);

    selector.setCurrentIndex(2);
    QCOMPARE(selector.currentLayout(), QStringLiteral("de"));
    QCOMPARE(selector.currentIconFile(), QStringLiteral("blue.png"));
    QVERIFY(selector.isCustom(3));
}

void SpecSelectorTest::equalNamesAllStay()
{
    QVERIFY(data->writeTable(QByteArray("Same\ti\tpc104\tus\t\n").repeated(100)));
    QCOMPARE(textsOfTable(), QStringList(100, QStringLiteral("Same")));
}

void SpecSelectorTest::nativeNamesStandInBrackets_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QString>("text");
    QTest::newRow("no bracket") << QByteArray("USA") << "USA";
    QTest::newRow("blanks at the end") << QByteArray("USA  ") << "USA";
    QTest::newRow("a native name") << QByteArray("Greece [Hellas]") << "Greece [Hellas]";
    QTest::newRow("several blanks") << QByteArray("Greece   [Hellas]") << "Greece [Hellas]";
    QTest::newRow("no blank") << QByteArray("Greece[Hellas]") << "Greece [Hellas]";
    QTest::newRow("a bracket alone") << QByteArray("Greece [") << "Greece";
    QTest::newRow("no closing bracket") << QByteArray("Greece [Hellas") << "Greece [Hellas";
    QTest::newRow("two brackets") << QByteArray("Greece [a] [b]") << "Greece [a] [b]";
    QTest::newRow("a native name alone") << QByteArray("[Hellas]") << " [Hellas]";
    QTest::newRow("a translated name")
        << QByteArray("Germany [Deutschland]") << "Zermany [Deutschland]";
    QTest::newRow("another country's name inside")
        << QByteArray("Japanese [Kana]") << "Japanese [Kana]";
}

void SpecSelectorTest::nativeNamesStandInBrackets()
{
    QFETCH(const QByteArray, name);
    RenamingTranslator translator;
    QCoreApplication::installTranslator(&translator);
    const FakeTools tools(*data);
    QVERIFY(tools.write(QStringLiteral("dpkg"), dpkgWith({})));
    QVERIFY(data->writeTable(name + "\ti\tpc104\tus\t\n"));
    QTEST(textsOfTable().value(0), "text");
    QCOMPARE(tools.record(QStringLiteral("dpkg"), QStringLiteral("calls")), QByteArray());
}

void SpecSelectorTest::aNativeNameNeedsItsFont_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("installed");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("calls");
    const QByteArray korean = "C --status ttf-baekmuk\n";
    const QByteArray kochi = "C --status ttf-kochi-gothic\n";
    const QByteArray sazanami = "C --status ttf-sazanami-gothic\n";
    QTest::newRow("Korea with its font")
        << QByteArray("Korea [K]") << QByteArray("ttf-baekmuk") << "Korea [K]" << korean;
    QTest::newRow("Korea with a Japanese font")
        << QByteArray("Korea [K]") << QByteArray("ttf-kochi-gothic") << "Korea" << korean;
    QTest::newRow("Korea without native name")
        << QByteArray("Korea") << QByteArray("ttf-baekmuk") << "Korea" << QByteArray();
    QTest::newRow("Japan with the first font")
        << QByteArray("Japan [J]") << QByteArray("ttf-kochi-gothic") << "Japan [J]" << kochi;
    QTest::newRow("Japan with the second font")
        << QByteArray("Japan   [J]") << QByteArray("ttf-sazanami-gothic") << "Japan [J]"
        << kochi + sazanami;
    QTest::newRow("Japan without font")
        << QByteArray("Japan [J]") << QByteArray("ttf") << "Japan" << kochi + sazanami;
}

void SpecSelectorTest::aNativeNameNeedsItsFont()
{
    QFETCH(const QByteArray, name);
    QFETCH(const QByteArray, installed);
    const QByteArray language = qgetenv("LANG");
    qputenv("LANG", "de_DE.UTF-8");
    const FakeTools tools(*data);
    QVERIFY(tools.write(QStringLiteral("dpkg"), dpkgWith(installed)));
    QVERIFY(data->writeTable(name + "\ti\tpc104\tus\t\n"));
    QTEST(textsOfTable().value(0), "text");
    QTEST(tools.record(QStringLiteral("dpkg"), QStringLiteral("calls")), "calls");
    qputenv("LANG", language);
}

void SpecSelectorTest::everyPackageIsAskedForOnce()
{
    const FakeTools tools(*data);
    QVERIFY(tools.write(QStringLiteral("dpkg"), dpkgWith("ttf-baekmuk")));
    QVERIFY(data->writeTable(QByteArray("Korea [K]\ti\tpc104\tkr\t\n").repeated(20)));
    QCOMPARE(textsOfTable(), QStringList(20, QStringLiteral("Korea [K]")));
    QCOMPARE(tools.record(QStringLiteral("dpkg"), QStringLiteral("calls")).count('\n'), 1);
}

void SpecSelectorTest::aNativeNameComesWhenItIsShown()
{
    const FakeTools tools(*data);
    QVERIFY(tools.write(QStringLiteral("dpkg"), dpkgWith("ttf-baekmuk")));
    QVERIFY(data->writeTable("Korea [K]\ti\tpc104\tkr\t\n"
                             "Korea, 104 keys\ti\tpc104\tkr\tkr104\n"
                             "Brazil\ti\tpc104\tbr\t\n"));
    CKbdSpecSelector selector(true, nullptr, SpecTable::find());
    selector.select({QStringLiteral("pc104"), QStringLiteral("kr"), {}, {}});
    QCOMPARE(selector.currentText(), QStringLiteral("Korea"));
    QCOMPARE(tools.record(QStringLiteral("dpkg"), QStringLiteral("calls")), QByteArray());

    const QSignalSpy changes(&selector, &CKbdSpecSelector::currentChanged);
    selector.show();
    QTRY_COMPARE(selector.currentText(), QStringLiteral("Korea [K]"));
    QStringList sorted{
        QStringLiteral("Brazil"), QStringLiteral("Korea [K]"), QStringLiteral("Korea, 104 keys")};
    std::stable_sort(sorted.begin(), sorted.end(),
        [](const QString& a, const QString& b) { return QString::localeAwareCompare(a, b) < 0; });
    QCOMPARE(textsOf(selector), sorted << QStringLiteral("<Custom>"));
    QCOMPARE(changes.count(), 0);
    QCOMPARE(tools.record(QStringLiteral("dpkg"), QStringLiteral("calls")).count('\n'), 1);
}

void SpecSelectorTest::aBadPackageToolMeansNotInstalled_data()
{
    QTest::addColumn<QByteArray>("dpkg");
    QTest::addColumn<QByteArray>("grep");
    QTest::addColumn<int>("shortest");
    QTest::addColumn<int>("longest");
    const QByteArray installed = dpkgWith("ttf-baekmuk");
    const QByteArray finding = "exit 0\n";
    const int quick = 900; // milliseconds, less than the time that dpkg is given
    QTest::newRow("no dpkg") << QByteArray() << finding << 0 << quick;
    QTest::newRow("no grep") << installed << QByteArray() << 0 << quick;
    QTest::newRow("neither") << QByteArray() << QByteArray() << 0 << quick;
    QTest::newRow("dpkg hangs") << hangingTool << finding << 1000 << 2000;
    QTest::newRow("grep hangs") << installed << hangingTool << 100 << quick;
    QTest::newRow("both hang") << hangingTool << hangingTool << 1000 << 2000;
    QTest::newRow("grep crashes") << installed << QByteArray("kill -9 $$\n") << 0 << quick;
    QTest::newRow("grep fails") << installed << QByteArray("exit 2\n") << 0 << quick;
}

void SpecSelectorTest::aBadPackageToolMeansNotInstalled()
{
    QFETCH(const QByteArray, dpkg);
    QFETCH(const QByteArray, grep);
    QFETCH(int, shortest);
    QFETCH(int, longest);
    const FakeTools tools(*data);
    tools.hideOthers();
    QVERIFY(dpkg.isEmpty() || tools.write(QStringLiteral("dpkg"), dpkg));
    QVERIFY(grep.isEmpty() || tools.write(QStringLiteral("grep"), grep));
    QVERIFY(data->writeTable("Korea [K]\ti\tpc104\tkr\t\n"));

    QElapsedTimer timer;
    timer.start();
    QCOMPARE(textsOfTable(), QStringList{QStringLiteral("Korea")});
    const qint64 elapsed = timer.elapsed();
    QVERIFY2(elapsed >= shortest && elapsed < longest, qPrintable(QString::number(elapsed)));

    const QString process = QStringLiteral("process");
    QVERIFY(dpkg != hangingTool || isGone(tools.record(QStringLiteral("dpkg"), process)));
    QVERIFY(grep != hangingTool || isGone(tools.record(QStringLiteral("grep"), process)));
}

void SpecSelectorTest::aTalkativePackageToolIsUnderstood()
{
    const FakeTools tools(*data);
    QVERIFY(tools.write(QStringLiteral("dpkg"),
        "echo 'status: INSTALL ok Installed'\n"
        "i=0; while [ $i -lt 9999 ]; do echo 'Description: words and words'; i=$((i+1)); done\n"));
    QVERIFY(data->writeTable("Korea [K]\ti\tpc104\tkr\t\n"));
    QCOMPARE(textsOfTable(), QStringList{QStringLiteral("Korea [K]")});
}

void SpecSelectorTest::anIconIsLookedForInThreePlaces()
{
    const auto colour = [] { return middleOf(CKbdSpecSelector(false, nullptr).itemIcon(0)); };
    QVERIFY(data->writeTable("USA\tus.png\tpc104\tus\t\n"));
    QVERIFY(CKbdSpecSelector(false, nullptr).itemIcon(0).isNull());
    QVERIFY(data->write(QStringLiteral("../src/icons/us.png"), DataFixture::png(Qt::red)));
    QCOMPARE(colour(), QColor(Qt::red));
    QVERIFY(data->write(QStringLiteral("icons/us.png"), DataFixture::png(Qt::green)));
    QCOMPARE(colour(), QColor(Qt::green));
    const QString installed = KbdConstants::iconDirectory + QLatin1String("us.png");
    QVERIFY(data->write(installed, DataFixture::png(Qt::blue)));
    QCOMPARE(colour(), QColor(Qt::blue));
}

void SpecSelectorTest::anIconThatIsNoFileIsLeftOut_data()
{
    QTest::addColumn<QByteArray>("icon");
    QTest::newRow("no name") << QByteArray();
    QTest::newRow("a directory") << QByteArray("directory.png");
    QTest::newRow("a dangling link") << QByteArray("link.png");
    QTest::newRow("a path under a file") << QByteArray("file.png/us.png");
    QTest::newRow("a name with a NUL byte") << QByteArray("file.png\0", 9);
    QTest::newRow("a name of a megabyte") << QByteArray(1 << 20, 'm');
}

void SpecSelectorTest::anIconThatIsNoFileIsLeftOut()
{
    QFETCH(const QByteArray, icon);
    QVERIFY(data->write(QStringLiteral("icons/file.png"), DataFixture::png(Qt::red)));
    QVERIFY(QDir().mkdir(QStringLiteral("icons/directory.png")));
    QVERIFY(QFile::link(QStringLiteral("nowhere"), QStringLiteral("icons/link.png")));
    QVERIFY(data->writeTable("USA\t" + icon + "\tpc104\tus\t\n"));
    const CKbdSpecSelector selector(false, nullptr);
    QCOMPARE(selector.count(), 1);
    QVERIFY(selector.itemIcon(0).isNull());
}

void SpecSelectorTest::anImageIsDecodedWhenItIsDrawn()
{
    const QString path = QStringLiteral("icons/us.png");
    QVERIFY(data->writeTable("USA\tus.png\tpc104\tus\t\n"));
    QVERIFY(data->write(path, DataFixture::png(Qt::red)));
    const CKbdSpecSelector selector(false, nullptr);
    QVERIFY(data->write(path, DataFixture::png(Qt::blue)));
    QCOMPARE(middleOf(selector.itemIcon(0)), QColor(Qt::blue));

    QVERIFY(QFile::remove(path));
    QCOMPARE(middleOf(selector.itemIcon(0)), QColor(Qt::blue));
}

void SpecSelectorTest::aFileThatIsNoImageDrawsNothing()
{
    QVERIFY(data->writeTable("A\tus.png\tpc104\tus\t\nB\tempty.png\tpc104\tus\t\n"));
    QVERIFY(data->write(QStringLiteral("icons/us.png"), "words"));
    QVERIFY(data->write(QStringLiteral("icons/empty.png"), {}));
    CKbdSpecSelector selector(false, nullptr);
    QVERIFY(selector.itemIcon(0).pixmap(24, 18).isNull());
    QVERIFY(selector.itemIcon(1).pixmap(24, 18).isNull());
    QVERIFY(!selector.grab().isNull());
}

// Its size can be read.
void SpecSelectorTest::anImageThatBreaksOffDrawsNothing()
{
    const QByteArray whole = DataFixture::png(Qt::red);
    QVERIFY(data->write(QStringLiteral("us.png"), whole.first(whole.size() / 2)));
    const QIcon icon = FileIconEngine::iconOf(QStringLiteral("us.png"));
    QVERIFY(!icon.actualSize({24, 18}).isEmpty());
    QVERIFY(icon.pixmap(24, 18).isNull());
    QVERIFY(icon.actualSize({24, 18}).isEmpty());
}

void SpecSelectorTest::anIconKeepsItsShape_data()
{
    QTest::addColumn<QSize>("room");
    QTest::addColumn<QSize>("size");
    QTest::newRow("4 : 3") << QSize(24, 18) << QSize(24, 18);
    QTest::newRow("a square") << QSize(24, 24) << QSize(24, 18);
    QTest::newRow("a long box") << QSize(100, 18) << QSize(24, 18);
    QTest::newRow("more than the image") << QSize(1000, 1000) << QSize(320, 240);
}

void SpecSelectorTest::anIconKeepsItsShape()
{
    QFETCH(const QSize, room);
    QVERIFY(data->write(QStringLiteral("us.png"), DataFixture::png(Qt::red)));
    const QIcon icon = FileIconEngine::iconOf(QStringLiteral("us.png"));
    QTEST(icon.actualSize(room), "size");
    QTEST(icon.pixmap(room).size(), "size");
}

void SpecSelectorTest::customIsTheLastEntry()
{
    QVERIFY(data->writeTable(threeKeyboards));
    const CKbdSpecSelector with(true, nullptr);
    const QStringList texts{QStringLiteral("Germany"), QStringLiteral("Russia"),
        QStringLiteral("USA"), QStringLiteral("<Custom>")};
    QCOMPARE(textsOf(with), texts);
    QVERIFY(with.itemIcon(3).isNull());

    const CKbdSpecSelector without(false, nullptr);
    QCOMPARE(textsOf(without), texts.first(3));
}

void SpecSelectorTest::onlyTheCustomEntryIsCustom()
{
    QVERIFY(data->writeTable(threeKeyboards));
    const CKbdSpecSelector selector(false, nullptr);
    QVERIFY(!selector.isCustom(-1));
    QVERIFY(!selector.isCustom(0));
    QVERIFY(!selector.isCustom(2));
    QVERIFY(selector.isCustom(3));
    QVERIFY(!selector.isCustom(4));
}

void SpecSelectorTest::anEmptyTableHasOnlyCustom_data()
{
    QTest::addColumn<bool>("withCustom");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("with the entry") << true << QStringList{QStringLiteral("<Custom>")};
    QTest::newRow("without it") << false << QStringList();
}

void SpecSelectorTest::anEmptyTableHasOnlyCustom()
{
    QFETCH(bool, withCustom);
    QVERIFY(data->writeTable("# no keyboards\n"));
    const CKbdSpecSelector selector(withCustom, nullptr);
    QTEST(textsOf(selector), "texts");
    QCOMPARE(selector.currentModel(), QStringLiteral("pc104"));
    QCOMPARE(selector.currentIconFile(), QString());
    QVERIFY(selector.isCustom(0));
}

void SpecSelectorTest::theControlRefusesTheFocus()
{
    QVERIFY(data->writeTable(threeKeyboards));
    QCOMPARE(CKbdSpecSelector(true, nullptr).focusPolicy(), Qt::NoFocus);
}

void SpecSelectorTest::aDescriptionSelectsItsEntry_data()
{
    QTest::addColumn<QStringList>("description");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, const char* description, const char* text) {
        QTest::newRow(name) << QString::fromLatin1(description).split(QLatin1Char('|'))
                            << QString::fromLatin1(text);
    };
    row("an empty variant", "pc104|us|", "USA");
    row("a variant", "pc105|de|nodeadkeys", "Germany");
    row("lists", "pc105|us,ru|,phonetic", "Russia");
    row("a variant that the entry has not", "pc104|us|intl", "<Custom>");
    row("no variant where the entry has one", "pc105|de|", "<Custom>");
    row("another model", "pc105|us|", "<Custom>");
    row("another layout", "pc104|de|", "<Custom>");
    row("one layout of two", "pc105|ru|phonetic", "<Custom>");
}

void SpecSelectorTest::aDescriptionSelectsItsEntry()
{
    QFETCH(const QStringList, description);
    QVERIFY(data->writeTable(threeKeyboards));
    CKbdSpecSelector selector(true, nullptr);
    selector.setCurrent(description.at(0), description.at(1), description.at(2));
    QTEST(selector.currentText(), "text");
}

void SpecSelectorTest::aDescriptionWithoutEntryOrItemSelectsNothing()
{
    QVERIFY(data->writeTable(threeKeyboards));
    CKbdSpecSelector selector(true, nullptr);
    selector.removeItem(selector.count() - 1);
    selector.setCurrent(QStringLiteral("x"), QStringLiteral("y"), QStringLiteral("z"));
    QCOMPARE(selector.currentIndex(), -1);
    QCOMPARE(selector.currentModel(), QStringLiteral("pc104"));
    QCOMPARE(selector.currentIconFile(), QString());
}

void SpecSelectorTest::aNameSelectsTheLastEntry_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("passed");
    const QString custom = QStringLiteral("<Custom>");
    QTest::newRow("a name of the table")
        << "Russia" << QStringList{QStringLiteral("Russia"), custom};
    QTest::newRow("an unknown name") << "Atlantis" << QStringList{custom};
}

void SpecSelectorTest::aNameSelectsTheLastEntry()
{
    QFETCH(const QString, name);
    QVERIFY(data->writeTable(threeKeyboards));
    CKbdSpecSelector selector(true, nullptr);
    QStringList passed;
    connect(&selector, &CKbdSpecSelector::currentChanged, this,
        [&](const kbdSpec_t* spec) { passed.append(spec->name); });
    selector.setCurrent(name);
    QCOMPARE(selector.currentText(), QStringLiteral("<Custom>"));
    QTEST(passed, "passed");
}

void SpecSelectorTest::theCurrentKeyboardIsTheEntrys()
{
    QVERIFY(data->writeTable(threeKeyboards));
    CKbdSpecSelector selector(true, nullptr);
    selector.setCurrentIndex(0);
    QCOMPARE(selector.currentModel(), QStringLiteral("pc105"));
    QCOMPARE(selector.currentLayout(), QStringLiteral("de"));
    QCOMPARE(selector.currentVariant(), QStringLiteral("nodeadkeys"));
    QCOMPARE(selector.currentIconFile(), QStringLiteral("blue.png"));

    // The last entry of the table is no "last entry" once "<Custom>" is no longer offered.
    selector.removeItem(3);
    selector.setCurrentIndex(2);
    QCOMPARE(selector.currentVariant(), QString());
}

void SpecSelectorTest::withoutAnEntryTheKeyboardIsTheDefault_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("no current entry") << -1;
    QTest::newRow("the custom entry") << 3;
}

void SpecSelectorTest::withoutAnEntryTheKeyboardIsTheDefault()
{
    QFETCH(int, index);
    QVERIFY(data->writeTable(threeKeyboards));
    CKbdSpecSelector selector(true, nullptr);
    selector.setCurrentIndex(index);
    QCOMPARE(selector.currentModel(), QStringLiteral("pc104"));
    QCOMPARE(selector.currentLayout(), QStringLiteral("us"));
    QCOMPARE(selector.currentVariant(), QStringLiteral("wincompat"));
    QCOMPARE(selector.currentIconFile(), QString());
}

void SpecSelectorTest::everyChangeIsReportedOnce()
{
    QVERIFY(data->writeTable(threeKeyboards));
    CKbdSpecSelector selector(true, nullptr);
    QStringList changes;
    connect(&selector, &CKbdSpecSelector::currentChanged, this,
        [&](const kbdSpec_t* spec) { changes.append(spec->displayName); });
    QSignalSpy activated(&selector, qOverload<kbdSpec_t*>(&CKbdSpecSelector::activated));

    selector.setCurrentIndex(1);
    selector.setCurrentIndex(1);
    selector.setCurrentIndex(3);
    selector.setCurrentIndex(-1);
    QCOMPARE(changes, QStringList({QStringLiteral("Russia"), QStringLiteral("<Custom>")}));
    QCOMPARE(activated.count(), 0);
}

void SpecSelectorTest::indicesThatNoEntryHasAreIgnored_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("negative") << -1;
    QTest::newRow("the number of entries") << 4;
    QTest::newRow("beyond") << 1000;
}

void SpecSelectorTest::indicesThatNoEntryHasAreIgnored()
{
    QFETCH(int, index);
    QVERIFY(data->writeTable(threeKeyboards));
    CKbdSpecSelector selector(true, nullptr);
    QSignalSpy changed(&selector, &CKbdSpecSelector::currentChanged);
    QSignalSpy activated(&selector, qOverload<kbdSpec_t*>(&CKbdSpecSelector::activated));
    selector.selectionChanged(index);
    selector.userSelectionChanged(index);
    QCOMPARE(changed.count(), 0);
    QCOMPARE(activated.count(), 0);
}

void SpecSelectorTest::aChoiceReportsTheKeyboard_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QStringList>("lines");
    QTest::newRow("a keyboard with a variant")
        << 0
        << QStringList{QStringLiteral("Germany"), QStringLiteral("model pc105"),
               QStringLiteral("layout de"), QStringLiteral("variant nodeadkeys")};
    QTest::newRow("a keyboard without variant")
        << 2
        << QStringList{
               QStringLiteral("USA"), QStringLiteral("model pc104"), QStringLiteral("layout us")};
    QTest::newRow("custom") << 3 << QStringList{QStringLiteral("<Custom>")};
}

void SpecSelectorTest::aChoiceReportsTheKeyboard()
{
    QFETCH(int, index);
    QVERIFY(data->writeTable(threeKeyboards));
    CKbdSpecSelector selector(true, nullptr);
    const ChoiceLog log(selector);
    emit static_cast<QComboBox&>(selector).activated(index);
    QTEST(log.lines, "lines");
}

// The table gives no second keyboards, but the record has room for one.
void SpecSelectorTest::aSecondaryKeyboardIsReportedToo()
{
    QVERIFY(data->writeTable(threeKeyboards));
    CKbdSpecSelector selector(true, nullptr);
    connect(&selector, &CKbdSpecSelector::currentChanged, this, [](kbdSpec_t* spec) {
        spec->models.append(QStringLiteral("pc102"));
        spec->layouts.append(QStringLiteral("gr"));
        spec->variants.append(
            spec->variants.at(0).isEmpty() ? QString() : QStringLiteral("polytonic"));
    });
    selector.selectionChanged(0);
    selector.selectionChanged(2);

    const ChoiceLog log(selector);
    selector.userSelectionChanged(0);
    selector.userSelectionChanged(2);
    const QStringList expected{QStringLiteral("Germany"), QStringLiteral("model pc105"),
        QStringLiteral("layout de"), QStringLiteral("variant nodeadkeys"),
        QStringLiteral("second model pc102"), QStringLiteral("second layout gr"),
        QStringLiteral("second variant polytonic"), QStringLiteral("USA"),
        QStringLiteral("model pc104"), QStringLiteral("layout us"),
        QStringLiteral("second model pc102"), QStringLiteral("second layout gr")};
    QCOMPARE(log.lines, expected);

    selector.setCurrent(QStringLiteral("pc102"), QStringLiteral("gr"), QStringLiteral("polytonic"));
    QCOMPARE(selector.currentText(), QStringLiteral("Germany"));
}

QTEST_MAIN(SpecSelectorTest)
#include "tst_specselector.moc"
