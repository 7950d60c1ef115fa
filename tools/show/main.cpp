// Shows the program at work where there is no display: on a private X server with a window manager
// and a terminal it types a line into the terminal by clicking keys, prints the line that arrived,
// and leaves a screenshot. Ends with 0 only if every click had its effect and the right line has
// arrived.
//
//   kbd-show --program FILE --directory DIR --screenshot FILE [--crop] [--xkb-directory DIR]
//            [-- program's arguments]
//
// With --standalone the line goes to the program's own sample line. --crop leaves the windows only,
// without the bare screen around them. The server's keyboard data are those of the build, unless
// another directory is named.

#include "LineTyper.h"
#include "Screenshot.h"
#include "Terminal.h"

#include "app/description/ComponentNames.h"
#include "harness/PictureLocator.h"
#include "harness/PrivateServer.h"
#include "harness/WindowManager.h"
#include "harness/XTools.h"
#include "model/KbdGeometry.h"
#include "x11/Queries.h"
#include "x11/X11.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>
#include <optional>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr int startDeadline = 20000; // milliseconds
constexpr QRgb pictureGround = qRgb(169, 169, 169); // the base colour of our geometries

// The private server's keyboard: the one that the program is asked to show, else one that has a
// third level.
struct Settings {
    QString model = u"pc105"_s;
    QString layout = u"de"_s;
    QString variant;
};

Settings settingsIn(const QStringList& arguments)
{
    Settings settings;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const auto take = [&](const char* name, QString& value) {
            const QString option = QLatin1StringView(name);
            if (arguments.at(i).startsWith(option + u'='))
                value = arguments.at(i).mid(option.size() + 1);
            else if (i + 1 < arguments.size()
                && (arguments.at(i) == option || arguments.at(i) == option.mid(1)))
                value = arguments.at(i + 1);
        };
        take("--model", settings.model);
        take("--layout", settings.layout);
        take("--variant", settings.variant);
    }
    return settings;
}

QStringList setxkbmapArguments(const Settings& settings)
{
    QStringList arguments{u"-model"_s, settings.model, u"-layout"_s, settings.layout};
    if (!settings.variant.isEmpty())
        arguments << u"-variant"_s << settings.variant;
    return arguments;
}

// The keyboard that the program shows, for the places of its keys; never shown itself.
std::unique_ptr<KbdGeometry> samePicture(Display* display, const Settings& settings)
{
    XkbComponentNamesRec names{};
    const ComponentNamesGuard guard(&names);
    if (!queryComponentNames(
            &names, display, settings.model, settings.layout, settings.variant, QString()))
        throw std::runtime_error("setxkbmap names no keyboard");
    return std::make_unique<KbdGeometry>(
        settings.model, settings.layout, settings.variant, QString(), &names, false, nullptr);
}

Window waitForWindow(Display* display, qint64 processId)
{
    Window window = x11::none;
    if (!QTest::qWaitFor([&] { return (window = mainWindowOf(display, processId)) != x11::none; },
            startDeadline))
        throw std::runtime_error("a program shows no window");
    return window;
}

// What the user asked to be shown.
struct Show {
    QString program;
    QString directory;
    QString screenshot;
    QString xkbDirectory;
    bool crop = false;
    QStringList arguments;

    bool typesIntoTerminal() const { return arguments.contains(u"--tofocus"_s); }
};

void start(QProcess& process, const Show& show)
{
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.setWorkingDirectory(show.directory);
    process.start(show.program, show.arguments);
    if (!process.waitForStarted())
        throw std::runtime_error("the program cannot be started");
}

void waitForFocus(Display* display, Window window)
{
    if (!QTest::qWaitFor([&] { return x11::focusWindow(display) == window; }, startDeadline))
        throw std::runtime_error("a window does not get the focus");
}

// Types into the terminal and says whether the line has arrived there.
bool typeInto(Terminal& terminal, LineTyper& typer)
{
    const QString line = typer.suggestLine();
    typer.typeLine(line);
    typer.typeReturn();
    const QString arrived = terminal.waitForLine();
    std::printf("Typed:      %s\nArrived:    %s\n", qPrintable(line), qPrintable(arrived));
    return arrived == line;
}

