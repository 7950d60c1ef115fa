#pragma once

#include "keys/KbdTypes.h"

#include <QString>

// The label as the cap shows it while these modifiers are held or locked: Lock makes a capital of
// one letter, Lock with Shift a small one. Labels of several characters stay as they are.
QString withCaseOf(const QString& label, ShiftMask_t modifiers);
