#include "ui/ControlCombo.h"

#include <QComboBox>
#include <QFontMetrics>

namespace {

constexpr QSize flagSize{24, 18}; // device independent pixels
constexpr int greatestWidth = 60; // characters of average width

} // namespace

void ControlCombo::setUp(QComboBox& combo)
{
    combo.setFocusPolicy(Qt::NoFocus);
    combo.setIconSize(flagSize);
    combo.setMaximumWidth(greatestWidth * combo.fontMetrics().averageCharWidth());
}
