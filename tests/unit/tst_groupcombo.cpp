#include "CaptionedComboChecks.h"
#include "DataFixture.h"
#include "ui/GroupCombo.h"

#include <QComboBox>
#include <QLabel>
#include <QMainWindow>
#include <QPointer>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

#include <memory>

namespace {

using CaptionedComboChecks::comboOf;
using CaptionedComboChecks::labelOf;
using CaptionedComboChecks::middleOf;

const QStringList twoGroups{QStringLiteral("English (US)"), QStringLiteral("German")};

std::unique_ptr<GroupCombo> makeControl(bool iconOnly, QWidget* parent)
{
    return std::make_unique<GroupCombo>(twoGroups, iconOnly, parent);
}

QStringList textsOf(const GroupCombo& control)
{
    QStringList texts;
    for (int i = 0; i < comboOf(control)->count(); ++i)
        texts.append(comboOf(control)->itemText(i));
    return texts;
}

// The colour of an item's flag, invalid when it has none.
QColor flagOf(const GroupCombo& control, int index)
{
    const QIcon icon = comboOf(control)->itemIcon(index);
    return icon.isNull() ? QColor() : middleOf(icon);
}

// Icons named after their colours, where the program's data are installed.
void installFlags()
{
    const QString icons = DataFixture::installed(QStringLiteral("icons/"));
    QVERIFY(DataFixture::write(icons + QLatin1String("red.png"), DataFixture::png(Qt::red)));
    QVERIFY(DataFixture::write(icons + QLatin1String("blue.png"), DataFixture::png(Qt::blue)));
}

} // namespace

class GroupComboTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void captionAndComboStandInARow();
    void inIconOnlyModeThereIsNoCaption();
    void newItemsKeepTheCurrentIndex_data();
    void newItemsKeepTheCurrentIndex();
    void newItemsReportTheirIndexOnce_data() { newItemsKeepTheCurrentIndex_data(); }
    void newItemsReportTheirIndexOnce();
    void noItemsInPlaceOfNoneReportNothing();
    void aLayoutFindsItsFlag_data();
    void aLayoutFindsItsFlag();
    void theFlagTableIsLookedForInTwoPlaces();
    void aMissingFlagFileShowsNoFlag();
    void aNewLayoutClearsTheOldFlag();
    void layoutsAddTheItemsThatAreMissing();
    void inIconOnlyModeAGroupWithoutFlagHasItsNumber();
    void withoutATableThereAreNoFlags_data();
    void withoutATableThereAreNoFlags();
    void aChoiceOfTheUserIsPassedOn();
    void aChangeIsPassedOn();
    void dataIsReportedWhereThereIsAny_data();
    void dataIsReportedWhereThereIsAny();
    void inIconOnlyModeDataAddsNumberedItems();
    void withNamesDataAddsNoItems();
    void captionAndComboShowAndHideTogether_data();
    void captionAndComboShowAndHideTogether();
    void aWidgetWithALayoutKeepsIt();
    void aLongNameDoesNotStretchTheWindow();
    void deletingTheControlDeletesItsWidgets();
    void deletingTheWindowDeletesEachWidgetOnce();

private:
    std::unique_ptr<DataFixture> data;
};

void GroupComboTest::init()
{
    QVERIFY(DataFixture::isApart());
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    data = std::make_unique<DataFixture>();
}

void GroupComboTest::cleanup()
{
    data.reset();
}

void GroupComboTest::captionAndComboStandInARow()
{
    const GroupCombo control(twoGroups, false, nullptr);
    QCOMPARE(control.direction(), QBoxLayout::LeftToRight);
    QCOMPARE(control.count(), 2);
    QCOMPARE(labelOf(control)->text(), QStringLiteral("Group: "));
    QCOMPARE(labelOf(control)->focusPolicy(), Qt::NoFocus);
    QCOMPARE(comboOf(control)->focusPolicy(), Qt::NoFocus);
    QCOMPARE(textsOf(control), twoGroups);
    QCOMPARE(comboOf(control)->currentIndex(), 0);
}

