#include "ui/ControlCombo.h"

#include <QComboBox>
#include <QFontMetrics>

namespace {

constexpr QSize flagSize{24, 18}; // device independent pixels
constexpr int greatestWidth = 60; // characters of average width
constexpr int leastWidth = 14; // likewise

} // namespace

void ControlCombo::setUp(QComboBox& combo)
{
    combo.setFocusPolicy(Qt::NoFocus);
    combo.setIconSize(flagSize);
    const int character = combo.fontMetrics().averageCharWidth();
    combo.setMaximumWidth(greatestWidth * character);
    // On a small screen a long name is cut rather than the window.
    combo.setMinimumWidth(leastWidth * character + flagSize.width());
}