void end(QProcess& program)
{
    program.terminate();
    if (!program.waitForFinished())
        program.kill();
    program.waitForFinished();
}

// Types where the program, whose window is given, types: into the terminal where there is one.
bool typeAsTheUser(Display* display, const Settings& settings, Window window, Terminal* terminal)
{
    const std::unique_ptr<KbdGeometry> picture = samePicture(display, settings);
    PictureLocator locator(
        display, window, PictureLocator::groundOf(picture->sceneRect()), pictureGround);
    if (!locator.waitForPicture(startDeadline))
        throw std::runtime_error("the program shows no keyboard");

    LineTyper typer(display, *picture, locator,
        terminal ? LineTyper::Target::FocusedWindow : LineTyper::Target::OwnLine);
    if (terminal)
        return typeInto(*terminal, typer);
    typer.typeLine(typer.suggestLine());
    return true;
}

bool leavePicture(const Show& show)
{
    return screenshot::leave(
        show.crop ? screenshot::ofWindows() : screenshot::ofScreen(), show.screenshot);
}

int run(const Show& show, const QByteArray& displayName)
{
    const XConnection display = openDisplay(displayName);
    const Settings settings = settingsIn(show.arguments);
    if (!setKeyboard(displayName, setxkbmapArguments(settings)))
        throw std::runtime_error("setxkbmap does not know this keyboard");
    const WindowManager windowManager("openbox", displayName);
    screenshot::paintGround(display.get());

    std::optional<Terminal> terminal;
    if (show.typesIntoTerminal()) {
        terminal.emplace(displayName);
        waitForFocus(display.get(), waitForWindow(display.get(), terminal->processId()));
    }
    QProcess program;
    start(program, show);
    const Window window = waitForWindow(display.get(), program.processId());
    if (!terminal)
        waitForFocus(display.get(), window);
    const bool right =
        typeAsTheUser(display.get(), settings, window, terminal ? &*terminal : nullptr);
    const bool shown = leavePicture(show);
    end(program);
    return right && shown ? EXIT_SUCCESS : EXIT_FAILURE;
}

Show readArguments(const QStringList& commandLine)
{
    const QString value = u"value"_s;
    const QCommandLineOption program(u"program"_s, QString(), value);
    const QCommandLineOption directory(u"directory"_s, QString(), value);
    const QCommandLineOption screenshot(u"screenshot"_s, QString(), value);
    const QCommandLineOption crop(u"crop"_s);
    const QCommandLineOption xkbDirectory(u"xkb-directory"_s, QString(), value);
    QCommandLineParser parser;
    parser.addOptions({program, directory, screenshot, crop, xkbDirectory});
    parser.process(commandLine);
    QStringList arguments = parser.positionalArguments();
    if (arguments.isEmpty())
        arguments << u"--tofocus"_s;
    return {parser.value(program), parser.value(directory), parser.value(screenshot),
        parser.value(xkbDirectory), parser.isSet(crop), arguments};
}

// The server takes the last directory that it is given.
QStringList serverArguments(const Show& show)
{
    if (show.xkbDirectory.isEmpty())
        return {};
    return {u"-xkbdir"_s, show.xkbDirectory};
}

// The application object is yet to come: it needs the server, which needs the arguments.
QStringList commandLineOf(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    return arguments;
}

} // namespace

int main(int argc, char** argv)
{
    try {
        const Show show = readArguments(commandLineOf(argc, argv));
        // Qt makes such a directory itself where there is none, but not without a word.
        const QTemporaryDir runtimeDirectory;
        qputenv("XDG_RUNTIME_DIR", runtimeDirectory.path().toLocal8Bit());
        const PrivateServer server(serverArguments(show));
        server.useForThisProcess();
        const QApplication application(argc, argv);
        return run(show, server.display());
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "kbd-show: %s\n", failure.what());
    } catch (KbdGeometry::ExceptionType) {
        std::fprintf(stderr, "kbd-show: the server gives no keyboard\n");
    }
    return EXIT_FAILURE;
}
