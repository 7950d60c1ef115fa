#include "FakeGeometry.h"

#include "model/KeyPlacement.h"
#include "x11/X11.h"

#include <QTest>

#include <memory>

namespace {

QPoint positionOf(const KeyPlacements& placements, const char* name)
{
    const KeyPlacement place = placements.keys.value(name, {nullptr, -1, -1, 0});
    return {place.x, place.y};
}

QRect areaOf(const PictureBounds& bounds)
{
    return {QPoint(bounds.minX, bounds.minY), QPoint(bounds.maxX - 1, bounds.maxY - 1)};
}

} // namespace

class KeyPlacementTest : public QObject {
    Q_OBJECT

private slots:
    void init();

    void aRowRunsFromLeftToRight();
    void aRowStandsWhereItsSectionAndItselfSay();
    void sectionsAndRowsDoNotMoveEachOther();
    void aVerticalRowIsLaidOutLikeAnyOther();
    void theAngleAndSizeOfASectionChangeNothing();
    void aKeyLiesAsHighAsItsSection();
    void theLaterOfTwoKeysWithOneNameHoldsThePlace();
    void theEarlierOfTwoKeysWithOneNameStillCountsForTheArea();
    void aBoxThatBeginsBelowZeroCountsWithItsWholeWidth();
    void aKeyKnowsItsShape();
    void aKeyWhoseShapeDoesNotExistIsLeftOut();
    void keysAreInTheOrderOfTheirNames();
    void aShortKeyNameEndsWhereItsFillBegins();
    void aGapMayGoBackwards();
    void nothingMakesAnEmptyPicture();
    void aPictureOfSizeZeroIsNotEmpty();
    void boundsOnlyGrow();

private:
    std::unique_ptr<FakeGeometry> geometry;
    unsigned char key = 0; // 180 by 180
    unsigned char wide = 0; // 360 by 200
};

void KeyPlacementTest::init()
{
    geometry = std::make_unique<FakeGeometry>();
    key = static_cast<unsigned char>(geometry->addShape(180, 180));
    wide = static_cast<unsigned char>(geometry->addShape(360, 200));
}

void KeyPlacementTest::aRowRunsFromLeftToRight()
{
    geometry->addSection(0, 0, {{0, 0, {{"AE01", key}, {"AE02", wide, 10}, {"AE03", key, 20}}}});
    const KeyPlacements placements = placeKeys(geometry->xkb());
    QCOMPARE(positionOf(placements, "AE01"), QPoint(0, 0));
    QCOMPARE(positionOf(placements, "AE02"), QPoint(190, 0));
    QCOMPARE(positionOf(placements, "AE03"), QPoint(570, 0));
    QCOMPARE(areaOf(placements.bounds), QRect(0, 0, 750, 200));
}

void KeyPlacementTest::aRowStandsWhereItsSectionAndItselfSay()
{
    geometry->addSection(100, 1000, {{20, 300, {{"AE01", key, 4}}}});
    const KeyPlacements placements = placeKeys(geometry->xkb());
    QCOMPARE(positionOf(placements, "AE01"), QPoint(124, 1300));
    QCOMPARE(areaOf(placements.bounds), QRect(124, 1300, 180, 180));
}

void KeyPlacementTest::sectionsAndRowsDoNotMoveEachOther()
{
    geometry->addSection(0, 0, {{0, 0, {{"AE01", wide, 10}}}, {5, 190, {{"AD01", key, 10}}}});
    geometry->addSection(500, 50, {{0, 0, {{"KP7", key, 10}}}});
    const KeyPlacements placements = placeKeys(geometry->xkb());
    QCOMPARE(positionOf(placements, "AE01"), QPoint(10, 0));
    QCOMPARE(positionOf(placements, "AD01"), QPoint(15, 190));
    QCOMPARE(positionOf(placements, "KP7"), QPoint(510, 50));
}

void KeyPlacementTest::aVerticalRowIsLaidOutLikeAnyOther()
{
    geometry->addSection(0, 0, {{0, 0, {{"KP7", key}, {"KP4", key, 10}}, true}});
    const KeyPlacements placements = placeKeys(geometry->xkb());
    QCOMPARE(positionOf(placements, "KP4"), QPoint(190, 0));
    QCOMPARE(areaOf(placements.bounds), QRect(0, 0, 370, 180));
}

void KeyPlacementTest::theAngleAndSizeOfASectionChangeNothing()
{
    const int index = geometry->addSection(10, 20, {{0, 0, {{"AE01", key}}}});
    XkbSectionRec& section = geometry->section(index);
    section.angle = 450;
    section.width = 5000;
    section.height = 5000;
    const KeyPlacements placements = placeKeys(geometry->xkb());
    QCOMPARE(positionOf(placements, "AE01"), QPoint(10, 20));
    QCOMPARE(areaOf(placements.bounds), QRect(10, 20, 180, 180));
}

void KeyPlacementTest::aKeyLiesAsHighAsItsSection()
{
    const int low = geometry->addSection(0, 0, {{0, 0, {{"AE01", key}}}});
    const int high = geometry->addSection(0, 0, {{0, 0, {{"AE02", key}}}});
    geometry->section(low).priority = 3;
    geometry->section(high).priority = 255;
    const KeyPlacements placements = placeKeys(geometry->xkb());
    QCOMPARE(placements.keys.value("AE01").priority, 3);
    QCOMPARE(placements.keys.value("AE02").priority, 255);
}

