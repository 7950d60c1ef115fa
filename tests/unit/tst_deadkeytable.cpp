#include "ui/DeadKeyTable.h"

#include <QChar>
#include <QString>
#include <QTest>

#include <map>
#include <set>
#include <utility>

namespace {

// The combining characters of the dead keys whose letters are those of Unicode's compositions.
// The hook is not among them: its letters are letters of their own.
const std::map<int, char16_t> combiningMarks{
    {Qt::Key_Dead_Grave, u'\u0300'},
    {Qt::Key_Dead_Acute, u'\u0301'},
    {Qt::Key_Dead_Circumflex, u'\u0302'},
    {Qt::Key_Dead_Tilde, u'\u0303'},
    {Qt::Key_Dead_Macron, u'\u0304'},
    {Qt::Key_Dead_Breve, u'\u0306'},
    {Qt::Key_Dead_Abovedot, u'\u0307'},
    {Qt::Key_Dead_Diaeresis, u'\u0308'},
    {Qt::Key_Dead_Abovering, u'\u030A'},
    {Qt::Key_Dead_Doubleacute, u'\u030B'},
    {Qt::Key_Dead_Caron, u'\u030C'},
    {Qt::Key_Dead_Cedilla, u'\u0327'},
    {Qt::Key_Dead_Ogonek, u'\u0328'},
    {Qt::Key_Dead_Belowdot, u'\u0323'},
    {Qt::Key_Dead_Horn, u'\u031B'},
};

QString nameOf(const DeadKeyRow& row)
{
    const auto base = row.baseKey < 0x100 ? QString(QChar(row.baseKey)) : QStringLiteral("itself");
    return QStringLiteral("0x%1 %2").arg(row.deadKey, 0, 16).arg(base);
}

bool isStruckTwice(const DeadKeyRow& row)
{
    return row.deadKey == row.baseKey;
}

// The one character that letter and mark compose to; 0 when Unicode has none.
char16_t composed(QChar letter, char16_t mark)
{
    const QString text = QString(letter) + QChar(mark);
    const QString composition = text.normalized(QString::NormalizationForm_C);
    return composition.size() == 1 ? composition.at(0).unicode() : u'\0';
}

char16_t lowerCaseOf(char16_t character)
{
    return QChar(character).toLower().unicode();
}

} // namespace

class DeadKeyTableTest : public QObject {
    Q_OBJECT

private slots:
    void everyDeadKeyHasItsList_data();
    void everyDeadKeyHasItsList();
    void noPairOfKeysStandsTwice();
    void aLetterIsUnicodesComposition_data();
    void aLetterIsUnicodesComposition();
    void aHookedLetterPairsWithItsCapital_data();
    void aHookedLetterPairsWithItsCapital();
    void aDeadKeyStruckTwiceMakesItsAccent_data();
    void aDeadKeyStruckTwiceMakesItsAccent();
    void aLatin1LetterHasItsKey_data();
    void aLatin1LetterHasItsKey();
    void keysThatDoNotComposeHaveNoRow_data();
    void keysThatDoNotComposeHaveNoRow();
    void onlyTheClassicDeadKeysAreDead();
};

void DeadKeyTableTest::everyDeadKeyHasItsList_data()
{
    QTest::addColumn<int>("deadKey");
    QTest::addColumn<int>("length");
    QTest::newRow("grave") << int(Qt::Key_Dead_Grave) << 9;
    QTest::newRow("acute") << int(Qt::Key_Dead_Acute) << 19;
    QTest::newRow("circumflex") << int(Qt::Key_Dead_Circumflex) << 14;
    QTest::newRow("tilde") << int(Qt::Key_Dead_Tilde) << 9;
    QTest::newRow("macron") << int(Qt::Key_Dead_Macron) << 9;
    QTest::newRow("breve") << int(Qt::Key_Dead_Breve) << 7;
    QTest::newRow("above dot") << int(Qt::Key_Dead_Abovedot) << 21;
    QTest::newRow("diaeresis") << int(Qt::Key_Dead_Diaeresis) << 11;
    QTest::newRow("above ring") << int(Qt::Key_Dead_Abovering) << 5;
    QTest::newRow("double acute") << int(Qt::Key_Dead_Doubleacute) << 3;
    QTest::newRow("caron") << int(Qt::Key_Dead_Caron) << 18;
    QTest::newRow("cedilla") << int(Qt::Key_Dead_Cedilla) << 12;
    QTest::newRow("ogonek") << int(Qt::Key_Dead_Ogonek) << 6;
    QTest::newRow("iota, which composes nothing") << int(Qt::Key_Dead_Iota) << 0;
    QTest::newRow("voiced sound") << int(Qt::Key_Dead_Voiced_Sound) << 1;
    QTest::newRow("semi-voiced sound") << int(Qt::Key_Dead_Semivoiced_Sound) << 1;
    QTest::newRow("below dot") << int(Qt::Key_Dead_Belowdot) << 20;
    QTest::newRow("hook") << int(Qt::Key_Dead_Hook) << 17;
    QTest::newRow("horn") << int(Qt::Key_Dead_Horn) << 2;
}

