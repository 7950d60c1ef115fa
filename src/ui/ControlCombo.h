#pragma once

class QComboBox;

// What the combo boxes of the control row have in common.
namespace ControlCombo {

// No keyboard focus, room for 4 : 3 flags, and bounds for the width in the combo's font: its texts
// come from files and from the server, and a long one must not stretch the window off the screen.
void setUp(QComboBox& combo);

} // namespace ControlCombo
