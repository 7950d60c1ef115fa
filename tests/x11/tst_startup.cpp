#include "app/KbdApp.h"
#include "app/KbdSwitcher.h"
#include "app/RefusalAdvice.h"
#include "app/description/ComponentNames.h"
#include "harness/FailurePictures.h"
#include "harness/ProgramRun.h"
#include "harness/ProgramWindows.h"
#include "harness/XProxy.h"
#include "harness/XTestMain.h"
#include "harness/XTools.h"
#include "ui/CKbdSpecSelector.h"
#include "ui/MainWindow.h"
#include "ui/specs/KbdConstants.h"
#include "x11/Property.h"
#include "x11/X11.h"
#include "x11/qt/ToolkitDisplay.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QLibraryInfo>
#include <QStandardPaths>

#include <array>
#include <atomic>
#include <csignal>
#include <cstring>
#include <functional>
#include <memory>
#include <optional>
#include <sys/inotify.h>
#include <unistd.h>

namespace {

// What the program says on standard error, by the reason.
const QByteArray xkbFailure("Exception: Cannot initialize xkb exception\n");
const QByteArray descriptionFailure("Error parsing given keyboard description\n");
const QByteArray rulesFailure("Exception:  Could not use 'setxkbmap -print' to compile rules.\n");

const QByteArray waitingLine("Waiting for setxkbmap to name the components of the keyboard\n");

// What the line has that helps where the server refuses a keyboard, and how it begins where the
// geometry may be the reason.
const QByteArray commandAdvice("For the X server's reason, run: ");
const QByteArray geometryAdvice("The geometry file pc-arvane must be in ");

const QByteArray usageText("Usage:  " KBD_PROGRAM " [options]\n"
                           "  -model m | --model=m\n"
                           "  -layout l | --layout=l\n"
                           "  -variant v | --variant=v\n"
                           "  -options o | --options=o\n"
                           "  --standalone\n"
                           "  --tofocus\n");

constexpr char switcherProgram[] = "/usr/bin/orvix-kbd-switcher";

// How the test's own program is told to do nothing but report an exception.
constexpr char endWithOption[] = "--end-with";
constexpr int wentOn = 42;

constexpr int betweenClicksMs = 600; // no double click, see QStyleHints::mouseDoubleClickInterval

// What setxkbmap prints, by its section for the geometry.
QByteArray keymap(const QByteArray& geometrySection)
{
    return "xkb_keymap {\n"
           "\txkb_keycodes  { include \"evdev+aliases(qwerty)\"\t};\n"
           "\txkb_types     { include \"complete\"\t};\n"
           "\txkb_compat    { include \"complete\"\t};\n"
           "\txkb_symbols   { include \"pc+us+inet(evdev)\"\t};\n"
        + geometrySection + "};\n";
}

QByteArray keymapWith(const QByteArray& geometry)
{
    return keymap("\txkb_geometry  { include \"" + geometry + "\"\t};\n");
}

QByteArray printing(const QByteArray& text)
{
    return "cat <<'END'\n" + text + "END\n";
}

// What the program says without the line that may follow a message to help the user.
QByteArray withoutAdvice(const QByteArray& errors)
{
    const qsizetype command = errors.indexOf(commandAdvice);
    const qsizetype advice = command < 0 ? -1 : errors.lastIndexOf('\n', command) + 1;
    return advice < 0 || errors.indexOf('\n', advice) != errors.size() - 1 ? errors
                                                                           : errors.left(advice);
}

bool writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return QDir().mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly)
        && file.write(content) == content.size();
}

// A directory with a setxkbmap of our own, to be searched before the system's.
class FakeSetxkbmap {
public:
    // `script` are the lines of a shell script; $real is the real tool, $here the directory.
    explicit FakeSetxkbmap(const QByteArray& script) { addTool("setxkbmap", script); }

    // Another tool of our own.
    void addTool(const QString& name, const QByteArray& script) const
    {
        const QByteArray header =
            "#!/bin/sh\nreal=" + QStandardPaths::findExecutable(name).toLocal8Bit()
            + "\nhere=" + directory.path().toLocal8Bit() + '\n';
        const QString path = directory.filePath(name);
        writeFile(path, header + script);
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    QString searchPath() const { return directory.path() + ':' + qEnvironmentVariable("PATH"); }
    QString filePath(const QString& name) const { return directory.filePath(name); }

private:
    QTemporaryDir directory;
};

// Counts how often any process opens a file, from here on.
class OpeningCounter {
public:
    explicit OpeningCounter(const QString& path)
        : descriptor(inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
        , watches(
              inotify_add_watch(descriptor, QFile::encodeName(path).constData(), IN_OPEN | IN_CLOSE)
              >= 0)
    {
    }
    ~OpeningCounter() { close(descriptor); }
    Q_DISABLE_COPY_MOVE(OpeningCounter)

    bool isWatching() const { return watches; }

    // The kernel reports equal events that follow each other as one: closing parts the openings.
    int count()
    {
        alignas(inotify_event) std::array<char, 4096> events{};
        ssize_t size = 0;
        while ((size = read(descriptor, events.data(), events.size())) > 0) {
            for (ssize_t at = 0; at < size;) {
                const auto* event = reinterpret_cast<const inotify_event*>(events.data() + at);
                openings += event->mask & IN_OPEN ? 1 : 0;
                at += static_cast<ssize_t>(sizeof(inotify_event)) + event->len;
            }
        }
        return openings;
    }

private:
    int descriptor;
    bool watches;
    int openings = 0;
};

// A table for the program's working directory. The last entry is at the bottom of the list.
const QByteArray twoKeyboards = "Alpha\t\tpc105\tus\t\nBeta\t\tpc105\tde\t\n";

QString windowTitle(Display* display, Window window)
{
    return QString::fromStdString(x11::property(display, window, "_NET_WM_NAME").bytes);
}

Window guardOwner(Display* display)
{
    return XGetSelectionOwner(
        display, XInternAtom(display, "orvix-kbd-display-tofocus", x11::xFalse));
}

// Borrows the five names that the switcher is told; a null one stays null.
XkbComponentNamesRec recordOf(QByteArrayList& names)
{
    const auto text = [&](int i) { return names[i].isNull() ? nullptr : names[i].data(); };
    return {nullptr, text(0), text(1), text(2), text(3), text(4)};
}

// The cursor that a ChangeWindowAttributes gives a window as its pointer; nothing for other
// requests (X protocol, encoding of the requests: the code, the length, the window, a mask of the
// attributes, and their values).
std::optional<quint32> pointerSetBy(const QByteArray& request)
{
    constexpr char changeWindowAttributes = 2;
    constexpr qsizetype maskAt = 8;
    std::array<quint32, 2> maskAndValue{};
    if (request.size() < maskAt + qsizetype(sizeof maskAndValue)
        || request.at(0) != changeWindowAttributes)
        return std::nullopt;
    std::memcpy(maskAndValue.data(), request.constData() + maskAt, sizeof maskAndValue);
    return maskAndValue[0] == CWCursor ? std::optional(maskAndValue[1]) : std::nullopt;
}

// What the switcher is told in any case.
QStringList commonArguments(const QString& window)
{
    return {"--parent", QString::number(getpid()), "--window", window, "--display",
        qEnvironmentVariable("DISPLAY")};
}

// While it lives, this process is in another directory.
class WorkingDirectory {
public:
    explicit WorkingDirectory(const QString& path)
        : before(QDir::currentPath())
    {
        QDir::setCurrent(path);
    }
    ~WorkingDirectory() { QDir::setCurrent(before); }
    Q_DISABLE_COPY_MOVE(WorkingDirectory)

private:
    QString before;
};

} // namespace

// The program from its command line to its window, or to the message that says why there is none.
class StartupTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();

