#include "harness/KeyTarget.h"

#include "x11/Property.h"
#include "x11/Queries.h"
#include "x11/X11.h"

#include <array>
#include <cstdio>
#include <poll.h>
#include <string>
#include <unistd.h>

namespace {

// Core protocol event codes (X.h).
constexpr int focusIn = 9;
constexpr int focusOut = 10;

constexpr int defaultX = 700;
constexpr int defaultY = 60;
constexpr unsigned int defaultWidth = 300;
constexpr unsigned int defaultHeight = 200;

// EWMH: the source indication of a pager, to which managers grant the focus.
constexpr long fromPager = 2;

std::string escaped(const char* text, int length)
{
    std::string result;
    for (int i = 0; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        std::array<char, 5> code{};
        std::snprintf(code.data(), code.size(), "\\x%02x", byte);
        const bool isPlain = byte >= 0x20 && byte != 0x7f && byte != '\\';
        result += isPlain ? std::string(1, text[i]) : std::string(code.data());
    }
    return result;
}

std::string keysymName(KeySym keysym)
{
    if (const char* name = XKeysymToString(keysym))
        return name;
    std::array<char, 20> number{};
    std::snprintf(number.data(), number.size(), "0x%lx", keysym);
    return number.data();
}

void printKey(const char* word, XKeyEvent& key)
{
    std::array<char, 64> text{};
    KeySym keysym = x11::none;
    const int length =
        XLookupString(&key, text.data(), static_cast<int>(text.size()), &keysym, nullptr);
    std::printf("%s %u %u %s %s\n", word, key.keycode, key.state, keysymName(keysym).c_str(),
        escaped(text.data(), length).c_str());
}

// Whether the one who started the target has closed its standard input.
bool inputHasEnded()
{
    std::array<char, 64> ignored{};
    return read(STDIN_FILENO, ignored.data(), ignored.size()) <= 0;
}

} // namespace

KeyTarget::KeyTarget(const char* displayName, const char* geometry)
    : connection(XOpenDisplay(displayName))
{
    if (!connection)
        return;
    if (const auto xkb = x11::queryXkb(connection.get()))
        xkbEvent = xkb->event;
    XkbSetDetectableAutoRepeat(connection.get(), x11::xTrue, nullptr);
    const unsigned int keyboardChanges = XkbNewKeyboardNotifyMask | XkbMapNotifyMask;
    XkbSelectEvents(connection.get(), XkbUseCoreKbd, keyboardChanges, keyboardChanges);
    createWindow(geometry);
}

void KeyTarget::createWindow(const char* geometry)
{
    Display* const display = connection.get();
    int x = defaultX;
    int y = defaultY;
    unsigned int width = defaultWidth;
    unsigned int height = defaultHeight;
    XParseGeometry(geometry, &x, &y, &width, &height);
    window =
        XCreateSimpleWindow(display, XDefaultRootWindow(display), x, y, width, height, 0, 0, ~0UL);
    XSelectInput(
        display, window, KeyPressMask | KeyReleaseMask | FocusChangeMask | StructureNotifyMask);
    XStoreName(display, window, "key target");
    setHints(x, y, width, height);
    XMapWindow(display, window);
}

// USPosition says that the user has chosen the place: managers keep it then.
void KeyTarget::setHints(int x, int y, unsigned int width, unsigned int height)
{
    XSizeHints size{};
    size.flags = USPosition | USSize;
    size.x = x;
    size.y = y;
    size.width = static_cast<int>(width);
    size.height = static_cast<int>(height);
    XSetWMNormalHints(connection.get(), window, &size);
    XWMHints hints{};
    hints.flags = InputHint;
    hints.input = x11::xTrue;
    XSetWMHints(connection.get(), window, &hints);
}

void KeyTarget::run()
{
    std::array<pollfd, 2> sources{{
        {ConnectionNumber(connection.get()), POLLIN, 0},
        {STDIN_FILENO, POLLIN, 0},
    }};
    while (true) {
        handlePending();
        poll(sources.data(), sources.size(), -1);
        if (sources[1].revents != 0 && inputHasEnded())
            return;
    }
}

void KeyTarget::handlePending()
{
    while (XPending(connection.get()) > 0) {
        XEvent event;
        XNextEvent(connection.get(), &event);
        handle(event);
        std::fflush(stdout);
    }
}

void KeyTarget::handle(XEvent& event)
{
    switch (event.type) {
    case x11::keyPress:
        return printKey("press", event.xkey);
    case x11::keyRelease:
        return printKey("release", event.xkey);
    case focusIn:
        std::printf("focusin %d %d\n", event.xfocus.mode, event.xfocus.detail);
        return announceFocus();
    case focusOut:
        std::printf("focusout %d %d\n", event.xfocus.mode, event.xfocus.detail);
        return;
    case MapNotify:
        return takeFocus();
    case MappingNotify:
        XRefreshKeyboardMapping(&event.xmapping);
        return;
    default:
        if (event.type == xkbEvent)
            handleXkb(event);
    }
}

void KeyTarget::handleXkb(XEvent& event)
{
    auto& change = reinterpret_cast<XkbEvent&>(event);
    if (change.any.xkb_type == XkbMapNotify) {
        XkbRefreshKeyboardMapping(&change.map);
        return;
    }
    XMappingEvent all{};
    all.type = MappingNotify;
    all.display = connection.get();
    all.request = MappingKeyboard;
    XRefreshKeyboardMapping(&all);
}

void KeyTarget::takeFocus()
{
    if (isManaged())
        askManagerForFocus();
    else
        XSetInputFocus(connection.get(), window, RevertToParent, CurrentTime);
}

bool KeyTarget::isManaged()
{
    Display* const display = connection.get();
    return x11::numberProperty(display, XDefaultRootWindow(display), "_NET_SUPPORTING_WM_CHECK")
        .has_value();
}

void KeyTarget::askManagerForFocus()
{
    Display* const display = connection.get();
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = XInternAtom(display, "_NET_ACTIVE_WINDOW", x11::xFalse);
    event.xclient.format = 32;
    event.xclient.data.l[0] = fromPager;
    XSendEvent(display, XDefaultRootWindow(display), x11::xFalse,
        SubstructureNotifyMask | SubstructureRedirectMask, &event);
}

void KeyTarget::announceFocus()
{
    if (ready)
        return;
    ready = true;
    std::printf("ready %lu\n", window);
}