void GroupComboTest::inIconOnlyModeThereIsNoCaption()
{
    const GroupCombo control(twoGroups, true, nullptr);
    QVERIFY(labelOf(control)->isHidden());
}

void GroupComboTest::newItemsKeepTheCurrentIndex_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<QStringList>("items");
    QTest::addColumn<int>("after");
    const QStringList one{QStringLiteral("a")};
    const QStringList three{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")};
    QTest::newRow("as many") << 1 << QStringList{twoGroups.at(1), twoGroups.at(0)} << 1;
    QTest::newRow("more") << 1 << three << 1;
    QTest::newRow("fewer, the first was current") << 0 << one << 0;
    QTest::newRow("fewer, the last was current") << 1 << one << 0;
    QTest::newRow("none was current") << -1 << three << 0;
    QTest::newRow("none left") << 1 << QStringList() << -1;
}

void GroupComboTest::newItemsKeepTheCurrentIndex()
{
    QFETCH(int, before);
    QFETCH(const QStringList, items);
    GroupCombo control(twoGroups, false, nullptr);
    comboOf(control)->setCurrentIndex(before);
    control.setItems(items);
    QCOMPARE(textsOf(control), items);
    QTEST(comboOf(control)->currentIndex(), "after");
}

void GroupComboTest::newItemsReportTheirIndexOnce()
{
    QFETCH(int, before);
    QFETCH(const QStringList, items);
    QFETCH(int, after);
    GroupCombo control(twoGroups, false, nullptr);
    comboOf(control)->setCurrentIndex(before);
    const QSignalSpy changed(&control, &GroupCombo::currentIndexChanged);
    control.setItems(items);
    QCOMPARE(changed, QList<QVariantList>{{after}});
}

void GroupComboTest::noItemsInPlaceOfNoneReportNothing()
{
    GroupCombo control({}, false, nullptr);
    const QSignalSpy changed(&control, &GroupCombo::currentIndexChanged);
    control.setItems({});
    QCOMPARE(changed.count(), 0);
}

void GroupComboTest::aLayoutFindsItsFlag_data()
{
    QTest::addColumn<QByteArray>("table");
    QTest::addColumn<QString>("layout");
    QTest::addColumn<QColor>("flag");
    const QColor red(Qt::red);
    const QColor blue(Qt::blue);
    const QColor none;
    const auto row = [](const char* name, const QByteArray& table, const char* layout,
                         const QColor& flag) {
        QTest::newRow(name) << table << QString::fromLatin1(layout) << flag;
    };
    row("its line", "A\tred.png\tpc104\tus\t\n", "us", red);
    row("a line without variant field", "A\tred.png\tpc104\tus\n", "us", red);
    row("another layout's line", "A\tred.png\tpc104\tus\t\n", "de", none);
    row("the later line", "A\tred.png\tpc104\tus\t\nB\tblue.png\tpc104\tus\t\n", "us", blue);
    row("the first of two layouts", "A\tred.png\tpc104\tus,de\t\n", "us", red);
    row("not the second of two layouts", "A\tred.png\tpc104\tus,de\t\n", "de", none);
    row("a comma at the start stays", "A\tred.png\tpc104\t,de\t\n", ",de", red);
    row("what a bracket follows", "A\tred.png\tpc104\tus [x]\t\n", "us", red);
    row("a bracket at the start stays", "A\tred.png\tpc104\t[us\t\n", "[us", red);
    row("blanks around it", "A\tred.png\tpc104\t  us \t\n", "us", red);
    row("a line without name", " \tred.png\tpc104\tus\t\n", "us", none);
    row("a line without icon", "A\t\tpc104\tus\t\n", "us", none);
    row("a line without layout", "A\tred.png\tpc104\t\t\n", "", none);
    row("a comment", "#A\tred.png\tpc104\tus\t\n", "us", none);
    row("a group suffix is no part of it", "A\tred.png\tpc104\tde\t\n", "de:2", red);
    row("a first group suffix", "A\tred.png\tpc104\tus\t\n", "us:1", red);
}

