#include "harness/XTools.h"

#include "harness/XErrors.h"
#include "x11/Property.h"
#include "x11/X11.h"

#include <QProcess>

namespace {

constexpr int toolLimitMs = 30000;
constexpr int lowestKeycode = 8;
constexpr int highestKeycode = 255;

} // namespace

XConnection openDisplay(const QByteArray& name)
{
    return XConnection(XOpenDisplay(name.constData()));
}

ToolResult runTool(const QString& program, const QStringList& arguments, const QByteArray& display)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("DISPLAY", QString::fromLatin1(display));
    process.setProcessEnvironment(environment);
    process.start(program, arguments, QIODevice::ReadOnly);
    ToolResult result;
    if (process.waitForFinished(toolLimitMs) && process.exitStatus() == QProcess::NormalExit)
        result.status = process.exitCode();
    result.output = process.readAllStandardOutput();
    result.errors = process.readAllStandardError();
    return result;
}

bool setKeyboard(const QByteArray& display, const QStringList& arguments)
{
    return runTool("setxkbmap", arguments, display).status == 0;
}

QByteArray keymapText(const QByteArray& display)
{
    const ToolResult result =
        runTool("xkbcomp", {"-w", "0", "-xkb", QString::fromLatin1(display), "-"}, display);
    return result.status == 0 ? result.output : QByteArray();
}

QList<int> pressedKeys(const QByteArray& display)
{
    const XConnection connection = openDisplay(display);
    char bits[32] = {};
    if (connection)
        XQueryKeymap(connection.get(), bits);
    QList<int> result;
    for (int keycode = lowestKeycode; keycode <= highestKeycode; ++keycode) {
        if (bits[keycode / 8] & (1 << keycode % 8))
            result.append(keycode);
    }
    return result;
}

bool isManaged(Display* display)
{
    // The window that a former manager announced may be gone.
    const ExpectedXErrors errors;
    const char* const announcement = "_NET_SUPPORTING_WM_CHECK";
    const auto announced = x11::numberProperty(display, XDefaultRootWindow(display), announcement);
    return announced && x11::numberProperty(display, *announced, announcement) == announced;
}
