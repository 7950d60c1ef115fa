#include "model/CaptionRow.h"

#include <QTest>

namespace {

constexpr CaptionRow row{100, 4000, 4120, 30};

QList<int> lefts(const QList<CaptionPlace>& places)
{
    QList<int> found;
    for (const CaptionPlace& place : places)
        found << place.x;
    return found;
}

QList<int> rooms(const QList<CaptionPlace>& places)
{
    QList<int> found;
    for (const CaptionPlace& place : places)
        found << place.room;
    return found;
}

} // namespace

// Where the captions below the keyboard stand.
class CaptionRowTest : public QObject {
    Q_OBJECT

private slots:
    void shortCaptionsStandAtTheirQuarters();
    void aLongLastCaptionTakesTheRoomBeforeIt();
    void aLongFirstCaptionTakesTheRoomBehindIt();
    void aLongCaptionInTheMiddlePushesTheNext();
    void captionsNeverOverlapNorLeaveTheRow_data();
    void captionsNeverOverlapNorLeaveTheRow();
    void onlyTheLongestIsCutWhenTheRowIsFull();
    void equallyLongCaptionsAreCutAlike();
    void aRowWithoutCaptionsHasNoPlaces();
};

void CaptionRowTest::shortCaptionsStandAtTheirQuarters()
{
    const auto places = placesInRow(row, {300, 900, 970, 700});
    QCOMPARE(lefts(places), (QList<int>{100, 1100, 2100, 3100}));
    QCOMPARE(rooms(places), (QList<int>{300, 900, 970, 700}));
}

void CaptionRowTest::aLongLastCaptionTakesTheRoomBeforeIt()
{
    const auto places = placesInRow(row, {300, 300, 300, 1600});
    QCOMPARE(lefts(places), (QList<int>{100, 1100, 2100, 2520}));
    QCOMPARE(rooms(places).last(), 1600);
}

void CaptionRowTest::aLongFirstCaptionTakesTheRoomBehindIt()
{
    const auto places = placesInRow(row, {1200, 300, 300, 300});
    QCOMPARE(lefts(places), (QList<int>{100, 1330, 2100, 3100}));
    QCOMPARE(rooms(places).first(), 1200);
}

void CaptionRowTest::aLongCaptionInTheMiddlePushesTheNext()
{
    const auto places = placesInRow(row, {300, 2400, 300, 300});
    QCOMPARE(rooms(places).at(1), 2400);
    QCOMPARE(lefts(places), (QList<int>{100, 1060, 3490, 3820}));
}

void CaptionRowTest::captionsNeverOverlapNorLeaveTheRow_data()
{
    QTest::addColumn<QList<int>>("widths");
    QTest::newRow("no text at all") << QList<int>{0, 0, 0, 0};
    QTest::newRow("all just too long") << QList<int>{990, 990, 990, 990};
    QTest::newRow("the last one endless") << QList<int>{300, 300, 300, 100000};
    QTest::newRow("two endless") << QList<int>{100000, 10, 100000, 10};
    QTest::newRow("all endless") << QList<int>{100000, 100000, 100000, 100000};
    QTest::newRow("long at both ends") << QList<int>{1500, 10, 10, 2000};
}

void CaptionRowTest::captionsNeverOverlapNorLeaveTheRow()
{
    QFETCH(QList<int>, widths);
    int free = row.left;
    for (const CaptionPlace& place : placesInRow(row, widths)) {
        QVERIFY(place.x >= free);
        free = place.x + place.room + row.gap;
    }
    QVERIFY(free - row.gap <= row.end);
}

void CaptionRowTest::onlyTheLongestIsCutWhenTheRowIsFull()
{
    const auto places = placesInRow(row, {300, 400, 500, 100000});
    QCOMPARE(rooms(places), (QList<int>{300, 400, 500, 4020 - 90 - 1200}));
}

void CaptionRowTest::equallyLongCaptionsAreCutAlike()
{
    const auto places = placesInRow(row, {10000, 10000, 330, 10000});
    QCOMPARE(rooms(places), (QList<int>{1200, 1200, 330, 1200}));
}

void CaptionRowTest::aRowWithoutCaptionsHasNoPlaces()
{
    QVERIFY(placesInRow(row, {}).isEmpty());
}

QTEST_APPLESS_MAIN(CaptionRowTest)

#include "tst_captionrow.moc"
