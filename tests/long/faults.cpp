// Faults around the program: the server stopped or gone, keyboards that come faster than anyone can
// look, tools that lie, geometries that nobody would draw, no fonts, no room to write. The program
// goes on, or ends with a status and words; it never crashes, never hangs, and leaves no key down.

#include "harness/KeyTargetProcess.h"
#include "harness/PrivateServer.h"
#include "harness/ProgramRun.h"
#include "harness/ProgramWindows.h"
#include "harness/WaitUntil.h"
#include "harness/XErrors.h"
#include "harness/XProxy.h"
#include "harness/XTools.h"
#include "tests/long/HostileGeometries.h"
#include "tests/long/LongRun.h"
#include "x11/X11.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <array>
#include <csignal>
#include <functional>
#include <memory>
#include <random>
#include <sys/socket.h>

namespace {

constexpr int stopMs = 2000;
constexpr int longestStartMs = 150; // until the window is there, about
constexpr int startStepMs = 30;
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

// Lines of kbdSpecs.tab.
constexpr std::array<const char*, 9> hostileLines{{
    "No such layout\tnone.png\tpc105\tnosuchlayout",
    "No such model\tnone.png\tnosuchmodel\tus\tnosuchvariant",
    "An option\tnone.png\t-display\t:99",
    "Another\tnone.png\t-help\t-query\t-version",
    "A path\t../../../../dev/zero\tpc105\t../../../etc/passwd",
    "A shell's\t$(id).png\tpc105\t`id`;id|id&id",
    "A format's\t%s%n.png\tpc105\t%s%n%n%1%2",
    "<b>Markup</b>\t<img>.png\tpc105\t<img src='/dev/zero'>\t&lt;",
    "A keymap's\tnone.png\tpc105\tus\" }; xkb_geometry { include \"none",
}};
constexpr char tableFile[] = "kbdSpecs.tab";
constexpr int tooLong = 100000;
constexpr int manyGroups = 1000;
constexpr int noSuchEntry = 3; // see choosing_program.cpp
constexpr qsizetype fewGeometries = 2; // that are tried however short the run is
constexpr double pictureShare = 2.0 / 3; // of a window, from above
constexpr double wholeWindow = 1;
constexpr double leftShare = 3.0 / 4; // of its width

// Lines on standard error that nothing from outside may bring about.
constexpr std::array<const char*, 4> wordsOfFailure{
    "XCB error", "X Error", "runtime error", "Sanitizer"};

bool write(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size()
        && file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

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
    void serverIsKilledDuringTheStart();
    void keyboardsComeFast();
    void targetsGoBetweenPressAndRelease();
    void thereAreNoFonts();
    void nothingCanBeWritten();
    void toolsLie();
    void toolsLieAtAChoice();
    void xTestIsAbsent();
    void xkbIsAbsent();
    void clientIsUntrusted();
    void clientIsTrusted();
    void tableIsHostile();
    void geometriesAreHostile();

    int count() const { return suffered; }

private:
    void useProgram(const char* file);
    void useCookie(const char* kind, const std::function<void()>& action);
    void useBadTool(const ToolRow& row, const QTemporaryDir& directory);
    void showGeometry(qsizetype index, const HostileXkbData& data);
    bool choose(int entry, const QString& directory);
    void verifyShownOrRefused(const QStringList& arguments, double share = pictureShare);
    bool start(const QStringList& arguments = {"--tofocus"});
    void pressSomewhere();
    void releaseButton();
    void strikeKeys();
    bool isDrawn(double share) const;
    void verifyAnswers(double share = pictureShare);
    void verifyNoFailure();
    void verifyEnds(bool mayBeZero);
    void broken(const QString& what) { run.broken(current + QStringLiteral(": ") + what); }
    QPoint somewhereIn(Window where, double widthShare = 1);

    LongRun& run;
    std::mt19937 chance;
    int suffered = 0;
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
    useProgram(KBD_PROGRAM);
    (this->*fault)();
    program.reset();
    connection.reset();
    server.reset();
}

void Faults::useProgram(const char* file)
{
    program = std::make_unique<ProgramRun>(QString::fromLocal8Bit(file), server->display());
}

bool Faults::start(const QStringList& arguments)
{
    program->start(arguments);
    window = program->waitForWindow(connection.get());
    if (window == x11::none)
        broken(QStringLiteral("no window: ") + QString::fromUtf8(program->errors()));
    return window != x11::none;
}

// Whether there is more than one colour in this share of the window, from above.
bool Faults::isDrawn(double share) const
{
    const auto shown = grabWindow(connection.get(), window);
    if (!shown || shown->image.isNull())
        return false;
    const QImage& image = shown->image;
    const QRgb first = image.pixel(0, 0);
    for (int y = 0; y < image.height() * share; ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != first)
                return true;
        }
    }
    return false;
}