    void aBadArgumentIsNamedBeforeTheUsage_data();
    void aBadArgumentIsNamedBeforeTheUsage();
    void anOptionWithoutItsValuePrintsTheUsage_data();
    void anOptionWithoutItsValuePrintsTheUsage();
    void everyExceptionHasItsMessage_data();
    void everyExceptionHasItsMessage();

    void withoutAnXServerOneLineSaysSo_data();
    void withoutAnXServerOneLineSaysSo();
    void aPlatformWithoutX11HasNoKeyboardExtension_data();
    void aPlatformWithoutX11HasNoKeyboardExtension();
    void anUnknownPlatformIsOneLine_data();
    void anUnknownPlatformIsOneLine();
    void aServerWithoutTheKeyboardExtensionIsRefused_data();
    void aServerWithoutTheKeyboardExtensionIsRefused();
    void aServerWithoutXTestIsNoFailure();

    void whatSetxkbmapPrintsDecides_data();
    void whatSetxkbmapPrintsDecides();
    void aStartRunsOneToolOnce_data();
    void aStartRunsOneToolOnce();
    void aRefusedKeyboardIsExplainedByACommandThatShowsTheReason_data();
    void aRefusedKeyboardIsExplainedByACommandThatShowsTheReason();
    void theGeometryFileIsSpokenOfOnlyWhereItIsMissing();
    void aSignalIgnoredAtTheStartStaysIgnored();
    void whatQtSaidIsPrintedWhereTheStartFailsForAnotherReason();
    void withoutSetxkbmapThereAreNoRules();
    void aLayoutThatCannotBeHadEndsTheProgram();
    void aLayoutThatTheServerDoesNotKnowEndsTheProgramByName();
    void theTableIsReadOnce();
    void aLateSetxkbmapAtAChoiceIsWaitedForWithABusyPointer();

    void setxkbmapIsAskedForTheSettings_data();
    void setxkbmapIsAskedForTheSettings();

    void theFlagsChooseTheTitle_data();
    void theFlagsChooseTheTitle();
    void theLocaleChoosesTheTranslation_data();
    void theLocaleChoosesTheTranslation();
    void withoutATranslationNothingIsSaid_data();
    void withoutATranslationNothingIsSaid();

    void aSecondInstanceEndsAtOnce();
    void anotherDisplayHasAnInstanceOfItsOwn();
    void withoutTheFlagThereIsNoGuard();
    void aKilledInstanceLeavesNoGuardBehind();

    void theSwitcherIsTold_data();
    void theSwitcherIsTold();
    void theSwitcherIsToldOfANewKeyboard();
    void aMissingSwitcherIsNotStarted();

    void aHangingSetxkbmapIsGivenUp(); // last: what it waits for has gone on since the beginning

private:
    static QByteArray display() { return qgetenv("DISPLAY"); }
    static std::unique_ptr<ProgramRun> program();

    void failsWith(ProgramRun& run, const QByteArray& message);
    void runsAndEnds(ProgramRun& run);
    QString install(const QString& place);
    bool translate(const QString& locale, const QString& title);
    QPoint placeOfSelector(Window window);
    void endsWithTheSecondOf(ProgramRun& run, const QByteArray& table);
    void click(const QPoint& point);
    bool chooseLastLayout(
        const ProgramRun& run, const QPoint& selector, const std::function<bool()>& isChosen);

    XConnection connection;
    QTemporaryDir prefix; // places where the program is installed, with and without translations
    std::unique_ptr<FakeSetxkbmap> hangingTool;
    std::unique_ptr<ProgramRun> hanging;
};

std::unique_ptr<ProgramRun> StartupTest::program()
{
    return std::make_unique<ProgramRun>(KBD_PROGRAM, display());
}

void StartupTest::failsWith(ProgramRun& run, const QByteArray& message)
{
    QVERIFY(run.waitForEnd());
    QCOMPARE(withoutAdvice(run.errors()), message);
    QCOMPARE(run.output(), QByteArray());
    QCOMPARE(run.exitStatus(), 1);
}

// With nothing to say for itself.
void StartupTest::runsAndEnds(ProgramRun& run)
{
    QVERIFY2(run.waitForWindow(connection.get()) != x11::none, run.errors().constData());
    ::kill(static_cast<pid_t>(run.processId()), SIGTERM);
    QVERIFY(run.waitForEnd());
    QCOMPARE(run.errors(), QByteArray());
    QCOMPARE(run.output(), QByteArray());
    QCOMPARE(run.exitStatus(), 0);
}

void StartupTest::initTestCase()
{
    connection = openDisplay(display());
    QVERIFY(connection);
    hangingTool = std::make_unique<FakeSetxkbmap>("echo $$ > \"$here/process\"\nexec sleep 300\n");
    hanging = program();
    hanging->setVariable("PATH", hangingTool->searchPath());
    hanging->start();
}

void StartupTest::aBadArgumentIsNamedBeforeTheUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("named");
    QTest::newRow("--help") << QStringList{"--help"} << QByteArray("--help");
    QTest::newRow("-h") << QStringList{"-h"} << QByteArray("-h");
    QTest::newRow("a word") << QStringList{"us"} << QByteArray("us");
    QTest::newRow("nothing") << QStringList{""} << QByteArray();
    QTest::newRow("a dash") << QStringList{"-"} << QByteArray("-");
    QTest::newRow("a flag with one dash") << QStringList{"-tofocus"} << QByteArray("-tofocus");
    QTest::newRow("a flag abbreviated") << QStringList{"--stand"} << QByteArray("--stand");
    QTest::newRow("a flag in capitals") << QStringList{"--ToFocus"} << QByteArray("--ToFocus");
    QTest::newRow("a flag with a value")
        << QStringList{"--standalone=1"} << QByteArray("--standalone=1");
    QTest::newRow("one dash and an equals sign")
        << QStringList{"-model=pc105"} << QByteArray("-model=pc105");
    QTest::newRow("an option that goes on") << QStringList{"--models"} << QByteArray("--models");
    QTest::newRow("-option") << QStringList{"-option", "x"} << QByteArray("-option");
    QTest::newRow("after good ones")
        << QStringList{"--standalone", "-layout", "de", "x y"} << QByteArray("x y");
    QTest::newRow("the first of two") << QStringList{"--a", "--b"} << QByteArray("--a");
    QTest::newRow("before a missing value") << QStringList{"--a", "-model"} << QByteArray("--a");
    QTest::newRow("not ASCII") << QStringList{"größe"} << QByteArray("größe");
    QTest::newRow("a value too many")
        << QStringList{"-model", "pc105", "pc104"} << QByteArray("pc104");
}

