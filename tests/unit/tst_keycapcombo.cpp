#include "CaptionedComboChecks.h"
#include "DataFixture.h"
#include "ui/KeycapCombo.h"

#include <QComboBox>
#include <QLabel>
#include <QMainWindow>
#include <QMetaMethod>
#include <QPointer>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

#include <memory>

namespace {

using CaptionedComboChecks::comboOf;
using CaptionedComboChecks::labelOf;
using CaptionedComboChecks::middleOf;

std::unique_ptr<KeycapCombo> makeControl(bool iconOnly, QWidget* parent)
{
    return std::make_unique<KeycapCombo>(iconOnly, parent);
}

} // namespace

class KeycapComboTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void theMethodsStandInTheAgreedOrder();
    void captionAndComboStandInARow();
    void theTwoItemsHaveNames();
    void inIconOnlyModeNothingIsWritten();
    void theItemsHaveTheirIcons();
    void aChoiceOfTheUserIsPassedOn();
    void aChangeByTheProgramIsPassedOn();
    void captionAndComboShowAndHideTogether_data();
    void captionAndComboShowAndHideTogether();
    void aWidgetWithALayoutKeepsIt();
    void deletingTheControlDeletesItsWidgets();
    void deletingTheWindowDeletesEachWidgetOnce();

private:
    std::unique_ptr<DataFixture> data;
};

void KeycapComboTest::init()
{
    QVERIFY(DataFixture::isApart());
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    data = std::make_unique<DataFixture>();
}

void KeycapComboTest::cleanup()
{
    data.reset();
}

void KeycapComboTest::theMethodsStandInTheAgreedOrder()
{
    const QMetaObject& meta = KeycapCombo::staticMetaObject;
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        methods.append(QString::fromLatin1(meta.method(i).methodSignature()));
        QCOMPARE(meta.method(i).parameterNames(), QByteArrayList{"index"});
    }
    const QStringList expected{QStringLiteral("activated(int)"),
        QStringLiteral("currentIndexChanged(int)"), QStringLiteral("internalActivated(int)"),
        QStringLiteral("internalCurrentIndexChanged(int)")};
    QCOMPARE(methods, expected);
}

void KeycapComboTest::captionAndComboStandInARow()
{
    const KeycapCombo control(false, nullptr);
    QCOMPARE(control.direction(), QBoxLayout::LeftToRight);
    QCOMPARE(control.count(), 2);
    QCOMPARE(labelOf(control)->text(), QStringLiteral("Keycap Display: "));
    QCOMPARE(labelOf(control)->focusPolicy(), Qt::NoFocus);
    QCOMPARE(comboOf(control)->focusPolicy(), Qt::NoFocus);
    QCOMPARE(comboOf(control)->toolTip(), QStringLiteral("Keycap display mode"));
}

void KeycapComboTest::theTwoItemsHaveNames()
{
    const KeycapCombo control(false, nullptr);
    QCOMPARE(comboOf(control)->count(), 2);
    QCOMPARE(comboOf(control)->itemText(0), QStringLiteral("Active Character Only"));
    QCOMPARE(comboOf(control)->itemText(1), QStringLiteral("Multiple Characters"));
    QCOMPARE(control.currentIndex(), 0);
}

void KeycapComboTest::inIconOnlyModeNothingIsWritten()
{
    const KeycapCombo control(true, nullptr);
    QVERIFY(labelOf(control)->isHidden());
    QCOMPARE(comboOf(control)->count(), 2);
    QCOMPARE(comboOf(control)->itemText(0), QString());
    QCOMPARE(comboOf(control)->itemText(1), QString());
}

void KeycapComboTest::theItemsHaveTheirIcons()
{
    QVERIFY(data->write(
        data->installed(QStringLiteral("icons/singlekey.png")), DataFixture::png(Qt::red)));
    QVERIFY(data->write(QStringLiteral("icons/fullkey.png"), DataFixture::png(Qt::blue)));
    const KeycapCombo control(false, nullptr);
    QCOMPARE(middleOf(comboOf(control)->itemIcon(0)), QColor(Qt::red));
    QCOMPARE(middleOf(comboOf(control)->itemIcon(1)), QColor(Qt::blue));
}

void KeycapComboTest::aChoiceOfTheUserIsPassedOn()
{
    KeycapCombo control(false, nullptr);
    QSignalSpy activated(&control, &KeycapCombo::activated);
    QSignalSpy changed(&control, &KeycapCombo::currentIndexChanged);
    emit comboOf(control)->activated(1);
    QCOMPARE(activated, QList<QVariantList>{{1}});
    QCOMPARE(changed.count(), 0);
}

void KeycapComboTest::aChangeByTheProgramIsPassedOn()
{
    KeycapCombo control(false, nullptr);
    QSignalSpy activated(&control, &KeycapCombo::activated);
    QSignalSpy changed(&control, &KeycapCombo::currentIndexChanged);
    comboOf(control)->setCurrentIndex(1);
    QCOMPARE(changed, QList<QVariantList>{{1}});
    QCOMPARE(activated.count(), 0);
    QCOMPARE(control.currentIndex(), 1);
}

void KeycapComboTest::captionAndComboShowAndHideTogether_data()
{
    QTest::addColumn<bool>("iconOnly");
    QTest::newRow("with a caption") << false;
    QTest::newRow("icon-only") << true;
}

void KeycapComboTest::captionAndComboShowAndHideTogether()
{
    QFETCH(bool, iconOnly);
    CaptionedComboChecks::showsAndHidesAsOne(iconOnly, makeControl);
}

void KeycapComboTest::aWidgetWithALayoutKeepsIt()
{
    CaptionedComboChecks::leavesAWidgetItsLayout(makeControl);
}

void KeycapComboTest::deletingTheControlDeletesItsWidgets()
{
    CaptionedComboChecks::takesItsWidgetsWithIt(makeControl);
}

void KeycapComboTest::deletingTheWindowDeletesEachWidgetOnce()
{
    CaptionedComboChecks::goesWithItsWindow(makeControl);
}

QTEST_MAIN(KeycapComboTest)
#include "tst_keycapcombo.moc"
