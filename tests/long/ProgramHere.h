#pragma once

#include "x11/Types.h"

#include <QByteArray>
#include <QStringList>

#include <array>
#include <functional>
#include <memory>

class KbdApp;
class KbdGeometry;
class MainWindow;

// The program in this process: started with its own arguments, and ended, again and again.
class ProgramHere {
public:
    // A connection of the test's own to the display that DISPLAY names; borrowed.
    explicit ProgramHere(Display* testDisplay);
    ~ProgramHere();
    Q_DISABLE_COPY(ProgramHere)

    // Loads a keyboard into the server, by setxkbmap's arguments, does what is to be done before,
    // and starts. Waits until the windows of programs before it have gone. False when the keyboard
    // is refused, another program types for others already or shows a managed window, or the window
    // does not appear.
    bool start(const QByteArray& option, const QStringList& keyboard,
        const std::function<void()>& before = {});
    void end();

    // To be called while it runs. A choice of a keyboard replaces the picture.
    MainWindow& window() const;
    KbdGeometry& picture() const;

private:
    bool prepare(const QStringList& keyboard, const std::function<void()>& before);

    Display* display;
    std::array<QByteArray, 2> arguments{"orvix-kbd-display"};
    std::array<char*, 3> argumentVector{};
    std::unique_ptr<KbdApp> application;
};