void DeadKeyTableTest::everyDeadKeyHasItsList()
{
    QFETCH(int, deadKey);
    int length = 0;
    for (const DeadKeyRow& row : DeadKeyTable::rows())
        length += row.deadKey == deadKey;
    QTEST(length, "length");
}

void DeadKeyTableTest::noPairOfKeysStandsTwice()
{
    std::set<std::pair<int, int>> pairs;
    for (const DeadKeyRow& row : DeadKeyTable::rows()) {
        QVERIFY2(pairs.emplace(row.deadKey, row.baseKey).second, qPrintable(nameOf(row)));
        QCOMPARE(DeadKeyTable::find(row.deadKey, row.baseKey), &row);
    }
}

void DeadKeyTableTest::aLetterIsUnicodesComposition_data()
{
    QTest::addColumn<DeadKeyRow>("row");
    for (const DeadKeyRow& row : DeadKeyTable::rows())
        if (!isStruckTwice(row) && combiningMarks.contains(row.deadKey))
            QTest::newRow(qPrintable(nameOf(row))) << row;
}

void DeadKeyTableTest::aLetterIsUnicodesComposition()
{
    QFETCH(const DeadKeyRow, row);
    const QChar capital(row.baseKey);
    const char16_t mark = combiningMarks.at(row.deadKey);
    QCOMPARE(row.shiftCharacter, composed(capital, mark));
    QCOMPARE(row.plainCharacter, composed(capital.toLower(), mark));
    QVERIFY(row.shiftCharacter != 0 || row.plainCharacter != 0);
}

void DeadKeyTableTest::aHookedLetterPairsWithItsCapital_data()
{
    // Letters that Unicode pairs otherwise, or whose other case the table leaves out.
    static const std::set<int> exceptions{
        Qt::Key_H, Qt::Key_M, Qt::Key_N, Qt::Key_Q, Qt::Key_S, Qt::Key_V};
    QTest::addColumn<DeadKeyRow>("row");
    QTest::addColumn<char16_t>("lowerCase");
    for (const DeadKeyRow& row : DeadKeyTable::rows())
        if (row.deadKey == Qt::Key_Dead_Hook && !isStruckTwice(row)
            && !exceptions.contains(row.baseKey))
            QTest::newRow(qPrintable(nameOf(row))) << row << lowerCaseOf(row.shiftCharacter);

    const auto exception = [](int key, const char* name, char16_t lowerCase) {
        QTest::newRow(name) << *DeadKeyTable::find(Qt::Key_Dead_Hook, key) << lowerCase;
    };
    exception(Qt::Key_H, "H, no capital in the table", u'\u0266');
    exception(Qt::Key_M, "M, no capital in the table", u'\u0271');
    exception(Qt::Key_N, "N, no small letter in the table", u'\0');
    exception(Qt::Key_Q, "Q, the hook of another letter", u'\u02A0');
    exception(Qt::Key_S, "S, no capital in the table", u'\u0282');
    exception(Qt::Key_V, "V, no small letter in the table", u'\0');
}

void DeadKeyTableTest::aHookedLetterPairsWithItsCapital()
{
    QFETCH(const DeadKeyRow, row);
    QTEST(row.plainCharacter, "lowerCase");
    QVERIFY(row.shiftCharacter == 0 || QChar(row.shiftCharacter).isUpper());
    QVERIFY(row.plainCharacter == 0 || QChar(row.plainCharacter).isLower());
    QCOMPARE(row.resultKey, int(Qt::Key_unknown));
}

