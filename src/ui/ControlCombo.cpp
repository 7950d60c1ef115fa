#include "ui/ControlCombo.h"

#include <QFontMetrics>
#include <QScreen>
#include <QStyleOptionComboBox>
#include <QStylePainter>

#include <algorithm>

namespace {

constexpr QSize flagSize{24, 18}; // device independent pixels
constexpr int iconGap = 4; // likewise, between the icon and the text
constexpr int textMargin = 1; // likewise, that styles leave on all sides of the text
constexpr int greatestWidth = 60; // characters of average width
constexpr int smallestWidth = 14; // likewise
constexpr int screenShare = 6; // a combo takes at most one part in six of the screen's width

} // namespace

ControlCombo::ControlCombo(QWidget* parent)
    : QComboBox(parent)
{
    setFocusPolicy(Qt::NoFocus);
    setMaximumWidth(greatestWidth * fontMetrics().averageCharWidth());
    const QAbstractItemModel* list = model();
    connect(list, &QAbstractItemModel::rowsInserted, this, &ControlCombo::updateGeometry);
    connect(list, &QAbstractItemModel::rowsRemoved, this, &ControlCombo::updateGeometry);
    connect(list, &QAbstractItemModel::dataChanged, this, &ControlCombo::updateGeometry);
}

int ControlCombo::leastWidth() const
{
    return smallestWidth * fontMetrics().averageCharWidth() + flagSize.width();
}

QSize ControlCombo::sizeFor(int textWidth) const
{
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const int width = textWidth + 2 * textMargin + flagSize.width() + iconGap;
    const int height = std::max(fontMetrics().height(), flagSize.height()) + 2 * textMargin;
    return style()->sizeFromContents(QStyle::CT_ComboBox, &option, {width, height}, this);
}

// Qt's own hint counts the ink of a text, which may be narrower than the place that it takes.
QSize ControlCombo::sizeHint() const
{
    int widest = 0;
    for (int i = 0; i < count(); ++i)
        widest = std::max(widest, fontMetrics().horizontalAdvance(itemText(i)));
    return sizeFor(widest);
}

QSize ControlCombo::minimumSizeHint() const
{
    const QSize wanted = sizeHint();
    const int share = screen()->availableSize().width() / screenShare;
    return {std::min(wanted.width(), std::max(share, leastWidth())), wanted.height()};
}

// Setting the icon size instead, or a size adjust policy, makes Qt build the list that pops up.
void ControlCombo::initStyleOption(QStyleOptionComboBox* option) const
{
    QComboBox::initStyleOption(option);
    option->iconSize = flagSize;
}

void ControlCombo::showPopup()
{
    setIconSize(flagSize);
    QComboBox::showPopup();
}

void ControlCombo::paintEvent(QPaintEvent*)
{
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QRect field =
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
    const int icon = option.currentIcon.isNull() ? 0 : option.iconSize.width() + iconGap;
    option.currentText = fontMetrics().elidedText(
        option.currentText, Qt::ElideRight, field.width() - icon - 2 * textMargin);

    QStylePainter painter(this);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}
