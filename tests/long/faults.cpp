// Faults around the program: the server stopped or gone, keyboards that come faster than anyone can
// look, tools that lie, no fonts, no room to write. The program goes on, or ends with a status and
// words; it never crashes, never hangs, and leaves no key down.

#include "harness/KeyTargetProcess.h"
#include "harness/PrivateServer.h"
#include "harness/ProgramRun.h"
#include "harness/ProgramWindows.h"
#include "harness/WaitUntil.h"
#include "harness/XErrors.h"
#include "harness/XTools.h"
#include "tests/long/LongRun.h"
#include "x11/X11.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <array>
#include <csignal>
#include <memory>
#include <random>
#include <sys/socket.h>

namespace {

constexpr int stopMs = 2000;
constexpr int keyboardEveryMs = 50;
constexpr int newKeyboards = 40;
constexpr int strokes = 40;

// A setxkbmap in place of the real one, as a shell script.
struct ToolRow {
    const char* word;
    const char* script;
};

constexpr std::array<ToolRow, 8> badTools{{
    {"says nothing", "exit 0"},
    {"fails", "exit 1"},
    {"is killed", "kill -9 $$"},
    {"prints bytes", "head -c 100000 /dev/urandom"},
    {"never ends a line", "head -c 900000 /dev/zero | tr '\\0' x"},
    {"prints without end", "exec yes xkb_symbols"},
    {"names what is not there",
        "echo 'xkb_keycodes { include \"none\" };'\n"
        "echo 'xkb_types { include \"none\" };'\n"
        "echo 'xkb_compat { include \"none\" };'\n"
        "echo 'xkb_symbols { include \"none\" };'\n"
        "echo 'xkb_geometry { include \"none\" };'"},
    {"names what is too long",
        "n=$(head -c 5000 /dev/zero | tr '\\0' x)\n"
        "for s in keycodes types compat symbols geometry; do\n"
        "  echo \"xkb_$s { include \\\"$n\\\" };\"\ndone"},
}};

pid_t serverOf(Display* display)
{
    ucred peer{};
    socklen_t size = sizeof peer;
    getsockopt(XConnectionNumber(display), SOL_SOCKET, SO_PEERCRED, &peer, &size);
    return peer.pid;
}

// One server and one program for each fault.
class Faults {
public:
    explicit Faults(LongRun& longRun)
        : run(longRun)
        , chance(run.seed())
    {
    }

    using Fault = void (Faults::*)();
    void suffer(const char* word, Fault fault);
    void serverIsStopped();
    void serverIsKilled();
    void keyboardsComeFast();
    void targetsGoBetweenPressAndRelease();
    void thereAreNoFonts();
    void nothingCanBeWritten();
    void toolsLie();

    int suffered = 0;

private:
    bool start(const QStringList& arguments = {"--tofocus"});
    void verifyAnswers();
    void verifyEnds(bool mayBeZero);
    void broken(const QString& what) { run.broken(current + QStringLiteral(": ") + what); }
    QPoint somewhereIn(Window window);

