#include "ui/ControlCombo.h"

#include <QPixmap>
#include <QScreen>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString longText = QStringLiteral("A text that is much too long for its place");
constexpr QSize place(160, 30); // pixels
constexpr QSize iconRoom(24, 18); // likewise

// What a combo shows of its only text.
template <typename Combo>
QImage shown(const QString& text)
{
    Combo combo;
    combo.setIconSize(iconRoom);
    combo.addItem(text);
    combo.setMinimumWidth(0);
    combo.resize(place);
    return combo.grab().toImage();
}

} // namespace

class ControlComboTest : public QObject {
    Q_OBJECT

private slots:
    void whatIsCutEndsInAnEllipsis();
    void aTextThatFitsIsShownAsItIs();
    void noTextIsCutInTheWidthThatTheComboAsksFor_data();
    void noTextIsCutInTheWidthThatTheComboAsksFor();
    void theWidthFollowsTheList();
    void aShortTextIsNeverCut();
    void aLongTextGivesWayToTheScreen();
    void itRefusesTheFocus();
};

void ControlComboTest::whatIsCutEndsInAnEllipsis()
{
    const QImage cut = shown<ControlCombo>(longText);
    QVERIFY(cut != shown<QComboBox>(longText));
    bool found = false;
    for (qsizetype length = longText.size() - 1; length > 3 && !found; --length)
        found = cut == shown<QComboBox>(longText.left(length) + QChar(0x2026));
    QVERIFY(found);
}

void ControlComboTest::aTextThatFitsIsShownAsItIs()
{
    QCOMPARE(shown<ControlCombo>("Short"), shown<QComboBox>("Short"));
    QCOMPARE(shown<ControlCombo>(QString()), shown<QComboBox>(QString()));
}

void ControlComboTest::noTextIsCutInTheWidthThatTheComboAsksFor_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("Latin") << u"English (UK, extended)"_s;
    QTest::newRow("Chinese") << u"英语（美国，国际，死键）"_s;
    QTest::newRow("Japanese") << u"日本語（かな）"_s;
    QTest::newRow("Arabic") << u"العربية (لوحة)"_s;
}

// Each beginning of the text: what a combo asks for is rounded, and must not be so to its harm.
void ControlComboTest::noTextIsCutInTheWidthThatTheComboAsksFor()
{
    QFETCH(QString, text);
    QPixmap flag(iconRoom);
    flag.fill(Qt::red);
    for (const QIcon& icon : {QIcon(), QIcon(flag)}) {
        for (qsizetype length = 1; length <= text.size(); ++length) {
            ControlCombo combo;
            combo.addItem(icon, text.left(length));
            QComboBox uncut;
            uncut.setFocusPolicy(Qt::NoFocus);
            uncut.setIconSize(iconRoom);
            uncut.addItem(icon, text.left(length));
            combo.resize(combo.sizeHint());
            uncut.resize(combo.size());
            QCOMPARE(combo.grab().toImage(), uncut.grab().toImage());
        }
    }
}

void ControlComboTest::theWidthFollowsTheList()
{
    ControlCombo combo;
    combo.addItem("Short");
    combo.show();
    const int first = combo.sizeHint().width();
    combo.clear();
    combo.addItem(longText);
    QVERIFY(combo.sizeHint().width() > first);
    combo.clear();
    combo.addItem("Short");
    QCOMPARE(combo.sizeHint().width(), first);
}

void ControlComboTest::aShortTextIsNeverCut()
{
    ControlCombo combo;
    combo.addItem("Short");
    QCOMPARE(combo.minimumSizeHint(), combo.sizeHint());
}

void ControlComboTest::aLongTextGivesWayToTheScreen()
{
    ControlCombo combo;
    combo.addItem(longText);
    QVERIFY(combo.minimumSizeHint().width() < combo.sizeHint().width());
    QVERIFY(combo.minimumSizeHint().width() <= combo.screen()->availableSize().width() / 4);
}

void ControlComboTest::itRefusesTheFocus()
{
    QCOMPARE(ControlCombo().focusPolicy(), Qt::NoFocus);
}

QTEST_MAIN(ControlComboTest)

#include "tst_controlcombo.moc"