// It draws: a program that hangs does not repaint a window that comes back.
void Faults::verifyAnswers(double share)
{
    XUnmapWindow(connection.get(), window);
    XMapWindow(connection.get(), window);
    XSync(connection.get(), x11::xFalse);
    if (!waitUntil([&] { return isDrawn(share) || !program->isRunning(); }))
        broken(QStringLiteral("does not draw any more"));
    if (!program->isRunning())
        broken(QStringLiteral("has ended: ") + QString::fromUtf8(program->errors()));
    if (!waitUntil([this] { return pressedKeys(server->display()).isEmpty(); }))
        broken(QStringLiteral("a key is down"));
    verifyNoFailure();
}

void Faults::verifyNoFailure()
{
    const QByteArray errors = program->errors();
    for (const char* word : wordsOfFailure) {
        if (errors.contains(word))
            broken(QString::fromUtf8(errors));
    }
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
    verifyNoFailure();
}

// With a key down; the button goes up when the server goes on.
void Faults::serverIsStopped()
{
    if (!start())
        return;
    pressSomewhere();
    const pid_t process = serverOf(connection.get());
    kill(process, SIGSTOP);
    if (program->waitForEnd(stopMs))
        broken(QStringLiteral("ends while the server is stopped"));
    kill(process, SIGCONT);
    releaseButton();
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

void Faults::serverIsKilledDuringTheStart()
{
    for (int delay = 0; delay <= longestStartMs; delay += startStepMs) {
        connection.reset();
        server = std::make_unique<PrivateServer>();
        connection = openDisplay(server->display());
        useProgram(KBD_PROGRAM);
        program->start({"--tofocus"});
        program->waitForEnd(delay);
        const pid_t process = serverOf(connection.get());
        connection.reset(); // the end of the server would end this process too
        kill(process, SIGKILL);
        verifyEnds(false);
    }
}

// In the upper two thirds, which are the picture.
QPoint Faults::somewhereIn(Window where, double widthShare)
{
    XWindowAttributes area{};
    XGetWindowAttributes(connection.get(), where, &area);
    const auto below = [this](int count) {
        return static_cast<int>(chance() % static_cast<unsigned>(std::max(1, count)));
    };
    const int width = static_cast<int>(area.width * widthShare);
    return {area.x + below(width), area.y + below(area.height * 2 / 3)};
}

void Faults::pressSomewhere()
{
    const QPoint place = somewhereIn(window);
    XTestFakeMotionEvent(connection.get(), -1, place.x(), place.y(), CurrentTime);
    XTestFakeButtonEvent(connection.get(), 1, x11::xTrue, CurrentTime);
    XSync(connection.get(), x11::xFalse);
}

void Faults::releaseButton()
{
    XTestFakeButtonEvent(connection.get(), 1, x11::xFalse, CurrentTime);
    XSync(connection.get(), x11::xFalse);
}

void Faults::targetsGoBetweenPressAndRelease()
{
    if (!start())
        return;
    for (int i = 0; i < strokes && run.goesOn(); ++i) {
        auto target = std::make_unique<KeyTargetProcess>(server->display(), QRect(0, 0, 100, 60));
        if (!target->waitForReady())
            return broken(QStringLiteral("a target does not start"));
        pressSomewhere();
        if (i % 2 == 0) // a key goes down there, unless it is a modifier's or none
            target->waitForKeys(1, keyboardEveryMs);
        target.reset();
        releaseButton();
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

// The directories of the user are no directories, and what the program says goes to a full disk.
void Faults::nothingCanBeWritten()
{
    const QTemporaryDir directory;
    const QString script = directory.filePath(QStringLiteral("program"));
    if (!write(script, "#!/bin/sh\nexec " KBD_PROGRAM " \"$@\" >/dev/full 2>&1\n"))
        return broken(QStringLiteral("no script"));
    useProgram(script.toLocal8Bit().constData());
    for (const char* variable :
        {"HOME", "TMPDIR", "XDG_CACHE_HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR"})
        program->setVariable(QLatin1StringView(variable), QStringLiteral("/dev/full"));
    if (start())
        verifyAnswers();
}

// Puts the tool into the directory and the directory first in the program's search path.
void Faults::useBadTool(const ToolRow& row, const QTemporaryDir& directory)
{
    ++suffered;
    current = QStringLiteral("setxkbmap ") + QLatin1StringView(row.word);
    if (!write(directory.filePath(QStringLiteral("setxkbmap")),
            QByteArray("#!/bin/sh\n: >\"$0.ran\"\n") + row.script + '\n'))
        broken(QStringLiteral("no tool"));
    program->setVariable(
        QStringLiteral("PATH"), directory.path() + QLatin1Char(':') + qEnvironmentVariable("PATH"));
}

void Faults::toolsLie()
{
    for (const ToolRow& row : badTools) {
        const QTemporaryDir directory;
        useProgram(KBD_PROGRAM);
        useBadTool(row, directory);
        program->start({"--standalone"});
        verifyEnds(false);
    }
}

// The tool is the real one at the start, and a bad one from then on. The picture stays, or the
// program says why it ends.
void Faults::toolsLieAtAChoice()
{
    for (const ToolRow& row : badTools) {
        const QTemporaryDir directory;
        const QByteArray script = "mv \"$0\" \"$0.first\"\nmv \"$0.then\" \"$0\"\nexec "
            + QStandardPaths::findExecutable(QStringLiteral("setxkbmap")).toLocal8Bit() + " \"$@\"";
        useProgram(KBD_CHOOSING_PROGRAM);
        useBadTool(row, directory);
        QFile::rename(directory.filePath(QStringLiteral("setxkbmap")),
            directory.filePath(QStringLiteral("setxkbmap.then")));
        if (!write(directory.filePath(QStringLiteral("setxkbmap")), "#!/bin/sh\n" + script + '\n'))
            return broken(QStringLiteral("no tool"));
        if (!write(directory.filePath(QLatin1StringView(tableFile)), "Any\tany.png\tpc105\tfr\n"))
            broken(QStringLiteral("no table"));
        if (!choose(0, directory.path())
            || !QFile::exists(directory.filePath(QStringLiteral("setxkbmap.ran"))))
            broken(QStringLiteral("is not asked at a choice"));
    }
}

// Whether the list has an entry of this number. Its table lies in the directory.
bool Faults::choose(int entry, const QString& directory)
{
    program->setWorkingDirectory(directory);
    program->setVariable(QStringLiteral("KBD_CHOICE"), QString::number(entry));
    program->start({"--standalone"});
    if (!program->waitForEnd())
        broken(QStringLiteral("does not end"));
    const int status = program->exitStatus();
    if (status == noSuchEntry)
        return false;
    if (status < 0 || (status != 0 && program->errors().isEmpty()))
        broken(QStringLiteral("entry %1 ends it with status %2").arg(entry).arg(status));
    verifyNoFailure();
    return true;
}

// Every line of the table is chosen.
void Faults::tableIsHostile()
{
    QByteArray table;
    for (const char* line : hostileLines)
        table += QByteArray(line) + '\n';
    table += "Long\tlong.png\tpc105\t" + QByteArray(tooLong, 'x') + '\n';
    table += "Groups\tgroups.png\tpc105\t" + QByteArray("us,").repeated(manyGroups) + "us\n";
    const auto entries = static_cast<int>(table.count('\n'));
    const QTemporaryDir directory;
    if (!write(directory.filePath(QLatin1StringView(tableFile)), table))
        broken(QStringLiteral("no table"));
    int entry = 0;
    do {
        ++suffered;
        useProgram(KBD_CHOOSING_PROGRAM);
    } while (choose(entry++, directory.path()) && run.goesOn());
    if (run.goesOn() && entry <= entries)
        broken(QStringLiteral("only %1 entries in the list").arg(entry - 1));
}

void Faults::xTestIsAbsent()
{
    const XProxy proxy(server->display(), hidingExtension("XTEST"));
    program = std::make_unique<ProgramRun>(QStringLiteral(KBD_PROGRAM), proxy.display());
    program->setVariable(QStringLiteral("QT_XCB_NO_MITSHM"), QStringLiteral("1"));
    targetsGoBetweenPressAndRelease();
    program.reset();
}

void Faults::xkbIsAbsent()
{
    const XProxy proxy(server->display(), hidingExtension("XKEYBOARD"));
    program = std::make_unique<ProgramRun>(QStringLiteral(KBD_PROGRAM), proxy.display());
    program->start({"--tofocus"});
    verifyEnds(false);
    program.reset();
}

// As "ssh -X" has it.
void Faults::clientIsUntrusted()
{
    useCookie("untrusted", [this] {
        for (const char* mode : {"--tofocus", "--standalone"})
            verifyShownOrRefused({QLatin1StringView(mode)});
    });
}

// As "ssh -Y" has it.
void Faults::clientIsTrusted()
{
    useCookie("trusted", [this] { targetsGoBetweenPressAndRelease(); });
}

// Does it with a program that has a cookie of this kind, by which the server tells clients apart
// that it does not trust.
void Faults::useCookie(const char* kind, const std::function<void()>& action)
{
    const QTemporaryDir directory;
    const QString own = directory.filePath(QStringLiteral("own"));
    const QString given = directory.filePath(QStringLiteral("given"));
    const auto xauth = [](const QStringList& arguments, const QByteArray& display) {
        return runTool(QStringLiteral("xauth"), arguments, display).status == 0;
    };
    const QStringList cookie{".", QString::fromLatin1(QByteArray(16, '7').toHex())};
    bool isReady = xauth(QStringList{"-f", own, "add", ":0"} + cookie, {});
    connection.reset();
    server = std::make_unique<PrivateServer>(QStringList{"-auth", own});
    const QString name = QString::fromLatin1(server->display());
    isReady = isReady && xauth(QStringList{"-f", own, "add", name} + cookie, {});
    qputenv("XAUTHORITY", own.toLocal8Bit());
    connection = openDisplay(server->display());
    isReady = isReady && connection
        && xauth({"-f", given, "generate", name, ".", kind}, server->display());
    useProgram(KBD_PROGRAM);
    program->setVariable(QStringLiteral("XAUTHORITY"), given);
    if (isReady)
        action();
    else
        broken(QStringLiteral("no cookie"));
    program.reset();
    connection.reset();
    qunsetenv("XAUTHORITY");
}

void Faults::verifyShownOrRefused(const QStringList& arguments, double share)
{
    program->start(arguments);
    window = program->waitForWindow(connection.get());
    if (window == x11::none)
        return verifyEnds(false);
    strikeKeys();
    verifyAnswers(share);
}

// A flat picture leaves the upper two thirds to other controls. Those on the right print it and
// close the window.
void Faults::strikeKeys()
{
    for (int i = 0; i < strokes; ++i) {
        const QPoint place = somewhereIn(window, leftShare);
        XTestFakeMotionEvent(connection.get(), -1, place.x(), place.y(), CurrentTime);
        XTestFakeButtonEvent(connection.get(), 1, x11::xTrue, CurrentTime);
        XTestFakeButtonEvent(connection.get(), 1, x11::xFalse, CurrentTime);
    }
    XSync(connection.get(), x11::xFalse);
}

// A short run tries a few, others each time.
void Faults::geometriesAreHostile()
{
    const HostileXkbData data;
    connection.reset();
    server = std::make_unique<PrivateServer>(QStringList{"-xkbdir", data.path()});
    connection = openDisplay(server->display());
    const qsizetype count = hostileGeometries().size();
    const auto first = static_cast<qsizetype>(chance() % static_cast<unsigned>(count));
    for (qsizetype i = 0; i < count && (i < fewGeometries || run.goesOn()); ++i)
        showGeometry((first + i) % count, data);
}

// It is the server's, and it is chosen at the start and in the list.
void Faults::showGeometry(qsizetype index, const HostileXkbData& data)
{
    ++suffered;
    current = QStringLiteral("geometry: ") + QLatin1StringView(hostileGeometries().at(index).word);
    const QString name = HostileXkbData::name(index);
    setKeyboard(server->display(), {"-geometry", name});
    // A click may choose what the list offers: not the geometry before, which may be a refused one.
    const QString table = QDir(data.path()).filePath(QLatin1StringView(tableFile));
    QFile::remove(table);
    for (const char* mode : {"--tofocus", "--standalone"}) {
        useProgram(KBD_PROGRAM);
        program->setWorkingDirectory(data.path());
        verifyShownOrRefused(
            {QLatin1StringView(mode), "-model", name, "-layout", "us"}, wholeWindow);
    }
    useProgram(KBD_CHOOSING_PROGRAM);
    if (!write(table, "Hostile\tnone.png\t" + name.toLatin1() + "\tus\n")
        || !choose(0, data.path()))
        broken(QStringLiteral("no entry in the list"));
}

struct FaultRow {
    const char* word;
    Faults::Fault fault;
};

constexpr std::array<FaultRow, 15> rows{{
    {"server stopped", &Faults::serverIsStopped},
    {"server killed", &Faults::serverIsKilled},
    {"server killed during the start", &Faults::serverIsKilledDuringTheStart},
    {"a keyboard every 50 ms", &Faults::keyboardsComeFast},
    {"targets that go", &Faults::targetsGoBetweenPressAndRelease},
    {"no fonts", &Faults::thereAreNoFonts},
    {"nothing can be written", &Faults::nothingCanBeWritten},
    {"setxkbmap", &Faults::toolsLie},
    {"setxkbmap at a choice", &Faults::toolsLieAtAChoice},
    {"no XTEST", &Faults::xTestIsAbsent},
    {"no XKB", &Faults::xkbIsAbsent},
    {"untrusted", &Faults::clientIsUntrusted},
    {"trusted", &Faults::clientIsTrusted},
    {"a hostile table", &Faults::tableIsHostile},
    {"hostile geometries", &Faults::geometriesAreHostile},
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
    return run.finish({QStringLiteral("%1 suffered").arg(faults.count())});
}