    LongRun& run;
    std::mt19937 chance;
    QString current;
    std::unique_ptr<PrivateServer> server;
    XConnection connection;
    std::unique_ptr<ProgramRun> program;
    Window window = x11::none;
};

void Faults::suffer(const char* word, Fault fault)
{
    current = QLatin1StringView(word);
    ++suffered;
    server = std::make_unique<PrivateServer>();
    connection = openDisplay(server->display());
    program = std::make_unique<ProgramRun>(QStringLiteral(KBD_PROGRAM), server->display());
    (this->*fault)();
    program.reset();
    connection.reset();
    server.reset();
}

bool Faults::start(const QStringList& arguments)
{
    program->start(arguments);
    window = program->waitForWindow(connection.get());
    if (window == x11::none)
        broken(QStringLiteral("no window: ") + QString::fromUtf8(program->errors()));
    return window != x11::none;
}

// It draws: a program that hangs does not repaint a window that comes back.
void Faults::verifyAnswers()
{
    XUnmapWindow(connection.get(), window);
    XMapWindow(connection.get(), window);
    XSync(connection.get(), x11::xFalse);
    const auto isDrawn = [this] {
        const auto shown = grabWindow(connection.get(), window);
        if (!shown || shown->image.isNull())
            return false;
        const QRgb first = shown->image.pixel(0, 0);
        for (int x = 0; x < shown->image.width(); ++x) {
            if (shown->image.pixel(x, shown->image.height() / 3) != first)
                return true;
        }
        return false;
    };
    if (!waitUntil(isDrawn) || !program->isRunning())
        broken(QStringLiteral("does not draw any more"));
    if (!waitUntil([this] { return pressedKeys(server->display()).isEmpty(); }))
        broken(QStringLiteral("a key is down"));
}

void Faults::verifyEnds(bool mayBeZero)
{
    if (!program->waitForEnd())
        return broken(QStringLiteral("does not end"));
    const int status = program->exitStatus();
    if (status < 0 || (status == 0 && !mayBeZero))
        broken(QStringLiteral("ends with status %1").arg(status));
    if (!mayBeZero && program->errors().isEmpty())
        broken(QStringLiteral("ends without a word"));
}

void Faults::serverIsStopped()
{
    if (!start())
        return;
    const pid_t process = serverOf(connection.get());
    kill(process, SIGSTOP);
    if (program->waitForEnd(stopMs))
        broken(QStringLiteral("ends while the server is stopped"));
    kill(process, SIGCONT);
    verifyAnswers();
}

void Faults::serverIsKilled()
{
    if (!start())
        return;
    const pid_t process = serverOf(connection.get());
    connection.reset(); // the end of the server would end this process too
    kill(process, SIGKILL);
    verifyEnds(false);
}

void Faults::keyboardsComeFast()
{
    if (!start())
        return;
    const QStringList layouts{"us", "de", "ru,us", "fr", "jp"};
    for (int i = 0; i < newKeyboards; ++i) {
        QElapsedTimer clock;
        clock.start();
        setKeyboard(server->display(), {"-layout", layouts.at(i % layouts.size())});
        program->waitForEnd(std::max<int>(0, keyboardEveryMs - static_cast<int>(clock.elapsed())));
    }
    verifyAnswers();
}

// In the upper two thirds, which are the picture.
QPoint Faults::somewhereIn(Window where)
{
    XWindowAttributes area{};
    XGetWindowAttributes(connection.get(), where, &area);
    const auto below = [this](int count) {
        return static_cast<int>(chance() % static_cast<unsigned>(std::max(1, count)));
    };
    return {area.x + below(area.width), area.y + below(area.height * 2 / 3)};
}

void Faults::targetsGoBetweenPressAndRelease()
{
    if (!start())
        return;
    for (int i = 0; i < strokes && run.goesOn(); ++i) {
        auto target = std::make_unique<KeyTargetProcess>(server->display(), QRect(0, 0, 100, 60));
        if (!target->waitForReady())
            return broken(QStringLiteral("a target does not start"));
        const QPoint place = somewhereIn(window);
        XTestFakeMotionEvent(connection.get(), -1, place.x(), place.y(), CurrentTime);
        XTestFakeButtonEvent(connection.get(), 1, x11::xTrue, CurrentTime);
        XSync(connection.get(), x11::xFalse);
        if (i % 2 == 0) // a key goes down there, unless it is a modifier's or none
            target->waitForKeys(1, keyboardEveryMs);
        target.reset();
        XTestFakeButtonEvent(connection.get(), 1, x11::xFalse, CurrentTime);
        XSync(connection.get(), x11::xFalse);
    }
    verifyAnswers();
}

void Faults::thereAreNoFonts()
{
    const QTemporaryDir directory;
    QFile file(directory.filePath(QStringLiteral("fonts.conf")));
    if (!file.open(QIODevice::WriteOnly) || file.write("<fontconfig></fontconfig>\n") < 0)
        return broken(QStringLiteral("no settings for fontconfig"));
    file.close();
    program->setVariable(QStringLiteral("FONTCONFIG_FILE"), file.fileName());
    if (start())
        verifyAnswers();
}

// The directories of the user are no directories, and every write fails as on a full disk.
void Faults::nothingCanBeWritten()
{
    for (const char* variable :
        {"HOME", "TMPDIR", "XDG_CACHE_HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR"})
        program->setVariable(QLatin1StringView(variable), QStringLiteral("/dev/full"));
    if (start())
        verifyAnswers();
}

void Faults::toolsLie()
{
    for (const ToolRow& row : badTools) {
        const QTemporaryDir directory;
        QFile tool(directory.filePath(QStringLiteral("setxkbmap")));
        if (!tool.open(QIODevice::WriteOnly)
            || tool.write(QByteArray("#!/bin/sh\n") + row.script + '\n') < 0)
            return broken(QStringLiteral("no tool"));
        tool.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
        tool.close();
        ++suffered;
        current = QStringLiteral("setxkbmap ") + QLatin1StringView(row.word);
        program = std::make_unique<ProgramRun>(QStringLiteral(KBD_PROGRAM), server->display());
        program->setVariable(QStringLiteral("PATH"),
            directory.path() + QLatin1Char(':') + qEnvironmentVariable("PATH"));
        program->start({"--standalone"});
        verifyEnds(false);
    }
}

struct FaultRow {
    const char* word;
    Faults::Fault fault;
};

constexpr std::array<FaultRow, 7> rows{{
    {"server stopped", &Faults::serverIsStopped},
    {"server killed", &Faults::serverIsKilled},
    {"a keyboard every 50 ms", &Faults::keyboardsComeFast},
    {"targets that go", &Faults::targetsGoBetweenPressAndRelease},
    {"no fonts", &Faults::thereAreNoFonts},
    {"nothing can be written", &Faults::nothingCanBeWritten},
    {"setxkbmap", &Faults::toolsLie},
}};

} // namespace

int main(int argc, char** argv)
{
    LongRun run("faults", argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int none = 1;
    const QApplication application(none, argv);
    const ExpectedXErrors errors; // of the test's own connection, whose windows go
    Faults faults(run);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (run.isOurs(static_cast<qsizetype>(i)))
            faults.suffer(rows[i].word, rows[i].fault);
    }
    return run.finish({QStringLiteral("%1 suffered").arg(faults.suffered)});
}
