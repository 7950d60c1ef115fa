#include "ui/ControlCombo.h"

#include <QPixmap>
#include <QScreen>
#include <QTest>

namespace {

const QString longText = QStringLiteral("A text that is much too long for its place");
constexpr QSize place(160, 30); // pixels

// What a combo shows of its only text.
template <typename Combo>
QImage shown(const QString& text)
{
    Combo combo;
    combo.setIconSize({24, 18});
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