void StartupTest::aBadArgumentIsNamedBeforeTheUsage()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, named);
    const auto run = program();
    run->start(arguments);
    failsWith(*run, "Bad parameter: " + named + '\n' + usageText);
}

void StartupTest::anOptionWithoutItsValuePrintsTheUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    for (const char* option : {"-model", "--model", "-layout", "--layout", "-variant", "--variant",
             "-options", "--options"})
        QTest::newRow(option) << QStringList{option};
    QTest::newRow("after good ones") << QStringList{"--tofocus", "--model=pc105", "-layout"};
    QTest::newRow("after another as its value") << QStringList{"-model", "-layout", "-variant"};
}

void StartupTest::anOptionWithoutItsValuePrintsTheUsage()
{
    QFETCH(QStringList, arguments);
    const auto run = program();
    run->start(arguments);
    failsWith(*run, usageText);
}

void StartupTest::everyExceptionHasItsMessage_data()
{
    QTest::addColumn<int>("exception");
    QTest::addColumn<QByteArray>("message");
    QTest::addColumn<int>("status");
    QTest::newRow("unknown") << 1 << QByteArray("Unknown exception, aborting.\n") << 1;
    QTest::newRow("no keyboard extension") << 2 << xkbFailure << 1;
    QTest::newRow("no description") << 3 << descriptionFailure << 1;
    QTest::newRow("bad parameter") << 4 << QByteArray() << 1;
    QTest::newRow("missing value") << 5 << QByteArray() << 1;
    QTest::newRow("no rules") << 6 << rulesFailure << 1;
    QTest::newRow("no exception of ours: below") << 0 << QByteArray() << wentOn;
    QTest::newRow("no exception of ours: above") << 7 << QByteArray() << wentOn;
}

void StartupTest::everyExceptionHasItsMessage()
{
    QFETCH(int, exception);
    QFETCH(QByteArray, message);
    QFETCH(int, status);
    const ToolResult result = runTool(QCoreApplication::applicationFilePath(),
        {endWithOption, QString::number(exception)}, display());
    QCOMPARE(withoutAdvice(result.errors), message);
    QCOMPARE(result.output, QByteArray());
    QCOMPARE(result.status, status);
}

void StartupTest::withoutAnXServerOneLineSaysSo_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("no server there") << ":4242" << QStringList();
    QTest::newRow("no display set") << QString() << QStringList();
    QTest::newRow("no display's name") << "display" << QStringList();
    QTest::newRow("a socket that is none") << "/dev/null" << QStringList();
    QTest::newRow("no such screen") << QString::fromLatin1(display() + ".5") << QStringList();
    QTest::newRow("a server that the command line names")
        << ":4242" << QStringList{"-display", ":4242"};
}

void StartupTest::withoutAnXServerOneLineSaysSo()
{
    QFETCH(QString, name);
    QFETCH(QStringList, arguments);
    const auto run = program();
    if (arguments.isEmpty())
        run->setVariable("DISPLAY", name);
    if (name.isEmpty())
        run->removeVariable("DISPLAY");
    run->start(arguments);
    QVERIFY(run->waitForEnd());
    const QByteArray message = run->errors();
    QCOMPARE(message.count('\n'), 1);
    QVERIFY2(message.contains("cannot connect to the X server"), message.constData());
    QVERIFY2(message.contains('\'' + name.toLocal8Bit() + '\''), message.constData());
    QCOMPARE(run->exitStatus(), 1);
}

void StartupTest::aPlatformWithoutX11HasNoKeyboardExtension_data()
{
    QTest::addColumn<QString>("platform");
    QTest::newRow("offscreen") << "offscreen";
    QTest::newRow("minimal") << "minimal";
}

void StartupTest::aPlatformWithoutX11HasNoKeyboardExtension()
{
    QFETCH(QString, platform);
    for (const QStringList& arguments : {QStringList(), QStringList{"--tofocus"}}) {
        const auto run = program();
        run->setVariable("QT_QPA_PLATFORM", platform);
        run->start(arguments);
        failsWith(*run, xkbFailure);
    }
}

void StartupTest::anUnknownPlatformIsOneLine_data()
{
    QTest::addColumn<QString>("variable");
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("server");
    const QString here = QString::fromLatin1(display());
    const QStringList option{"-platform", "nonsense"};
    QTest::newRow("in the environment") << "nonsense" << QStringList() << here;
    QTest::newRow("on the command line") << QString() << option << here;
    QTest::newRow("on the command line, and no server") << QString() << option << ":4242";
}

void StartupTest::anUnknownPlatformIsOneLine()
{
    QFETCH(QString, variable);
    QFETCH(QStringList, arguments);
    QFETCH(QString, server);
    const auto run = program();
    run->setVariable("QT_QPA_PLATFORM", variable);
    run->setVariable("DISPLAY", server);
    run->start(arguments);
    QVERIFY(run->waitForEnd());
    const QByteArray message = run->errors();
    QCOMPARE(message.count('\n'), 1);
    QVERIFY2(message.contains("platform"), message.constData());
    QVERIFY2(!message.contains("X server"), message.constData());
    QCOMPARE(run->exitStatus(), 1);
}

void StartupTest::aServerWithoutTheKeyboardExtensionIsRefused_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::newRow("asked by the real setxkbmap") << QByteArray("exec \"$real\" \"$@\"\n");
    QTest::newRow("with a keymap all the same") << printing(keymapWith("pc(pc105)"));
}

void StartupTest::aServerWithoutTheKeyboardExtensionIsRefused()
{
    QFETCH(QByteArray, script);
    const FakeSetxkbmap tool(script);
    const XProxy server(display(), hidingExtension("XKEYBOARD"));
    const auto run = std::make_unique<ProgramRun>(KBD_PROGRAM, server.display());
    run->setVariable("PATH", tool.searchPath());
    run->start();
    failsWith(*run, xkbFailure);
}

