#include "tests/long/ProgramHere.h"

#include "app/KbdApp.h"
#include "harness/TopLevelWindow.h"
#include "harness/WaitUntil.h"
#include "harness/XTools.h"
#include "ui/MainWindow.h"
#include "x11/Property.h"
#include "x11/Queries.h"
#include "x11/X11.h"

#include <QWindow>

namespace {

// Whether the window manager, if there is one, has noticed that every window has gone. The server
// gives the next program the same window identifiers again, and what a late manager still does to
// the old window would happen to the new one: mapped and reparented in between, that is lost to it.
// One that has crashed leaves its list behind.
bool managesNothing(Display* display)
{
    return !x11::hasWindowManager(display)
        || x11::property(display, XDefaultRootWindow(display), "_NET_CLIENT_LIST").numbers.empty();
}

} // namespace

ProgramHere::ProgramHere(Display* testDisplay)
    : display(testDisplay)
{
}

ProgramHere::~ProgramHere() = default;

bool ProgramHere::start(
    const QByteArray& option, const QStringList& keyboard, const std::function<void()>& before)
{
    arguments[1] = option;
    argumentVector = {arguments[0].data(), arguments[1].data(), nullptr};
    if (!prepare(keyboard, before))
        return false;
    application = std::make_unique<KbdApp>(2, argumentVector.data());
    const QWindow* const shown = window().windowHandle();
    return waitUntil([=] { return shown->isExposed(); });
}

// The application would end this process if another one typed for others.
bool ProgramHere::prepare(const QStringList& keyboard, const std::function<void()>& before)
{
    int count = 1;
    const QCoreApplication forTheTools(count, argumentVector.data());
    const Atom guard = XInternAtom(display, "orvix-kbd-display-tofocus", x11::xFalse);
    const auto isOnly = [&] {
        return XGetSelectionOwner(display, guard) == x11::none && managesNothing(display);
    };
    if (!waitUntil(isOnly) || !setKeyboard(XDisplayString(display), keyboard))
        return false;
    if (before)
        before();
    return waitUntil(isOnly);
}

void ProgramHere::end()
{
    application.reset();
}

MainWindow& ProgramHere::window() const
{
    return *topLevelWindow<MainWindow>();
}

KbdGeometry& ProgramHere::picture() const
{
    return *window().picture();
}
