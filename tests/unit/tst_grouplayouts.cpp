#include "model/GroupLayouts.h"

#include <QTest>

class GroupLayoutsTest : public QObject {
    Q_OBJECT

private slots:
    void layoutsAreTakenOutOfTheSymbolsName_data();
    void layoutsAreTakenOutOfTheSymbolsName();
    void atMostAThousandCharactersOfAVariantAreCut();

    void eachGroupHasItsLayoutAndVariant_data();
    void eachGroupHasItsLayoutAndVariant();
};

void GroupLayoutsTest::layoutsAreTakenOutOfTheSymbolsName_data()
{
    QTest::addColumn<QString>("symbolsName");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("two layouts and a variant, with the second group's ending")
        << "pc+us+de(nodeadkeys)+inet(evdev):2" << QStringList{"us", "de"};
    QTest::newRow("one layout") << "pc+us+inet(evdev)" << QStringList{"us"};
    QTest::newRow("a variant alone") << "pc+us(intl)" << QStringList{"us"};
    QTest::newRow("an option behind the multimedia part stays")
        << "pc+us+inet(evdev)+compose(ralt)" << QStringList{"us", "compose"};
    QTest::newRow("a group suffix inside stays with its layout")
        << "pc+us+de:2+inet(evdev)" << QStringList{"us", "de:2"};
    QTest::newRow("a suffix behind a variant is cut with it")
        << "pc+us+de(nodeadkeys):2+ru:3+inet(evdev)" << QStringList{"us", "de", "ru:3"};
    QTest::newRow("every multimedia part goes")
        << "pc+inet(pc105)+us+inet(evdev)+inetfoo" << QStringList{"us"};
    QTest::newRow("a multimedia part in front") << "inet(evdev)+us" << QStringList{"us"};
    QTest::newRow("only a leading \"pc+\" goes") << "us+pc+de" << QStringList{"us", "pc", "de"};
    QTest::newRow("another beginning stays") << "pc(pc105)+us" << QStringList{"pc", "us"};
    QTest::newRow("a layout whose name begins so") << "pcx+us" << QStringList{"pcx", "us"};
    QTest::newRow("only the ending \":2\" goes") << "pc+us:1" << QStringList{"us:1"};
    QTest::newRow("the ending behind a layout") << "pc+de:2" << QStringList{"de"};
    QTest::newRow("the text behind a variant goes as well")
        << "pc+us(a)b+de" << QStringList{"us", "de"};
    QTest::newRow("nothing") << QString() << QStringList{QString()};
}

void GroupLayoutsTest::layoutsAreTakenOutOfTheSymbolsName()
{
    QFETCH(QString, symbolsName);
    QTEST(groupLayoutsOf(symbolsName), "expected");
}

void GroupLayoutsTest::atMostAThousandCharactersOfAVariantAreCut()
{
    const QString parenthesis(QLatin1Char('('));
    const QString name = "us" + parenthesis + QString(999, 'x');
    QCOMPARE(groupLayoutsOf(name + "rest"), QStringList{"usrest"});
    QCOMPARE(groupLayoutsOf(name), QStringList{"us"});
}

void GroupLayoutsTest::eachGroupHasItsLayoutAndVariant_data()
{
    QTest::addColumn<QString>("symbolsName");
    QTest::addColumn<int>("groups");
    QTest::addColumn<QStringList>("layouts");
    QTest::addColumn<QStringList>("variants");

    QTest::newRow("one group") << "pc+us+inet(evdev)" << 1 << QStringList{"us"} << QStringList{""};
    QTest::newRow("two groups, the second with a variant")
        << "pc+us+de(nodeadkeys):2+inet(evdev)" << 2 << QStringList{"us", "de"}
        << QStringList{"", "nodeadkeys"};
    QTest::newRow("four groups") << "pc+us(intl)+de:2+ru(phonetic):3+gr:4+inet(evdev)" << 4
                                 << QStringList{"us", "de", "ru", "gr"}
                                 << QStringList{"intl", "", "phonetic", ""};
    QTest::newRow("in another order")
        << "pc+de:2+us:1" << 2 << QStringList{"us", "de"} << QStringList{"", ""};
    QTest::newRow("a group without a name")
        << "pc+us+ru:3+inet(evdev)" << 3 << QStringList{"us", "", "ru"} << QStringList{"", "", ""};
    QTest::newRow("more groups than names")
        << "pc+us+inet(evdev)" << 2 << QStringList{"us", ""} << QStringList{"", ""};
    QTest::newRow("more names than groups")
        << "pc+us+de:2+inet(evdev)" << 1 << QStringList{"us"} << QStringList{""};
    QTest::newRow("options behind the multimedia part are no layouts")
        << "pc+us+inet(evdev)+group(alt_shift_toggle)+level3(ralt_switch):2" << 2
        << QStringList{"us", ""} << QStringList{"", ""};
    QTest::newRow("an option in front of it names no group again")
        << "pc+us(intl)+level3(ralt_switch)+inet(evdev)" << 1 << QStringList{"us"}
        << QStringList{"intl"};
    QTest::newRow("a suffix that is no group")
        << "pc+us:5+de" << 1 << QStringList{"de"} << QStringList{""};
    QTest::newRow("no name") << QString() << 1 << QStringList{""} << QStringList{""};
    QTest::newRow("a broken name") << "pc+us(intl" << 1 << QStringList{""} << QStringList{""};
    QTest::newRow("no groups") << "pc+us+inet(evdev)" << 0 << QStringList() << QStringList();
}

void GroupLayoutsTest::eachGroupHasItsLayoutAndVariant()
{
    QFETCH(QString, symbolsName);
    QFETCH(int, groups);
    const GroupNames names = groupNamesOf(symbolsName, groups);
    QTEST(names.layouts, "layouts");
    QTEST(names.variants, "variants");
}

QTEST_APPLESS_MAIN(GroupLayoutsTest)

#include "tst_grouplayouts.moc"