void StartupTest::aServerWithoutXTestIsNoFailure()
{
    const PrivateServer server({"-extension", "XTEST"});
    ProgramRun run(KBD_PROGRAM, server.display());
    run.start({"--tofocus"});
    const XConnection otherConnection = openDisplay(server.display());
    QVERIFY(otherConnection);
    QVERIFY2(run.waitForWindow(otherConnection.get()) != x11::none, run.errors().constData());
    ::kill(static_cast<pid_t>(run.processId()), SIGTERM);
    QVERIFY(run.waitForEnd());
    QCOMPARE(run.errors(), QByteArray());
    QCOMPARE(run.exitStatus(), 0);
}

void StartupTest::whatSetxkbmapPrintsDecides_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<QByteArray>("message"); // empty: the window is shown
    const QByteArray good = printing(keymapWith("pc(pc105)"));
    QTest::newRow("the platform's geometry") << good << QByteArray();
    QTest::newRow("another geometry") << printing(keymapWith("pc(pc101)")) << QByteArray();
    QTest::newRow("a geometry of other keys") << printing(keymapWith("hhk(basic)")) << QByteArray();
    QTest::newRow("a geometry without a name: the server's own")
        << printing(keymapWith({})) << QByteArray();
    QTest::newRow("warnings around it") << "echo warning >&2\necho Warning!\n" + good
            + "echo more\n" << QByteArray();
    QTest::newRow("a good keymap and a failure") << good + "exit 1\n" << QByteArray();

    QTest::newRow("nothing") << QByteArray("exit 0\n") << rulesFailure;
    QTest::newRow("nothing and a failure") << QByteArray("exit 1\n") << rulesFailure;
    QTest::newRow("a crash") << QByteArray("kill -SEGV $$\n") << rulesFailure;
    QTest::newRow("the keymap on standard error") << "exec >&2\n" + good << rulesFailure;
    QTest::newRow("rubbish") << QByteArray("exec head -c 100000 /dev/urandom\n") << rulesFailure;
    QTest::newRow("zeros") << QByteArray("exec head -c 100000 /dev/zero\n") << rulesFailure;
    QTest::newRow("lines without end") << QByteArray("exec yes\n") << rulesFailure;
    QTest::newRow("a line without end") << QByteArray("exec cat /dev/zero\n") << rulesFailure;
    QTest::newRow("all but the geometry") << printing(keymap({})) << rulesFailure;
    QTest::newRow("a section that does not end")
        << printing(keymap("\txkb_geometry  { include \"pc(pc105)\"\n")) << rulesFailure;

    QTest::newRow("a geometry that there is not")
        << printing(keymapWith("nonsense(none)")) << descriptionFailure;
    QTest::newRow("a variant that there is not")
        << printing(keymapWith("pc(nonsense)")) << descriptionFailure;
    QTest::newRow("a very long geometry")
        << printing(keymapWith(QByteArray(1000, 'x'))) << descriptionFailure;
    QTest::newRow("symbols that there are not")
        << printing(keymapWith("pc(pc105)").replace("pc+us", "pc+nonsense")) << descriptionFailure;
    QTest::newRow("keycodes that there are not")
        << printing(keymapWith("pc(pc105)").replace("evdev+", "nonsense+")) << descriptionFailure;
}

void StartupTest::whatSetxkbmapPrintsDecides()
{
    QFETCH(QByteArray, script);
    QFETCH(QByteArray, message);
    const FakeSetxkbmap tool(script);
    const auto run = program();
    run->setVariable("PATH", tool.searchPath());
    run->start();
    if (message.isEmpty())
        runsAndEnds(*run);
    else
        failsWith(*run, message);
}

// Each of them would compete with the server's keymap compiler for the processor.
void StartupTest::aStartRunsOneToolOnce_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("to focus") << QStringList{"--tofocus"};
    QTest::newRow("with the list of keyboards") << QStringList{"--standalone"};
}

void StartupTest::aStartRunsOneToolOnce()
{
    QFETCH(const QStringList, arguments);
    const QByteArray noteAndRun = "echo ${0##*/} >>\"$here/calls\"\nexec \"$real\" \"$@\"\n";
    const FakeSetxkbmap tools(noteAndRun);
    for (const char* tool : {"dpkg", "grep", "xkbcomp", "fc-list"})
        tools.addTool(tool, noteAndRun);
    const auto run = program();
    run->setVariable("PATH", tools.searchPath());
    const QTemporaryDir directory;
    QVERIFY(writeFile(directory.filePath("kbdSpecs.tab"),
        "Japan [J]\tjp.png\tpc105\tjp\t\nKorea [K]\tkr.png\tpc105\tkr\t\n"));
    run->setWorkingDirectory(directory.path());
    run->start(arguments);
    QVERIFY(run->waitForWindow(connection.get()));
    QFile calls(tools.filePath("calls"));
    QVERIFY(calls.open(QIODevice::ReadOnly));
    QCOMPARE(calls.readAll(), "setxkbmap\n");
}

void StartupTest::aRefusedKeyboardIsExplainedByACommandThatShowsTheReason_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("reason");
    QTest::newRow("layout") << QStringList{"-layout", "nonsense"} << QByteArray("nonsense");
    QTest::newRow("variant") << QStringList{"--layout=de", "--variant=no such"}
                             << QByteArray("no such");
    QTest::newRow("a quote in it")
        << QStringList{"--layout=us", "--variant=it's"} << QByteArray("it's");
}

void StartupTest::aRefusedKeyboardIsExplainedByACommandThatShowsTheReason()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, reason);
    const auto run = program();
    run->start(arguments);
    QVERIFY(run->waitForEnd());
    const QByteArray message = run->errors();
    QCOMPARE(withoutAdvice(message), descriptionFailure);
    // The file is missing where the tests run unless the packages are installed there.
    QCOMPARE(
        message.contains(geometryAdvice), !QFile::exists("/usr/share/X11/xkb/geometry/pc-arvane"));

    const qsizetype command = message.indexOf(commandAdvice) + commandAdvice.size();
    const ToolResult result = runTool("/bin/sh",
        {"-c",
            QString::fromUtf8(
                message.mid(command).trimmed().replace("/usr/share/X11/xkb", KBD_XKB_DIR))},
        display());
    QVERIFY2(result.errors.contains(reason), result.errors.constData());
}

void StartupTest::theGeometryFileIsSpokenOfOnlyWhereItIsMissing()
{
    const KeyboardSettings asked{"pc105", "de", "it's", {}};
    const QString command("For the X server's reason, run: setxkbmap -model 'pc105' -layout 'de' "
                          "-variant 'it'\\''s' -print | ");
    QVERIFY(adviceAfterRefusal(asked, true).startsWith(command));
    QVERIFY(adviceAfterRefusal(asked, false).startsWith(geometryAdvice));
    QVERIFY(adviceAfterRefusal(asked, false).contains(command));
}

