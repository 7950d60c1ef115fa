#pragma once

#include "x11/Types.h"

#include <QByteArray>

// Says which process is the one instance of a name on an X display: the owner of a selection of
// that name (ICCCM, "Peer-to-Peer Communication by Means of Selections"). The server takes the
// selection back when the owner's connection ends, so that a killed program leaves nothing behind.
class InstanceGuard {
public:
    // Takes the selection when no client owns it. The display is borrowed and outlives the guard.
    InstanceGuard(Display* xDisplay, const QByteArray& name);
    ~InstanceGuard();
    InstanceGuard(const InstanceGuard&) = delete;
    InstanceGuard& operator=(const InstanceGuard&) = delete;

    bool isOwner() const { return window != x11::none; }

private:
    Display* display;
    Window window = x11::none; // owns the selection; x11::none when another client does
};
