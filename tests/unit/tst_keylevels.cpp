#include "FakeKeymap.h"

#include "keys/KeyLevels.h"

#include <QTest>

namespace {

// The group information byte of a key (XKB protocol, "Key Symbol Map").
constexpr unsigned char clamp = 0x40;
constexpr unsigned char redirect = 0x80;
constexpr int noGroup = -1;

constexpr unsigned char redirectTo(int group)
{
    return static_cast<unsigned char>(redirect | group << 4);
}

constexpr ShiftMask_t shift = x11::shiftMask;
constexpr ShiftMask_t lock = x11::lockMask;
constexpr ShiftMask_t mod1 = 8;
constexpr ShiftMask_t mod3 = 32;
constexpr ShiftMask_t mod5 = x11::mod5Mask;

constexpr ShiftMask_t both(ShiftMask_t a, ShiftMask_t b)
{
    return static_cast<ShiftMask_t>(a | b);
}

using Entries = QList<FakeKeymap::Entry>;
using Levels = std::array<std::optional<int>, 4>;

} // namespace

Q_DECLARE_METATYPE(Levels)

class KeyLevelsTest : public QObject {
    Q_OBJECT

private slots:
    void aGroupIsWrapped_data();
    void aGroupIsWrapped();

    void theLastEntryThatIsContainedGivesTheLevel_data();
    void theLastEntryThatIsContainedGivesTheLevel();

    void aCapShowsTheFirstLevelOfEachPosition_data();
    void aCapShowsTheFirstLevelOfEachPosition();
    void aCapCountsItsPositions();
    void aCapShowsOnlyTheLevelsOnItsPositions();
    void aThirdLevelNeedsNoShiftedOne();
};

void KeyLevelsTest::aGroupIsWrapped_data()
{
    QTest::addColumn<int>("groupInfo");
    QTest::addColumn<int>("wanted");
    QTest::addColumn<int>("expected");

    QTest::newRow("no groups") << 0 << 0 << noGroup;
    QTest::newRow("no groups, clamped") << int(clamp) << 1 << noGroup;
    QTest::newRow("no groups, redirected") << int(redirectTo(1)) << 1 << noGroup;

    QTest::newRow("the first of one") << 1 << 0 << 0;
    QTest::newRow("the second of two") << 2 << 1 << 1;
    QTest::newRow("the fourth of four") << 4 << 3 << 3;
    QTest::newRow("there, though clamped") << (2 | clamp) << 0 << 0;
    QTest::newRow("there, though redirected") << (2 | redirectTo(1)) << 0 << 0;

    QTest::newRow("the second of one wraps to the first") << 1 << 1 << 0;
    QTest::newRow("the third of two wraps to the first") << 2 << 2 << 0;
    QTest::newRow("the fourth of two wraps to the second") << 2 << 3 << 1;
    QTest::newRow("the fourth of three wraps to the first") << 3 << 3 << 0;
    QTest::newRow("wrapping ignores the target") << (2 | 0x10) << 2 << 0;

    QTest::newRow("the third of two is clamped to the second") << (2 | clamp) << 2 << 1;
    QTest::newRow("the fourth of two is clamped to the second") << (2 | clamp) << 3 << 1;
    QTest::newRow("the fourth of one is clamped to the first") << (1 | clamp) << 3 << 0;
    QTest::newRow("clamping ignores the target") << (3 | clamp | 0x10) << 3 << 2;

    QTest::newRow("the fourth of two is redirected to the first") << (2 | redirectTo(0)) << 3 << 0;
    QTest::newRow("the third of two is redirected to the second") << (2 | redirectTo(1)) << 2 << 1;
    QTest::newRow("the fourth of three is redirected to the third")
        << (3 | redirectTo(2)) << 3 << 2;
    QTest::newRow("a target that is not there is the first") << (2 | redirectTo(2)) << 3 << 0;
    QTest::newRow("the highest target that is not there") << (3 | redirectTo(3)) << 3 << 0;
    QTest::newRow("redirecting goes before clamping") << (2 | clamp | redirectTo(0)) << 3 << 0;
}

void KeyLevelsTest::aGroupIsWrapped()
{
    QFETCH(int, groupInfo);
    QFETCH(int, wanted);
    QTEST(effectiveGroup(static_cast<unsigned char>(groupInfo), wanted).value_or(noGroup),
        "expected");
}