void StartupTest::aSignalIgnoredAtTheStartStaysIgnored()
{
    ProgramRun run("/bin/sh", display());
    run.start({"-c", "trap '' HUP; exec " KBD_PROGRAM});
    QVERIFY2(run.waitForWindow(connection.get()) != x11::none, run.errors().constData());
    QFile status("/proc/" + QString::number(run.processId()) + "/status");
    QVERIFY(status.open(QIODevice::ReadOnly));
    const QByteArray text = status.readAll();
    const qsizetype ignored = text.indexOf("SigIgn:") + 7;
    const quint64 mask =
        text.mid(ignored, text.indexOf('\n', ignored) - ignored).trimmed().toULongLong(nullptr, 16);
    QVERIFY(mask & (1U << (SIGHUP - 1)));

    ::kill(static_cast<pid_t>(run.processId()), SIGHUP);
    ::kill(static_cast<pid_t>(run.processId()), SIGTERM);
    QVERIFY(run.waitForEnd());
    QCOMPARE(run.exitStatus(), 0);
}

void StartupTest::whatQtSaidIsPrintedWhereTheStartFailsForAnotherReason()
{
    const auto run = program();
    run->setVariable("QT_LOGGING_RULES", "qt.qpa.xcb=true");
    run->start({"--nonsense"});
    QVERIFY(run->waitForEnd());
    const QByteArray message = run->errors();
    QVERIFY2(message.contains("\nqt.qpa.xcb: "), message.constData());
    QVERIFY2(message.contains("Bad parameter: --nonsense\n"), message.constData());
}

void StartupTest::withoutSetxkbmapThereAreNoRules()
{
    const QTemporaryDir empty;
    const auto run = program();
    run->setVariable("PATH", empty.path());
    run->start();
    failsWith(*run, rulesFailure);
}

void StartupTest::click(const QPoint& point)
{
    XTestFakeMotionEvent(connection.get(), -1, point.x(), point.y(), CurrentTime);
    XTestFakeButtonEvent(connection.get(), 1, x11::xTrue, CurrentTime);
    XTestFakeButtonEvent(connection.get(), 1, x11::xFalse, CurrentTime);
    XSync(connection.get(), x11::xFalse);
}

// Where the program's window has its layout selector: a window of this process has it at the same
// place.
QPoint StartupTest::placeOfSelector(Window window)
{
    XkbComponentNamesRec names{};
    const ComponentNamesGuard guard(&names);
    const auto seen = grabWindow(connection.get(), window);
    if (!seen || !queryComponentNames(&names, toolkitDisplay(), "pc105", "us", {}, {}))
        return {};
    MainWindow likeness("pc105", "us", {}, {}, &names, false, nullptr, {});
    likeness.hideTypingArea();
    likeness.resize(seen->image.size());
    likeness.grab(); // lays it out
    const auto* selector = likeness.findChild<CKbdSpecSelector*>();
    return selector ? seen->topLeft + selector->mapTo(&likeness, selector->rect().center())
                    : QPoint();
}

// Opens the list and clicks its last entry until that has its effect.
bool StartupTest::chooseLastLayout(
    const ProgramRun& run, const QPoint& selector, const std::function<bool()>& isChosen)
{
    // A list that has just opened does not heed a click yet.
    QDeadlineTimer nextClick(0);
    const auto isChosenByNow = [&] {
        if (isChosen())
            return true;
        if (!nextClick.hasExpired())
            return false;
        nextClick.setRemainingTime(betweenClicksMs);
        const auto list = grabWindow(connection.get(), popupOf(connection.get(), run.processId()));
        click(list ? list->topLeft + QPoint(20, list->image.height() - 8) : selector);
        return false;
    };
    return QTest::qWaitFor(isChosenByNow, 20000);
}

// The second time it is asked, setxkbmap names a geometry that there is not.
void StartupTest::aLayoutThatCannotBeHadEndsTheProgram()
{
    const FakeSetxkbmap tool("if [ -e \"$here/asked\" ]; then\n" + printing(keymapWith("no(ne)"))
        + "else\n: > \"$here/asked\"\nexec \"$real\" \"$@\"\nfi\n");
    const auto run = program();
    run->setVariable("PATH", tool.searchPath());
    endsWithTheSecondOf(*run, twoKeyboards);
    failsWith(*run, "KbdApp: cannot load layout 'de', model 'pc105'\n" + descriptionFailure);
    QCOMPARE(pressedKeys(display()), QList<int>());
}

// As after the table was built for other keyboard data.
void StartupTest::aLayoutThatTheServerDoesNotKnowEndsTheProgramByName()
{
    const auto run = program();
    endsWithTheSecondOf(*run, "Alpha\t\tpc105\tus\t\nBeta\t\tpc104\tnowhere\tsouth\n");
    failsWith(*run,
        "KbdApp: cannot load layout 'nowhere', variant 'south', model 'pc104'\n"
            + descriptionFailure);
}

// Starts the program with the first keyboard of the table and chooses the second.
void StartupTest::endsWithTheSecondOf(ProgramRun& run, const QByteArray& table)
{
    const QTemporaryDir directory;
    QVERIFY(writeFile(directory.filePath("kbdSpecs.tab"), table));
    const WorkingDirectory here(directory.path());
    run.setWorkingDirectory(directory.path());
    run.start({"--standalone", "--tofocus", "-model", "pc105", "-layout", "us"});
    const Window window = run.waitForWindow(connection.get());
    QVERIFY2(window != x11::none, run.errors().constData());
    QVERIFY(chooseLastLayout(run, placeOfSelector(window), [&] { return !run.isRunning(); }));
}

// At the start, and not again for a layout that is chosen.
void StartupTest::theTableIsReadOnce()
{
    if (QFile::exists(KbdConstants::specTablePath))
        QSKIP("The program reads an installed table, which other tests open too");
    const QTemporaryDir here;
    const QTemporaryDir ofTheProgram;
    for (const QTemporaryDir* directory : {&here, &ofTheProgram})
        QVERIFY(writeFile(directory->filePath("kbdSpecs.tab"), twoKeyboards));
    const WorkingDirectory ofThisProcess(here.path());
    OpeningCounter table(ofTheProgram.filePath("kbdSpecs.tab"));
    QVERIFY(table.isWatching());
    const FakeSetxkbmap tool("case \"$*\" in *'-layout de'*) : > \"$here/chosen\";; esac\n"
                             "exec \"$real\" \"$@\"\n");
    const auto run = program();
    run->setVariable("PATH", tool.searchPath());
    run->setWorkingDirectory(ofTheProgram.path());
    run->start({"--standalone", "--tofocus", "-model", "pc105", "-layout", "us"});
    const Window window = run->waitForWindow(connection.get());
    QVERIFY2(window != x11::none, run->errors().constData());

    QVERIFY(chooseLastLayout(
        *run, placeOfSelector(window), [&] { return QFile::exists(tool.filePath("chosen")); }));

    runsAndEnds(*run);
    QCOMPARE(table.count(), 1);
}