void DeadKeyTableTest::aDeadKeyStruckTwiceMakesItsAccent_data()
{
    QTest::addColumn<int>("deadKey");
    QTest::addColumn<int>("resultKey");
    QTest::addColumn<char16_t>("accent");
    const auto accent = [](Qt::Key deadKey, Qt::Key resultKey, char16_t character) {
        QTest::newRow(qPrintable(QString(QChar(character))))
            << int(deadKey) << int(resultKey) << character;
    };
    accent(Qt::Key_Dead_Grave, Qt::Key_QuoteLeft, u'`');
    accent(Qt::Key_Dead_Acute, Qt::Key_acute, u'\u00B4');
    accent(Qt::Key_Dead_Circumflex, Qt::Key_AsciiCircum, u'^');
    accent(Qt::Key_Dead_Tilde, Qt::Key_AsciiTilde, u'~');
    accent(Qt::Key_Dead_Macron, Qt::Key_macron, u'\u00AF');
    accent(Qt::Key_Dead_Breve, Qt::Key_unknown, u'\u02D8');
    accent(Qt::Key_Dead_Abovedot, Qt::Key_unknown, u'\u02D9');
    accent(Qt::Key_Dead_Diaeresis, Qt::Key_diaeresis, u'\u00A8');
    accent(Qt::Key_Dead_Abovering, Qt::Key_degree, u'\u00B0');
    accent(Qt::Key_Dead_Doubleacute, Qt::Key_unknown, u'\u02DD');
    accent(Qt::Key_Dead_Caron, Qt::Key_unknown, u'\u02C7');
    accent(Qt::Key_Dead_Cedilla, Qt::Key_cedilla, u'\u00B8');
    accent(Qt::Key_Dead_Ogonek, Qt::Key_unknown, u'\u02DB');
    accent(Qt::Key_Dead_Voiced_Sound, Qt::Key_unknown, u'\u309B');
    accent(Qt::Key_Dead_Semivoiced_Sound, Qt::Key_unknown, u'\u309C');
    accent(Qt::Key_Dead_Belowdot, Qt::Key_Period, u'.');
    accent(Qt::Key_Dead_Hook, Qt::Key_unknown, u'\u02DE');
}

void DeadKeyTableTest::aDeadKeyStruckTwiceMakesItsAccent()
{
    QFETCH(int, deadKey);
    const DeadKeyRow* row = DeadKeyTable::find(deadKey, deadKey);
    QVERIFY(row);
    QTEST(row->resultKey, "resultKey");
    QTEST(row->shiftCharacter, "accent");
    QTEST(row->plainCharacter, "accent");
}

void DeadKeyTableTest::aLatin1LetterHasItsKey_data()
{
    QTest::addColumn<DeadKeyRow>("row");
    QTest::addColumn<int>("resultKey");
    for (const DeadKeyRow& row : DeadKeyTable::rows()) {
        if (isStruckTwice(row))
            continue;
        const char16_t letter = row.shiftCharacter;
        const int key = letter != 0 && letter < 0x100 ? int(letter) : int(Qt::Key_unknown);
        if (row.baseKey == Qt::Key_A && row.deadKey == Qt::Key_Dead_Abovering)
            QTest::newRow("A with ring, which has no key here") << row << int(Qt::Key_unknown);
        else if (row.baseKey == Qt::Key_Y && row.deadKey == Qt::Key_Dead_Diaeresis)
            QTest::newRow("y with diaeresis, the small letter's") << row << 0xFF;
        else
            QTest::newRow(qPrintable(nameOf(row))) << row << key;
    }
}

void DeadKeyTableTest::aLatin1LetterHasItsKey()
{
    QFETCH(const DeadKeyRow, row);
    QTEST(row.resultKey, "resultKey");
}

void DeadKeyTableTest::keysThatDoNotComposeHaveNoRow_data()
{
    QTest::addColumn<int>("deadKey");
    QTest::addColumn<int>("baseKey");
    QTest::newRow("acute and q") << int(Qt::Key_Dead_Acute) << int(Qt::Key_Q);
    QTest::newRow("acute and grave") << int(Qt::Key_Dead_Acute) << int(Qt::Key_Dead_Grave);
    QTest::newRow("iota twice") << int(Qt::Key_Dead_Iota) << int(Qt::Key_Dead_Iota);
    QTest::newRow("horn twice") << int(Qt::Key_Dead_Horn) << int(Qt::Key_Dead_Horn);
    QTest::newRow("no dead key") << 0 << int(Qt::Key_E);
    QTest::newRow("no base key") << int(Qt::Key_Dead_Acute) << 0;
}

void DeadKeyTableTest::keysThatDoNotComposeHaveNoRow()
{
    QFETCH(int, deadKey);
    QFETCH(int, baseKey);
    QVERIFY(!DeadKeyTable::find(deadKey, baseKey));
}

void DeadKeyTableTest::onlyTheClassicDeadKeysAreDead()
{
    QVERIFY(!DeadKeyTable::isDeadKey(Qt::Key_Dead_Grave - 1));
    QVERIFY(DeadKeyTable::isDeadKey(Qt::Key_Dead_Grave));
    QVERIFY(DeadKeyTable::isDeadKey(Qt::Key_Dead_Iota));
    QVERIFY(DeadKeyTable::isDeadKey(Qt::Key_Dead_Horn));
    QVERIFY(!DeadKeyTable::isDeadKey(Qt::Key_Dead_Stroke));
    QVERIFY(!DeadKeyTable::isDeadKey(Qt::Key_E));
}

QTEST_APPLESS_MAIN(DeadKeyTableTest)
#include "tst_deadkeytable.moc"