void GroupComboTest::aLayoutFindsItsFlag()
{
    QFETCH(const QByteArray, table);
    QFETCH(const QString, layout);
    installFlags();
    QVERIFY(data->writeTable(table));
    GroupCombo control(twoGroups, false, nullptr);
    control.setGroupLayouts({layout});
    QTEST(flagOf(control, 0), "flag");
    QCOMPARE(textsOf(control), twoGroups);
}

void GroupComboTest::theFlagTableIsLookedForInTwoPlaces()
{
    installFlags();
    QVERIFY(data->write(QStringLiteral("../src/kbdSpecs.tab"), "A\tred.png\tpc104\tus\t\n"));
    GroupCombo control({}, false, nullptr);
    control.setGroupLayouts({QStringLiteral("us")});
    QCOMPARE(flagOf(control, 0), QColor());

    QVERIFY(data->writeTable("A\tred.png\tpc104\tus\t\n"));
    GroupCombo local({}, false, nullptr);
    local.setGroupLayouts({QStringLiteral("us")});
    QCOMPARE(flagOf(local, 0), QColor(Qt::red));

    QVERIFY(data->write(KbdConstants::specTablePath, "A\tblue.png\tpc104\tus\t\n"));
    GroupCombo installed({}, false, nullptr);
    installed.setGroupLayouts({QStringLiteral("us")});
    QCOMPARE(flagOf(installed, 0), QColor(Qt::blue));
}

void GroupComboTest::aMissingFlagFileShowsNoFlag()
{
    QVERIFY(data->writeTable("A\tred.png\tpc104\tus\t\n"));
    GroupCombo control(twoGroups, false, nullptr);
    control.setGroupLayouts({QStringLiteral("us")});
    QCOMPARE(flagOf(control, 0), QColor());
}

void GroupComboTest::aNewLayoutClearsTheOldFlag()
{
    installFlags();
    QVERIFY(data->writeTable("A\tred.png\tpc104\tus\t\n"));
    GroupCombo control(twoGroups, false, nullptr);
    control.setGroupLayouts({QStringLiteral("us")});
    control.setGroupLayouts({QStringLiteral("xx")});
    QCOMPARE(flagOf(control, 0), QColor());
}

void GroupComboTest::layoutsAddTheItemsThatAreMissing()
{
    installFlags();
    QVERIFY(data->writeTable("A\tred.png\tpc104\tus\t\n"));
    GroupCombo control({}, false, nullptr);
    control.setGroupLayouts({QStringLiteral("xx"), QStringLiteral("us")});
    QCOMPARE(textsOf(control), QStringList({QString(), QString()}));
    QCOMPARE(flagOf(control, 0), QColor());
    QCOMPARE(flagOf(control, 1), QColor(Qt::red));
}

void GroupComboTest::inIconOnlyModeAGroupWithoutFlagHasItsNumber()
{
    installFlags();
    QVERIFY(data->writeTable("A\tred.png\tpc104\tus\t\n"));
    GroupCombo control(twoGroups, true, nullptr);
    control.setGroupLayouts({QStringLiteral("us"), QStringLiteral("xx")});
    QCOMPARE(textsOf(control), QStringList({QString(), QStringLiteral("2")}));
}

void GroupComboTest::withoutATableThereAreNoFlags_data()
{
    QTest::addColumn<QString>("directory");
    QTest::newRow("no table") << QString();
    QTest::newRow("a directory in its place") << QStringLiteral("kbdSpecs.tab");
}

void GroupComboTest::withoutATableThereAreNoFlags()
{
    QFETCH(const QString, directory);
    QVERIFY(directory.isEmpty() || QDir().mkdir(directory));
    GroupCombo control(twoGroups, false, nullptr);
    control.setGroupLayouts({QStringLiteral("us"), QStringLiteral("de")});
    QCOMPARE(textsOf(control), twoGroups);
    QCOMPARE(flagOf(control, 0), QColor());
}

