#pragma once

#include "harness/ChildProcess.h"
#include "harness/XTools.h"

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

    // A manager that is late: from suspend() to resume() it answers nothing. Never stops it while
    // it has the server to itself, as managers do for moments (XGrabServer).
    void suspend() const;
    void resume() const;

private:
    bool serverAnswers() const;

    QTemporaryDir home;
    std::unique_ptr<ChildProcess> manager;
    XConnection connection;
    Window answerWindow; // never shown; its properties announce that the server has read a request
};
