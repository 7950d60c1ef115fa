#pragma once

#include "ScreenWatch.h"

#include "harness/PrivateServer.h"
#include "harness/WindowManager.h"
#include "harness/XErrors.h"
#include "harness/XTools.h"

#include <QTemporaryDir>

#include <functional>
#include <optional>

// Where everything is measured: a private X server with a window manager, and what a program that
// runs on it finds in its environment.
class Desktop {
public:
    // The screen's size in pixels, and further arguments for the server.
    explicit Desktop(const QSize& screenSize, const QStringList& serverArguments = {});

    QByteArray displayName() const { return server.display(); }

    // For requests and events of the measurements themselves.
    Display* display() const { return connection.get(); }
    ScreenWatch& screen() { return watch; }

    // What a program on `display` finds: nothing of the user's own settings, and `additions` in
    // place of what has their names. All are "NAME=value" entries.
    QByteArrayList environment(
        const QByteArray& display, const QByteArrayList& additions = {}) const;

    // The window of a process, as the window manager lists it (EWMH, _NET_CLIENT_LIST); and one
    // that does not tell whose it is. Both throw std::runtime_error when there is none within ten
    // seconds.
    Window waitForWindow(pid_t process);
    Window waitForWindowWithoutProcess();

    // Without the manager's frame, in pixels of the screen.
    QRect areaOf(Window window) const;

    // Throws std::runtime_error when the window does not have the focus within ten seconds.
    void waitForFocus(Window window);

private:
    Window waitFor(const std::function<std::optional<Window>()>& find);
    std::optional<Window> windowOf(pid_t process) const;
    std::optional<Window> windowWithoutProcess() const;
    std::vector<unsigned long> property(Window window, const char* name) const;

    PrivateServer server;
    WindowManager windowManager;
    XConnection connection;
    ExpectedXErrors errors; // windows go while they are looked at
    ScreenWatch watch;
    QTemporaryDir home;
};