// At the choice the tool is late until the pointer over the window has changed, so that without a
// busy pointer it would never answer.
void StartupTest::aLateSetxkbmapAtAChoiceIsWaitedForWithABusyPointer()
{
    const QTemporaryDir directory;
    QVERIFY(writeFile(directory.filePath("kbdSpecs.tab"), twoKeyboards));
    const WorkingDirectory here(directory.path());
    const FakeSetxkbmap tool(
        "case \"$*\" in *'-layout de'*)\n: > \"$here/asked\"\n"
        "until [ -e \"$here/busy\" ] || [ ! -e \"$here\" ]; do sleep 0.1; done;; esac\n"
        "exec \"$real\" \"$@\"\n");
    const QString asked = tool.filePath("asked");
    const QString busy = tool.filePath("busy");
    quint32 usual = x11::none; // of the proxy's thread
    std::atomic<bool> isUsualAgain = false;
    const auto followPointer = [&](const QByteArray& request) {
        const auto pointer = pointerSetBy(request);
        if (pointer && !QFile::exists(asked))
            usual = *pointer;
        else if (pointer && *pointer != usual)
            writeFile(busy, {});
        else if (pointer)
            isUsualAgain = QFile::exists(busy);
    };
    const XProxy proxy(display(), {{}, followPointer});
    ProgramRun run(KBD_PROGRAM, proxy.display());
    run.setVariable("PATH", tool.searchPath());
    run.setVariable("QT_XCB_NO_MITSHM", "1"); // the proxy passes no shared memory on
    run.setWorkingDirectory(directory.path());
    run.start({"--standalone", "--tofocus", "-model", "pc105", "-layout", "us"});
    const Window window = run.waitForWindow(connection.get());
    QVERIFY2(window != x11::none, run.errors().constData());

    QVERIFY(chooseLastLayout(run, placeOfSelector(window), [&] { return QFile::exists(busy); }));

    QTRY_VERIFY(isUsualAgain);
    QTRY_COMPARE(run.errors(), waitingLine);
    ::kill(static_cast<pid_t>(run.processId()), SIGTERM);
    QVERIFY(run.waitForEnd());
    QCOMPARE(run.exitStatus(), 0);
}

void StartupTest::setxkbmapIsAskedForTheSettings_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("forAll"); // [keyboard] in the registry of all users
    QTest::addColumn<QByteArray>("own"); // and in the user's own
    QTest::addColumn<QStringList>("asked"); // between the display and "-print"

    const QByteArray none;
    const auto withModel = [&](const char* row, const char* model, const QStringList& asked) {
        QTest::newRow(row) << QStringList{"-model", model} << none << none << asked;
    };
    QTest::newRow("nothing") << QStringList() << none << none << QStringList();
    QTest::newRow("the two flags")
        << QStringList{"--standalone", "--tofocus"} << none << none << QStringList();
    QTest::newRow("all four") << QStringList{"-options", "o:p", "-variant", "v", "-layout", "l",
        "-model", "m"} << none << none
                              << QStringList{"-model", "m", "-layout", "l", "-variant", "v",
                                     "-option", "o:p"};
    QTest::newRow("all four, two dashes")
        << QStringList{"--options", "o:p", "--variant", "v", "--layout", "l", "--model", "m"}
        << none << none
        << QStringList{"-model", "m", "-layout", "l", "-variant", "v", "-option", "o:p"};
    QTest::newRow("all four, joined")
        << QStringList{"--options=o:p", "--variant=v", "--layout=l", "--model=m"} << none << none
        << QStringList{"-model", "m", "-layout", "l", "-variant", "v", "-option", "o:p"};
    QTest::newRow("lists are passed whole")
        << QStringList{"-layout", "us,de", "-variant", ",nodeadkeys", "-options", "a:b,c:d"} << none
        << none << QStringList{"-layout", "us,de", "-variant", ",nodeadkeys", "-option", "a:b,c:d"};
    QTest::newRow("the last one counts") << QStringList{"-layout", "de", "--layout=fr", "--layout",
        "us"} << none << none << QStringList{"-layout", "us"};
    QTest::newRow("an option as a value") << QStringList{"-layout", "--tofocus"} << none << none
                                          << QStringList{"-layout", "--tofocus"};
    QTest::newRow("an equals sign in a value")
        << QStringList{"--options=a=b"} << none << none << QStringList{"-option", "a=b"};
    QTest::newRow("not ASCII") << QStringList{"-layout", "größe"} << none << none
                               << QStringList{"-layout", "größe"};
    QTest::newRow("no change as a value") << QStringList{"-layout", "<NoChange>"} << none << none
                                          << QStringList{"-layout", "<NoChange>"};
    QTest::newRow("empty values are none") << QStringList{"--model=", "--layout=", "-variant", "",
        "--options="} << none << none << QStringList();

    withModel("the last model, normalised", "pc104", {"-model", "pc104"});
    QTest::newRow("two models") << QStringList{"-model", "pc105", "--model=jp106,x"} << none << none
                                << QStringList{"-model", "jp106"};
    withModel("macintosh,pc104", "macintosh,pc104", {"-model", "pc104"});
    withModel("evdev,pc101", "evdev,pc101", {"-model", "evdev"});
    withModel("pc105,jp106", "pc105,jp106", {"-model", "jp106"});
    withModel("abnt2,jp106", "abnt2,jp106", {"-model", "jp106"});
    withModel("kr106,abnt2", "kr106,abnt2", {"-model", "abnt2"});
    withModel("pc105,kr106", "pc105,kr106", {"-model", "kr106"});
    withModel("pc104,pc105", "pc104,pc105", {"-model", "pc105"});
    withModel("inside a word", "mypc105x", {"-model", "pc105"});
    withModel("in capitals", "PC105", {"-model", "PC105"});
    withModel("a comma first", ",evdev", {});
    withModel("a comma last", "evdev,", {"-model", "evdev"});

    const QByteArray fourForAll("XkbModel=pc101\nXkbLayout=fr\nXkbVariant=oss\nXkbOptions=x:y\n");
    QTest::newRow("registry: all four")
        << QStringList() << fourForAll << none
        << QStringList{"-model", "pc101", "-layout", "fr", "-variant", "oss", "-option", "x:y"};
    QTest::newRow("registry: the user's own count")
        << QStringList() << fourForAll << QByteArray("XkbLayout=de\nXkbVariant=neo\n")
        << QStringList{"-model", "pc101", "-layout", "de", "-variant", "neo", "-option", "x:y"};
    QTest::newRow("registry: the command line counts more")
        << QStringList{"--layout=es", "-options", "a:b"} << fourForAll
        << QByteArray("XkbLayout=de\n")
        << QStringList{"-model", "pc101", "-layout", "es", "-variant", "oss", "-option", "a:b"};
    QTest::newRow("registry: overridden by nothing") << QStringList{"--variant=",
        "--model="} << fourForAll << none << QStringList{"-layout", "fr", "-option", "x:y"};
    QTest::newRow("registry: lists")
        << QStringList() << none
        << QByteArray("XkbModel=pc105,jp106\nXkbLayout=us,de,fr\nXkbOptions=a:b,c:d\n")
        << QStringList{"-model", "jp106", "-layout", "us,de,fr", "-option", "a:b,c:d"};
    QTest::newRow("registry: an empty model")
        << QStringList() << none << QByteArray("XkbModel=\nXkbLayout=de\n")
        << QStringList{"-layout", "de"};
    QTest::newRow("registry: no registry file")
        << QStringList() << QByteArray("\x00\xff[[[\n=\n") << QByteArray("\"\\x") << QStringList();
}