void KeyPlacementTest::theLaterOfTwoKeysWithOneNameHoldsThePlace()
{
    geometry->addSection(0, 0, {{0, 0, {{"SPCE", key}}}});
    geometry->addSection(0, 500, {{0, 0, {{"SPCE", wide}}}});
    const KeyPlacements placements = placeKeys(geometry->xkb());
    QCOMPARE(placements.keys.size(), 1);
    QCOMPARE(positionOf(placements, "SPCE"), QPoint(0, 500));
    QCOMPARE(placements.keys.value("SPCE").shape, &geometry->xkb().shapes[wide]);
}

void KeyPlacementTest::theEarlierOfTwoKeysWithOneNameStillCountsForTheArea()
{
    geometry->addSection(0, 0, {{0, 0, {{"SPCE", key}, {"AE01", key}}}});
    geometry->addSection(0, 500, {{0, 0, {{"SPCE", key}}}});
    const KeyPlacements placements = placeKeys(geometry->xkb());
    QCOMPARE(positionOf(placements, "AE01"), QPoint(180, 0));
    QCOMPARE(areaOf(placements.bounds), QRect(0, 0, 360, 680));
}

void KeyPlacementTest::aBoxThatBeginsBelowZeroCountsWithItsWholeWidth()
{
    const auto angled = static_cast<unsigned char>(geometry->addShape({-50, -10, 230, 360}));
    geometry->addSection(0, 0, {{0, 0, {{"RTRN", angled, 10}, {"DELE", key, 10}}}});
    const KeyPlacements placements = placeKeys(geometry->xkb());
    QCOMPARE(positionOf(placements, "RTRN"), QPoint(10, 0));
    QCOMPARE(positionOf(placements, "DELE"), QPoint(300, 0));
    QCOMPARE(areaOf(placements.bounds), QRect(10, 0, 470, 370));
}

void KeyPlacementTest::aKeyKnowsItsShape()
{
    geometry->addSection(0, 0, {{0, 0, {{"AE01", key}, {"SPCE", wide}}}});
    const KeyPlacements placements = placeKeys(geometry->xkb());
    QCOMPARE(placements.keys.value("AE01").shape, &geometry->xkb().shapes[key]);
    QCOMPARE(placements.keys.value("SPCE").shape, &geometry->xkb().shapes[wide]);
}

void KeyPlacementTest::aKeyWhoseShapeDoesNotExistIsLeftOut()
{
    geometry->addSection(0, 0, {{0, 0, {{"AE01", key}, {"AE02", 200, 10}, {"AE03", key, 10}}}});
    const KeyPlacements placements = placeKeys(geometry->xkb());
    QVERIFY(!placements.keys.contains("AE02"));
    QCOMPARE(placements.keys.size(), 2);
    QCOMPARE(positionOf(placements, "AE03"), QPoint(200, 0));
}

void KeyPlacementTest::keysAreInTheOrderOfTheirNames()
{
    geometry->addSection(
        0, 0, {{0, 0, {{"TLDE", key}, {"AE10", key}, {"AE01", key}, {"ESC", key}}}});
    const KeyPlacements placements = placeKeys(geometry->xkb());
    QCOMPARE(placements.keys.keys(), QByteArrayList({"AE01", "AE10", "ESC", "TLDE"}));
}

void KeyPlacementTest::aShortKeyNameEndsWhereItsFillBegins()
{
    geometry->addSection(0, 0, {{0, 0, {{"UP", key}, {"SPCE", key}}}});
    const KeyPlacements placements = placeKeys(geometry->xkb());
    QCOMPARE(placements.keys.firstKey().size(), 4);
    QCOMPARE(placements.keys.lastKey().size(), 2);
}

void KeyPlacementTest::aGapMayGoBackwards()
{
    geometry->addSection(0, 0, {{0, 0, {{"AE01", key}, {"AE02", key, -200}}}});
    const KeyPlacements placements = placeKeys(geometry->xkb());
    QCOMPARE(positionOf(placements, "AE02"), QPoint(-20, 0));
    QCOMPARE(areaOf(placements.bounds), QRect(-20, 0, 200, 180));
}

void KeyPlacementTest::nothingMakesAnEmptyPicture()
{
    QVERIFY(placeKeys(geometry->xkb()).bounds.isEmpty());
    geometry->addSection(100, 100, {{0, 0, {}}});
    QVERIFY(placeKeys(geometry->xkb()).bounds.isEmpty());
    QVERIFY(placeKeys(geometry->xkb()).keys.isEmpty());
}

void KeyPlacementTest::aPictureOfSizeZeroIsNotEmpty()
{
    PictureBounds bounds;
    bounds.widen(5, 5, 0, 0);
    QVERIFY(!bounds.isEmpty());
}

void KeyPlacementTest::boundsOnlyGrow()
{
    PictureBounds bounds;
    bounds.widen(10, 20, 100, 200);
    bounds.widen(50, 50, 10, 10);
    QCOMPARE(areaOf(bounds), QRect(10, 20, 100, 200));
    bounds.widen(-10, 0, 5, 500);
    QCOMPARE(areaOf(bounds), QRect(-10, 0, 120, 500));
}

QTEST_APPLESS_MAIN(KeyPlacementTest)

#include "tst_keyplacement.moc"
