#include "FakeKeymap.h"

#include "keys/KbdKey.h"
#include "model/KeyFinder.h"

#include <QGraphicsScene>
#include <QTest>

#include <memory>

namespace {

constexpr double side = 100; // of a key, in units of the scene

KeyShape square()
{
    KeyShape shape;
    shape.width = side;
    shape.height = side;
    return shape;
}

// Its lower left quarter is missing.
KeyShape angled()
{
    KeyShape shape = square();
    shape.outline = QPolygon({{0, 0}, {100, 0}, {100, 100}, {50, 100}, {50, 50}, {0, 50}});
    return shape;
}

// As good as a point.
QRectF spot(double x, double y)
{
    return {x, y, 0.001, 0.001};
}

} // namespace

class KeyFinderTest : public QObject {
    Q_OBJECT

private slots:
    void init();

    void aKeyIsFoundWithinItsShapeOnly();
    void theGroundIsNoKeys();
    void anAreaThatReachesIntoAKeyFindsIt();
    void ofOverlappingKeysTheOneWithTheHigherPriorityIsFound();
    void ofOverlappingKeysOfOnePriorityTheLaterIsFound();
    void whatLiesUnderAMissingCornerIsFound();
    void aTurnedKeyIsFoundWhereItIsShown();

private:
    KbdKey* add(const QPointF& place, const KeyShape& shape = square(), double z = 0);
    KbdKey* foundAt(const QRectF& area) const { return KeyFinder(keys).keyAt(area); }

    FakeKeymap keymap;
    std::unique_ptr<QGraphicsScene> scene;
    QList<KbdKey*> keys;
};

void KeyFinderTest::init()
{
    keys.clear();
    scene = std::make_unique<QGraphicsScene>();
}

// The scene owns the key.
KbdKey* KeyFinderTest::add(const QPointF& place, const KeyShape& shape, double z)
{
    auto* key = new KbdKey(keymap.context(), "AC01", shape, nullptr);
    key->setPos(place);
    key->setZValue(z);
    scene->addItem(key);
    keys << key;
    return key;
}

void KeyFinderTest::aKeyIsFoundWithinItsShapeOnly()
{
    KbdKey* key = add({200, 300}, angled());
    QCOMPARE(foundAt(spot(210, 310)), key);
    QCOMPARE(foundAt(spot(290, 390)), key);
    QCOMPARE(foundAt(spot(225, 375)), nullptr);
}

void KeyFinderTest::theGroundIsNoKeys()
{
    KbdKey* left = add({0, 0});
    KbdKey* right = add({110, 0});
    QCOMPARE(foundAt(spot(99, 50)), left);
    QCOMPARE(foundAt(spot(105, 50)), nullptr);
    QCOMPARE(foundAt(spot(111, 50)), right);
    QCOMPARE(foundAt(spot(50, 100.5)), nullptr);
}

void KeyFinderTest::anAreaThatReachesIntoAKeyFindsIt()
{
    KbdKey* key = add({0, 0});
    QCOMPARE(foundAt({99, 99, 10, 10}), key);
    QCOMPARE(foundAt({100, 99, 10, 10}), nullptr); // it only touches
}

void KeyFinderTest::ofOverlappingKeysTheOneWithTheHigherPriorityIsFound()
{
    KbdKey* above = add({0, 0}, square(), 7);
    KbdKey* below = add({50, 0}, square(), 3);
    QCOMPARE(foundAt(spot(75, 50)), above);
    QCOMPARE(foundAt(spot(125, 50)), below);
}

void KeyFinderTest::ofOverlappingKeysOfOnePriorityTheLaterIsFound()
{
    add({0, 0});
    KbdKey* later = add({50, 0});
    QCOMPARE(foundAt(spot(75, 50)), later);
}

void KeyFinderTest::whatLiesUnderAMissingCornerIsFound()
{
    KbdKey* below = add({0, 0});
    KbdKey* above = add({0, 0}, angled());
    QCOMPARE(foundAt(spot(25, 25)), above);
    QCOMPARE(foundAt(spot(25, 75)), below);
}

void KeyFinderTest::aTurnedKeyIsFoundWhereItIsShown()
{
    KbdKey* key = add({0, 0});
    key->setRotation(45); // its lowest corner is straight below its place
    QCOMPARE(foundAt(spot(0, 135)), key);
    QCOMPARE(foundAt(spot(60, 130)), nullptr);
}

QTEST_MAIN(KeyFinderTest)

#include "tst_keyfinder.moc"
