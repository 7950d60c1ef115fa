#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

// One line that the key target prints, see KeyTarget.
struct KeyTargetLine {
    enum class Kind { Ready, Press, Release, FocusIn, FocusOut };

    Kind kind = Kind::Ready;

    // Ready: the target's window.
    unsigned long window = 0;

    // Press and Release: the event's keycode and state, the keysym's name as XKeysymToString gives
    // it ("0x…" when it has none), and what the key types.
    int keycode = 0;
    unsigned int state = 0;
    QString keysym;
    QString text;

    // FocusIn and FocusOut: mode and detail of the event, as numbers of the X protocol.
    int mode = 0;
    int detail = 0;

    // Nothing for a line that the key target does not print.
    static std::optional<KeyTargetLine> parse(const QByteArray& line);
};
