#pragma once

#include "harness/ChildProcess.h"

#include <QTemporaryDir>

#include <memory>

// A window manager on a test's display, with settings of its own (nothing of the user's is read
// or written) and without compositing.
class WindowManager {
public:
    // `name` is "openbox", "xfwm4", "metacity", "fluxbox", "icewm" or "jwm". Returns when the
    // manager has announced itself on the root window (EWMH, _NET_SUPPORTING_WM_CHECK) and manages
    // windows. Throws std::runtime_error, with what the manager said, for another name or when that
    // takes more than fifteen seconds.
    WindowManager(const QByteArray& name, const QByteArray& display);

    // A manager that is late: from suspend() to resume() it answers nothing.
    void suspend() const;
    void resume() const;

private:
    QTemporaryDir home;
    std::unique_ptr<ChildProcess> manager;
};