void KeyLevelsTest::theLastEntryThatIsContainedGivesTheLevel_data()
{
    QTest::addColumn<Entries>("entries");
    QTest::addColumn<ShiftMask_t>("state");
    QTest::addColumn<int>("expected");

    const Entries shifted{{shift, 1}};
    QTest::newRow("no entries") << Entries() << both(shift, lock) << 0;
    QTest::newRow("no modifiers") << shifted << ShiftMask_t(0) << 0;
    QTest::newRow("its modifier") << shifted << shift << 1;
    QTest::newRow("another modifier") << shifted << lock << 0;
    QTest::newRow("an unrelated modifier beside it") << shifted << both(shift, mod1) << 1;
    QTest::newRow("every modifier") << shifted << ShiftMask_t(255) << 1;

    const Entries alphabetic{{shift, 1}, {both(shift, lock), 0}};
    QTest::newRow("two match, the later one counts") << alphabetic << both(shift, lock) << 0;
    QTest::newRow("one of two matches") << alphabetic << shift << 1;
    const Entries reversed{{both(shift, lock), 2}, {shift, 1}};
    QTest::newRow("the later one counts, however little it asks")
        << reversed << both(shift, lock) << 1;

    const Entries third{{shift, 1}, {mod5, 2}, {both(shift, mod5), 3}};
    QTest::newRow("half of an entry's modifiers") << third << mod5 << 2;
    QTest::newRow("all of an entry's modifiers") << third << both(shift, mod5) << 3;

    QTest::newRow("an entry that asks nothing") << Entries{{0, 1}} << ShiftMask_t(0) << 1;
    QTest::newRow("an entry that asks nothing comes last")
        << Entries{{shift, 2}, {0, 1}} << shift << 1;
    QTest::newRow("an entry that is not active")
        << Entries{{shift, 1}, {shift, 2, false}} << shift << 1;
    QTest::newRow("none but an entry that is not active") << Entries{{0, 1, false}} << shift << 0;
}

void KeyLevelsTest::theLastEntryThatIsContainedGivesTheLevel()
{
    QFETCH(Entries, entries);
    QFETCH(ShiftMask_t, state);
    FakeKeymap keymap;
    const int type = keymap.addType(4, entries);
    QTEST(activeLevel(keymap.type(type), state), "expected");
}

void KeyLevelsTest::aCapShowsTheFirstLevelOfEachPosition_data()
{
    QTest::addColumn<Entries>("entries");
    QTest::addColumn<ShiftMask_t>("level3Mask");
    QTest::addColumn<Levels>("expected");
    constexpr std::nullopt_t nothing = std::nullopt;

    QTest::newRow("one level") << Entries() << mod5 << Levels{0, nothing, nothing, nothing};
    QTest::newRow("Shift") << Entries{{shift, 1}} << mod5 << Levels{0, 1, nothing, nothing};
    QTest::newRow("third level") << Entries{{mod5, 1}} << mod5 << Levels{0, nothing, 1, nothing};
    QTest::newRow("all four") << Entries{{shift, 1}, {mod5, 2}, {both(shift, mod5), 3}} << mod5
                              << Levels{0, 1, 2, 3};
    QTest::newRow("in another order")
        << Entries{{both(shift, mod5), 3}, {mod5, 2}, {shift, 1}} << mod5 << Levels{0, 1, 2, 3};
    QTest::newRow("the first of two for Shift")
        << Entries{{shift, 1}, {shift, 2}} << mod5 << Levels{0, 1, nothing, nothing};
    QTest::newRow("other modifiers are masked out") << Entries{{both(shift, lock), 1},
        {both(mod5, mod1), 2}} << mod5 << Levels{0, 1, 2, nothing};
    QTest::newRow("nothing but other modifiers")
        << Entries{{lock, 1}, {mod1, 2}} << mod5 << Levels{0, nothing, nothing, nothing};
    QTest::newRow("another modifier for the third level") << Entries{{shift, 1}, {mod3, 2},
        {both(shift, mod3), 3}, {mod5, 1}} << mod3 << Levels{0, 1, 2, 3};
    QTest::newRow("the first level where Shift does nothing")
        << Entries{{shift, 0}} << mod5 << Levels{0, 0, nothing, nothing};
}

void KeyLevelsTest::aCapShowsTheFirstLevelOfEachPosition()
{
    QFETCH(Entries, entries);
    QFETCH(ShiftMask_t, level3Mask);
    QFETCH(Levels, expected);
    FakeKeymap keymap;
    const int type = keymap.addType(4, entries);
    QVERIFY(capLevels(keymap.type(type), level3Mask).levels == expected);
}

void KeyLevelsTest::aCapCountsItsPositions()
{
    FakeKeymap keymap;
    const int one = keymap.oneLevel();
    const int two = keymap.twoLevels();
    const int four = keymap.fourLevels();
    QCOMPARE(capLevels(keymap.type(one), mod5).count(), 1);
    QCOMPARE(capLevels(keymap.type(two), mod5).count(), 2);
    QCOMPARE(capLevels(keymap.type(four), mod5).count(), 4);
}

void KeyLevelsTest::aCapShowsOnlyTheLevelsOnItsPositions()
{
    FakeKeymap keymap;
    const int type = keymap.addType(3, {{shift, 1}, {lock, 2}});
    const CapLevels shown = capLevels(keymap.type(type), mod5);
    QVERIFY(shown.shows(0));
    QVERIFY(shown.shows(1));
    QVERIFY(!shown.shows(2));
}

void KeyLevelsTest::aThirdLevelNeedsNoShiftedOne()
{
    FakeKeymap keymap;
    const int two = keymap.twoLevels();
    const int third = keymap.addType(2, {{mod5, 1}});
    const int four = keymap.fourLevels();
    QVERIFY(!capLevels(keymap.type(two), mod5).hasThirdLevel());
    QVERIFY(capLevels(keymap.type(third), mod5).hasThirdLevel());
    QVERIFY(capLevels(keymap.type(four), mod5).hasThirdLevel());
}

QTEST_APPLESS_MAIN(KeyLevelsTest)

#include "tst_keylevels.moc"