void StartupTest::setxkbmapIsAskedForTheSettings()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, forAll);
    QFETCH(QByteArray, own);
    QFETCH(QStringList, asked);
    const QTemporaryDir registry;
    const QString file("/Orvix/keyboard.conf");
    QVERIFY(writeFile(registry.filePath("all") + file, "[keyboard]\n" + forAll));
    QVERIFY(writeFile(registry.filePath("own") + file, "[keyboard]\n" + own));
    const FakeSetxkbmap tool("printf '%s\\n' \"$@\" > \"$here/arguments\"\n");
    const auto run = program();
    run->setVariable("PATH", tool.searchPath());
    run->setVariable("XDG_CONFIG_DIRS", registry.filePath("all"));
    run->setVariable("XDG_CONFIG_HOME", registry.filePath("own"));

    run->start(arguments);

    failsWith(*run, rulesFailure);
    QFile log(tool.filePath("arguments"));
    QVERIFY(log.open(QIODevice::ReadOnly));
    const QStringList lines = QString::fromUtf8(log.readAll()).split('\n');
    QCOMPARE(lines,
        QStringList{"-display"} << QString::fromLatin1(display()) << asked << "-print"
                                << QString());
}

void StartupTest::theFlagsChooseTheTitle_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("title");
    const QString trial("Arvane Trial Keyboard");
    const QString virtualKeyboard("Arvane Virtual Keyboard");
    QTest::newRow("none") << QStringList() << trial;
    QTest::newRow("--standalone") << QStringList{"--standalone"} << trial;
    QTest::newRow("--tofocus") << QStringList{"--tofocus"} << virtualKeyboard;
    QTest::newRow("both") << QStringList{"--tofocus", "--standalone"} << virtualKeyboard;
}

void StartupTest::theFlagsChooseTheTitle()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, title);
    const auto run = program();
    run->start(arguments);
    const Window window = run->waitForWindow(connection.get());
    QCOMPARE(windowTitle(connection.get(), window), title);
    runsAndEnds(*run);
}

// A copy of the program, which looks for its data beside itself. Empty when that failed.
QString StartupTest::install(const QString& place)
{
    QString copy = prefix.filePath(place + "/bin/orvix-kbd-display");
    if (QFile::exists(copy))
        return copy;
    const bool isDone = QDir().mkpath(QFileInfo(copy).path()) && QFile::copy(KBD_PROGRAM, copy);
    return isDone ? copy : QString();
}

bool StartupTest::translate(const QString& locale, const QString& title)
{
    const QString source = prefix.filePath(locale + ".ts");
    const QString target = prefix.filePath(
        "translated/share/orvix-i18n/" + locale + "/orvix-keyboard-layout_" + locale + ".qm");
    if (QFile::exists(target))
        return true;
    const QString text = "<TS version=\"2.1\"><context><name>KbdApp</name><message>"
                         "<source>Arvane Trial Keyboard</source><translation>"
        + title + "</translation></message></context></TS>\n";
    const QString tool = QLibraryInfo::path(QLibraryInfo::BinariesPath) + "/lrelease";
    return writeFile(source, text.toUtf8()) && QDir().mkpath(QFileInfo(target).path())
        && runTool(tool, {"-silent", source, "-qm", target}, display()).status == 0;
}

void StartupTest::theLocaleChoosesTheTranslation_data()
{
    QTest::addColumn<QString>("variable");
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("title");
    const QString english("Arvane Trial Keyboard");
    QTest::newRow("German") << "LC_ALL"
                            << "de_DE.UTF-8"
                            << "title de_DE";
    QTest::newRow("Austrian German") << "LC_ALL"
                                     << "de_AT.UTF-8"
                                     << "title de_DE";
    QTest::newRow("Mexican Spanish") << "LC_ALL"
                                     << "es_MX"
                                     << "title es_ES";
    QTest::newRow("Canadian French") << "LC_ALL"
                                     << "fr_CA.UTF-8"
                                     << "title fr_FR";
    QTest::newRow("Japanese") << "LC_ALL"
                              << "ja_JP.UTF-8"
                              << "title ja_JP";
    QTest::newRow("Chinese of China") << "LC_ALL"
                                      << "zh_CN.GB18030"
                                      << "title zh_CN";
    QTest::newRow("Chinese of Taiwan") << "LC_ALL"
                                       << "zh_TW.UTF-8" << english;
    QTest::newRow("Portuguese") << "LC_ALL"
                                << "pt_PT.UTF-8" << english;
    QTest::newRow("English") << "LC_ALL"
                             << "en_US.UTF-8" << english;
    QTest::newRow("none") << "LC_ALL"
                          << "C" << english;
    QTest::newRow("rubbish") << "LC_ALL"
                             << "%s/../.." << english;
    QTest::newRow("the language of messages") << "LC_MESSAGES"
                                              << "fr_FR.UTF-8"
                                              << "title fr_FR";
    QTest::newRow("the language of all") << "LANG"
                                         << "es_ES.UTF-8"
                                         << "title es_ES";
}

// Each translation names itself. Those that are not among the five may not be taken.
void StartupTest::theLocaleChoosesTheTranslation()
{
    QFETCH(QString, variable);
    QFETCH(QString, locale);
    QFETCH(QString, title);
    for (const QString name :
        {"de_DE", "es_ES", "fr_FR", "ja_JP", "zh_CN", "de_AT", "zh_TW", "pt_PT", "en_US"})
        QVERIFY(translate(name, "title " + name));
    ProgramRun run(install("translated"), display());
    for (const char* each : {"LC_ALL", "LC_MESSAGES", "LANG"})
        run.removeVariable(each);
    run.setVariable(variable, locale);

    run.start();

    const Window window = run.waitForWindow(connection.get());
    QVERIFY2(window != x11::none, run.errors().constData());
    QCOMPARE(windowTitle(connection.get(), window), title);
}

