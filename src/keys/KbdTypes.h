#pragma once

// The words for keys and modifiers in this code. A key is
//   down  while the server has it pressed, whoever presses it,
//   held  while a press on the picture keeps it pressed,
//   lit   while the picture shows the physical key as down (given names: `pressed`, setPressed).
// A modifier is held while one of its keys is down or was clicked for it (the given list of these
// is `pressedModifiers`). A lock key is one whose modifier is that of Caps Lock, Num Lock or Scroll
// Lock, whatever its type.

// A core modifier mask (X protocol, section "Keyboards"): bit 0 Shift, 1 Lock, 2 Control,
// 3 to 7 Mod1 to Mod5. The same bits as the state of a key event and as XKB's real modifiers.
using ShiftMask_t = unsigned char;

// What a key does, as the XKB type of its first action: 0 an ordinary key, 1 sets modifiers while
// held, 3 locks modifiers.
using KeyType_t = unsigned char;

// An XKB group index, 0 to 3.
using KeyGroup_t = unsigned char;
