#include "ui/ControlCombo.h"

#include <QFontMetrics>
#include <QScreen>
#include <QStyleOptionComboBox>
#include <QStylePainter>

#include <algorithm>

namespace {

constexpr QSize flagSize{24, 18}; // device independent pixels
constexpr int iconGap = 4; // likewise, between the icon and the text
constexpr int textMargin = 1; // likewise, that styles leave on both sides of the text
constexpr int greatestWidth = 60; // characters of average width
constexpr int smallestWidth = 14; // likewise
constexpr int screenShare = 6; // a combo takes at most one part in six of the screen's width

} // namespace

ControlCombo::ControlCombo(QWidget* parent)
    : QComboBox(parent)
{
    setFocusPolicy(Qt::NoFocus);
    setIconSize(flagSize);
    setSizeAdjustPolicy(AdjustToContents);
    setMaximumWidth(greatestWidth * fontMetrics().averageCharWidth());
}

int ControlCombo::leastWidth() const
{
    return smallestWidth * fontMetrics().averageCharWidth() + flagSize.width();
}

int ControlCombo::widthOf(const QString& text) const
{
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const int icon = iconSize().width() + iconGap;
    const QSize content(
        fontMetrics().horizontalAdvance(text) + 2 * textMargin + icon, iconSize().height());
    return style()->sizeFromContents(QStyle::CT_ComboBox, &option, content, this).width();
}

// Qt's own hint counts the ink of a text, which may be narrower than the place that it takes.
QSize ControlCombo::sizeHint() const
{
    QSize hint = QComboBox::sizeHint();
    const int counted = sizeAdjustPolicy() == AdjustToContents ? count() : 0;
    for (int i = 0; i < counted; ++i)
        hint.setWidth(std::max(hint.width(), widthOf(itemText(i))));
    return hint;
}

QSize ControlCombo::minimumSizeHint() const
{
    const QSize wanted = sizeHint();
    const int share = screen()->availableSize().width() / screenShare;
    return {std::min(wanted.width(), std::max(share, leastWidth())), wanted.height()};
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
