#pragma once

#include <QBoxLayout>
#include <QComboBox>
#include <QIcon>
#include <QImage>
#include <QLabel>
#include <QMainWindow>
#include <QPointer>
#include <QTest>

#include <memory>

// What holds of every control that is a caption and a combo box in a row. Each function takes one
// that makes the control: make(iconOnly, parent) returns a std::unique_ptr to a new one.
namespace CaptionedComboChecks {

inline QLabel* labelOf(const QBoxLayout& control)
{
    return qobject_cast<QLabel*>(control.itemAt(0)->widget());
}

inline QComboBox* comboOf(const QBoxLayout& control)
{
    return qobject_cast<QComboBox*>(control.itemAt(1)->widget());
}

// The colour in the middle of an icon as it is shown.
inline QColor middleOf(const QIcon& icon)
{
    const QImage image = icon.pixmap(24, 18).toImage();
    return image.pixelColor(image.rect().center());
}

template <typename Make>
void showsAndHidesAsOne(bool iconOnly, const Make& make)
{
    QWidget window;
    const auto control = make(iconOnly, &window);
    control->hide();
    QVERIFY(labelOf(*control)->isHidden());
    QVERIFY(comboOf(*control)->isHidden());
    control->show();
    QCOMPARE(labelOf(*control)->isHidden(), iconOnly);
    QVERIFY(!comboOf(*control)->isHidden());
    control->setVisible(false);
    QVERIFY(labelOf(*control)->isHidden());
    QVERIFY(comboOf(*control)->isHidden());
}

template <typename Make>
void leavesAWidgetItsLayout(const Make& make)
{
    QMainWindow window;
    auto* row = new QHBoxLayout;
    auto* centre = new QWidget;
    centre->setLayout(row);
    window.setCentralWidget(centre);

    auto* control = make(false, &window).release(); // the row's from here on
    row->addLayout(control);
    QCOMPARE(control->parent(), row);
    QCOMPARE(comboOf(*control)->parentWidget(), centre);
}

template <typename Make>
void takesItsWidgetsWithIt(const Make& make)
{
    QWidget window;
    auto control = make(false, &window);
    const QPointer<QLabel> label = labelOf(*control);
    const QPointer<QComboBox> combo = comboOf(*control);
    control.reset();
    QVERIFY(!label);
    QVERIFY(!combo);
    QVERIFY(window.children().isEmpty());
}

template <typename Make>
void goesWithItsWindow(const Make& make)
{
    auto window = std::make_unique<QWidget>();
    const QPointer control(make(false, window.get()).release());
    const QPointer<QComboBox> combo = comboOf(*control);
    window.reset();
    QVERIFY(!control);
    QVERIFY(!combo);
}

} // namespace CaptionedComboChecks