void StartupTest::withoutATranslationNothingIsSaid_data()
{
    QTest::addColumn<QString>("locale");
    for (const char* locale :
        {"de_DE.UTF-8", "es_ES.UTF-8", "fr_FR.UTF-8", "ja_JP.UTF-8", "zh_CN.UTF-8", "zh_TW.UTF-8"})
        QTest::newRow(locale) << locale;
}

void StartupTest::withoutATranslationNothingIsSaid()
{
    QFETCH(QString, locale);
    // Where the machine has no such locale, Qt says so: the plain one stands for it.
    const QTemporaryDir locales;
    QVERIFY(QFile::link("/usr/lib/locale/C.utf8", locales.filePath(locale)));
    ProgramRun run(install("bare"), display());
    run.setVariable("LOCPATH", locales.path());
    run.setVariable("LC_ALL", locale);
    run.start();
    runsAndEnds(run);
}

void StartupTest::aSecondInstanceEndsAtOnce()
{
    const auto first = program();
    first->start({"--tofocus"});
    QVERIFY(first->waitForWindow(connection.get()) != x11::none);
    const auto second = program();
    second->start({"--tofocus", "-layout", "de"});
    QVERIFY(second->waitForEnd());
    QCOMPARE(second->exitStatus(), 0);
    runsAndEnds(*first);
}

void StartupTest::anotherDisplayHasAnInstanceOfItsOwn()
{
    const auto first = program();
    first->start({"--tofocus"});
    QVERIFY(first->waitForWindow(connection.get()) != x11::none);
    const PrivateServer server;
    const XConnection otherConnection = openDisplay(server.display());
    QVERIFY(otherConnection);
    ProgramRun second(KBD_PROGRAM, server.display());
    second.start({"--tofocus"});
    QVERIFY(second.waitForWindow(otherConnection.get()) != x11::none);
    runsAndEnds(*first);
}

void StartupTest::withoutTheFlagThereIsNoGuard()
{
    const auto first = program();
    first->start({"--tofocus"});
    QVERIFY(first->waitForWindow(connection.get()) != x11::none);
    const auto second = program();
    second->start();
    QVERIFY(second->waitForWindow(connection.get()) != x11::none);
    const auto third = program();
    third->start({"--standalone"});
    runsAndEnds(*third);
    runsAndEnds(*second);
    runsAndEnds(*first);
}

void StartupTest::aKilledInstanceLeavesNoGuardBehind()
{
    const auto first = program();
    first->start({"--tofocus"});
    QVERIFY(first->waitForWindow(connection.get()) != x11::none);
    ::kill(static_cast<pid_t>(first->processId()), SIGKILL);
    QVERIFY(first->waitForEnd());
    QTRY_COMPARE(guardOwner(connection.get()), x11::none);
    const auto second = program();
    second->start({"--tofocus"});
    runsAndEnds(*second);
}

void StartupTest::theSwitcherIsTold_data()
{
    QTest::addColumn<QByteArrayList>("names"); // keycodes, types, compat, symbols, geometry
    QTest::addColumn<bool>("isStatic");
    QTest::addColumn<QStringList>("told"); // after process, window and display
    QTest::newRow("all") << QByteArrayList{"k", "t", "c", "pc+us:1", "pc(pc105)"} << false
                         << QStringList{"--keycodes", "k", "--types", "t", "--compat", "c",
                                "--symbols", "pc+us:1", "--geometry", "pc(pc105)"};
    QTest::newRow("keycodes and geometry, as examples have it")
        << QByteArrayList{"evdev+aliases(qwerty)", {}, {}, {}, "pc(pc105)"} << false
        << QStringList{"--keycodes", "evdev+aliases(qwerty)", "--geometry", "pc(pc105)"};
    QTest::newRow("an empty one is none")
        << QByteArrayList{"", "t", "", "", ""} << true << QStringList{"--types", "t", "--static"};
    QTest::newRow("not ASCII") << QByteArrayList{{}, {}, {}, "größe", {}} << false
                               << QStringList{"--symbols", "größe"};
    QTest::newRow("nothing") << QByteArrayList{{}, {}, {}, {}, {}} << false << QStringList();
    QTest::newRow("nothing, static")
        << QByteArrayList{{}, {}, {}, {}, {}} << true << QStringList{"--static"};
}

void StartupTest::theSwitcherIsTold()
{
    QFETCH(QByteArrayList, names);
    QFETCH(bool, isStatic);
    QFETCH(QStringList, told);
    XkbComponentNamesRec record = recordOf(names);
    const KbdSwitcher switcher(toolkitDisplay(), 4294967295U, &record, isStatic);
    QCOMPARE(switcher.arguments(), commonArguments("4294967295") + told);
}

void StartupTest::theSwitcherIsToldOfANewKeyboard()
{
    KbdSwitcher switcher(toolkitDisplay(), 471, nullptr, true);
    QCOMPARE(switcher.arguments(), commonArguments("471") << "--static");

    QByteArrayList first{"k", "t", "c", "s", "g"};
    XkbComponentNamesRec record = recordOf(first);
    switcher.setComponentNames(&record);
    first.fill("overwritten");
    QByteArrayList second{{}, "t2", {}, {}, {}};
    record = recordOf(second);
    switcher.setComponentNames(&record);

    QCOMPARE(switcher.arguments(),
        commonArguments("471") << "--types"
                               << "t2"
                               << "--static");
}

void StartupTest::aMissingSwitcherIsNotStarted()
{
    const bool isMissing = access(switcherProgram, X_OK) != 0;
    KbdSwitcher switcher(toolkitDisplay(), 471, nullptr, false);
    QCOMPARE(switcher.launch() == -1, isMissing);
}

void StartupTest::aHangingSetxkbmapIsGivenUp()
{
    QVERIFY(hanging->waitForEnd(45000));
    failsWith(*hanging, waitingLine + rulesFailure);
    QFile process(hangingTool->filePath("process"));
    QVERIFY(process.open(QIODevice::ReadOnly));
    const pid_t tool = process.readAll().trimmed().toInt();
    QVERIFY(tool > 0);
    QCOMPARE(::kill(tool, 0), -1); // there is no such process any more
}

// The test's own program serves as one that ends with an exception, see endWithOption.
int main(int argc, char** argv)
{
    if (argc == 3 && qstrcmp(argv[1], endWithOption) == 0) {
        if (KbdApp::report(static_cast<KbdApp::ExceptionType>(std::atoi(argv[2]))))
            std::exit(EXIT_FAILURE);
        return wentOn;
    }
    const PrivateServer server;
    server.useForThisProcess();
    QApplication application(argc, argv);
    failOnXErrors();
    StartupTest test;
    return runWithFailurePictures(test, server.display(), argc, argv);
}

#include "tst_startup.moc"