void GroupComboTest::aChoiceOfTheUserIsPassedOn()
{
    GroupCombo control(twoGroups, false, nullptr);
    QSignalSpy activated(&control, &GroupCombo::activated);
    QSignalSpy activatedData(&control, &GroupCombo::activatedData);
    emit comboOf(control)->activated(1);
    QCOMPARE(activated, QList<QVariantList>{{1}});
    QCOMPARE(activatedData.count(), 0);
}

void GroupComboTest::aChangeIsPassedOn()
{
    GroupCombo control(twoGroups, false, nullptr);
    QSignalSpy changed(&control, &GroupCombo::currentIndexChanged);
    QSignalSpy changedData(&control, &GroupCombo::currentDataChanged);
    comboOf(control)->setCurrentIndex(1);
    comboOf(control)->setCurrentIndex(-1);
    const QList<QVariantList> expected{{1}, {-1}};
    QCOMPARE(changed, expected);
    QCOMPARE(changedData.count(), 0);
}

void GroupComboTest::dataIsReportedWhereThereIsAny_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QStringList>("reported");
    QTest::newRow("the first") << 0 << QStringList{QStringLiteral("one")};
    QTest::newRow("the last") << 1 << QStringList{QStringLiteral("two")};
    QTest::newRow("beyond the data") << 2 << QStringList();
    QTest::newRow("no item") << -1 << QStringList();
}

void GroupComboTest::dataIsReportedWhereThereIsAny()
{
    QFETCH(int, index);
    GroupCombo control(twoGroups, false, nullptr);
    control.setData({QStringLiteral("gone")});
    control.setData({QStringLiteral("one"), QStringLiteral("two")});
    QStringList activated;
    QStringList changed;
    connect(&control, &GroupCombo::activatedData, &control,
        [&](const QString& text) { activated.append(text); });
    connect(&control, &GroupCombo::currentDataChanged, &control,
        [&](const QString& text) { changed.append(text); });
    emit comboOf(control)->activated(index);
    emit comboOf(control)->currentIndexChanged(index);
    QTEST(activated, "reported");
    QTEST(changed, "reported");
}

void GroupComboTest::inIconOnlyModeDataAddsNumberedItems()
{
    GroupCombo control({QStringLiteral("a")}, true, nullptr);
    control.setData({QStringLiteral("x"), QStringLiteral("y"), QStringLiteral("z")});
    QCOMPARE(textsOf(control),
        QStringList({QStringLiteral("a"), QStringLiteral("2"), QStringLiteral("3")}));
}

void GroupComboTest::withNamesDataAddsNoItems()
{
    GroupCombo control({QStringLiteral("a")}, false, nullptr);
    control.setData({QStringLiteral("x"), QStringLiteral("y")});
    QCOMPARE(textsOf(control), QStringList{QStringLiteral("a")});
}

void GroupComboTest::captionAndComboShowAndHideTogether_data()
{
    QTest::addColumn<bool>("iconOnly");
    QTest::newRow("with a caption") << false;
    QTest::newRow("icon-only") << true;
}

void GroupComboTest::captionAndComboShowAndHideTogether()
{
    QFETCH(bool, iconOnly);
    CaptionedComboChecks::showsAndHidesAsOne(iconOnly, makeControl);
}

void GroupComboTest::aWidgetWithALayoutKeepsIt()
{
    CaptionedComboChecks::leavesAWidgetItsLayout(makeControl);
}

void GroupComboTest::aLongNameDoesNotStretchTheWindow()
{
    QWidget window;
    GroupCombo control({QString(2000, QLatin1Char('m'))}, false, &window);
    QVERIFY(window.sizeHint().width() < 1000);
    QVERIFY(window.minimumSizeHint().width() < 1000);
}

void GroupComboTest::deletingTheControlDeletesItsWidgets()
{
    CaptionedComboChecks::takesItsWidgetsWithIt(makeControl);
}

void GroupComboTest::deletingTheWindowDeletesEachWidgetOnce()
{
    CaptionedComboChecks::goesWithItsWindow(makeControl);
}

QTEST_MAIN(GroupComboTest)
#include "tst_groupcombo.moc"
