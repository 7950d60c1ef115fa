// The whole program, which chooses layouts automatically: kbd-choose-layout RUNS
// prints, RUNS times in turns, how many milliseconds a choice takes until its picture is painted,
// and how many the tools take that the program runs for a choice.

#include "BareWindow.h"

#include "app/KbdApp.h"
#include "app/description/ComponentNames.h"
#include "harness/TopLevelWindow.h"
#include "model/KbdGeometry.h"
#include "ui/MainWindow.h"
#include "ui/specs/KbdSpec.h"
#include "x11/X11.h"
#include "x11/qt/ToolkitDisplay.h"

#include <QElapsedTimer>

#include <array>
#include <cstdio>
#include <functional>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<const char*, 2> layouts{"fr", "de"};
constexpr char model[] = "pc105";

kbdSpec_t specOf(const char* layout)
{
    const QString name = QString::fromLatin1(layout);
    return {name, name, name + u".png"_s, {QString::fromLatin1(model)}, {name}, {QString()}};
}

// Sees every widget paint.
class PaintWatch : public QObject {
public:
    // Runs the event loop until a widget for which this holds has been painted, and the server has
    // got it.
    void waitFor(const std::function<bool(const QObject*)>& isWanted)
    {
        wanted = isWanted;
        painted = false;
        while (!painted)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        XSync(toolkitDisplay(), x11::xFalse);
    }

    bool eventFilter(QObject* object, QEvent* event) override
    {
        painted = painted || (event->type() == QEvent::Paint && wanted && wanted(object));
        return false;
    }

private:
    std::function<bool(const QObject*)> wanted;
    bool painted = false;
};

// The picture in its full size: at first it can be smaller, before it is laid out.
void waitForPicture(PaintWatch& paints, const MainWindow& window, const QSize& size)
{
    paints.waitFor([&](const QObject* object) {
        return object == window.picture()->viewport() && window.picture()->size() == size;
    });
}

double measureChoice(PaintWatch& paints, MainWindow& window, const char* layout)
{
    kbdSpec_t spec = specOf(layout);
    const QSize size = window.picture()->size();
    QElapsedTimer timer;
    timer.start();
    window.newKbdSelected(&spec);
    waitForPicture(paints, window, size);
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

// setxkbmap -print and nothing around it.
void runTool(const char* layout)
{
    int ends[2];
    if (pipe(ends) != 0)
        return;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    posix_spawn_file_actions_addclose(&actions, ends[0]);
    posix_spawn_file_actions_addclose(&actions, ends[1]);
    const std::array<const char*, 7> command{
        "setxkbmap", "-model", model, "-layout", layout, "-print", nullptr};
    pid_t process = 0;
    const int failure = posix_spawnp(
        &process, command[0], &actions, nullptr, const_cast<char* const*>(command.data()), environ);
    close(ends[1]);
    std::array<char, 4096> text{};
    while (failure == 0 && read(ends[0], text.data(), text.size()) > 0) { }
    close(ends[0]);
    posix_spawn_file_actions_destroy(&actions);
    if (failure == 0)
        waitpid(process, nullptr, 0);
}

double measureTools(PaintWatch& paints, BareWindow& bare, const char* layout)
{
    Display* display = toolkitDisplay();
    XkbComponentNamesRec names{};
    const ComponentNamesGuard guard(&names);
    queryComponentNames(&names, display, QString::fromLatin1(model), QString::fromLatin1(layout),
        QString(), QString());

    QElapsedTimer timer;
    timer.start();
    runTool(layout);
    XkbDescPtr keyboard = XkbGetKeyboardByName(display, x11::coreKeyboard, &names,
        XkbGBN_AllComponentsMask, XkbGBN_AllComponentsMask, x11::xFalse);
    bare.update();
    paints.waitFor([&](const QObject* object) { return object == &bare; });
    const double time = static_cast<double>(timer.nsecsElapsed()) / 1e6;
    XkbFreeKeyboard(keyboard, XkbAllComponentsMask, x11::xTrue);
    return time;
}

void measure(PaintWatch& paints, MainWindow& window, int runs)
{
    waitForPicture(paints, window, window.picture()->size());
    BareWindow bare(window.size(), BareWindow::Look::Plain, false);
    bare.show();
    paints.waitFor([&](const QObject* object) { return object == &bare; });

    measureChoice(paints, window, layouts.back()); // the first one is slower
    for (int i = 0; i < runs; ++i) {
        const char* layout = layouts[static_cast<std::size_t>(i) % layouts.size()];
        std::printf("choice %.3f\n", measureChoice(paints, window, layout));
        std::printf("tools %.3f\n", measureTools(paints, bare, layout));
    }
}

} // namespace

int main(int argc, char** argv)
{
    const int runs = argc > 1 ? std::atoi(argv[1]) : 0;
    int count = 1; // of the arguments that are the program's
    try {
        auto* application = new KbdApp(count, argv); // lives until the process ends
        PaintWatch paints;
        application->installEventFilter(&paints);
        measure(paints, *topLevelWindow<MainWindow>(), runs);
    } catch (KbdApp::ExceptionType exception) {
        KbdApp::report(exception);
        return EXIT_FAILURE;
    }
    std::fflush(stdout);
    _exit(EXIT_SUCCESS);
}
