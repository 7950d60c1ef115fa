#include "tests/long/TextTarget.h"

#include "harness/WaitUntil.h"
#include "x11/Property.h"
#include "x11/Queries.h"
#include "x11/X11.h"

#include <QFile>

namespace {

constexpr char readyLine[] = "ready\n"; // before the text
constexpr char activeWindowName[] = "_NET_ACTIVE_WINDOW"; // EWMH
constexpr long fromPager = 2; // managers grant a pager what it asks for
constexpr int endLimitMs = 5000;

// What a terminal is given goes into a file, as it comes.
constexpr char terminalScript[] =
    "stty raw -echo; echo ready >\"$1\"; stty -opost; exec cat >>\"$1\"";

void activate(Display* display, Window window)
{
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = XInternAtom(display, activeWindowName, x11::xFalse);
    event.xclient.format = 32;
    event.xclient.data.l[0] = fromPager;
    XSendEvent(display, XDefaultRootWindow(display), x11::xFalse,
        SubstructureRedirectMask | SubstructureNotifyMask, &event);
    XFlush(display);
}

QStringList terminalCommand(const QString& file)
{
    return {"xterm", "-geometry", "30x3+0+0", "-e", "sh", "-c", QString::fromLatin1(terminalScript),
        "sh", file};
}

} // namespace

TextTarget::TextTarget(Kind targetKind, Display* testDisplay, Window notThis)
    : kind(targetKind)
    , display(testDisplay)
    , other(notThis)
{
    QStringList command;
    switch (kind) {
    case Kind::PlainX:
        plain = std::make_unique<KeyTargetProcess>(XDisplayString(display), QRect(0, 0, 100, 60));
        return;
    case Kind::Terminal:
        command = terminalCommand(directory.filePath("text"));
        break;
    case Kind::Qt:
        command = QStringList{QStringLiteral(KBD_QT_TARGET)};
        break;
    case Kind::Tk:
        command = QStringList{"wish", QStringLiteral(KBD_TK_TARGET)};
    }
    process.start(command.takeFirst(), command);
}

TextTarget::~TextTarget()
{
    process.kill();
    process.waitForFinished(endLimitMs);
}

QByteArray TextTarget::output()
{
    if (kind != Kind::Terminal)
        return received += process.readAllStandardOutput();
    QFile file(directory.filePath("text"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The manager's list has the program's own window besides, and nothing else.
Window TextTarget::window() const
{
    const auto clients =
        x11::property(display, XDefaultRootWindow(display), "_NET_CLIENT_LIST").numbers;
    for (const unsigned long client : clients) {
        if (client != other)
            return client;
    }
    return x11::none;
}

bool TextTarget::hasFocus() const
{
    const auto active = x11::numberProperty(display, XDefaultRootWindow(display), activeWindowName);
    return active && *active == window() && x11::focusWindow(display) != x11::none;
}

bool TextTarget::waitForReady()
{
    if (plain && !plain->waitForReady())
        return false;
    Window asked = x11::none;
    return waitUntil([&] {
        const Window its = window();
        if (its != x11::none && its != asked)
            activate(display, asked = its);
        return its != x11::none && hasFocus() && (plain || output().contains(readyLine));
    });
}

QString TextTarget::typed()
{
    if (!plain)
        return QString::fromLatin1(output().replace(readyLine, ""));
    QString text;
    const QList<KeyTargetLine> keys = plain->keys();
    for (const KeyTargetLine& line : keys) {
        if (line.kind == KeyTargetLine::Kind::Press)
            text += line.keysym;
    }
    return text;
}
