#include "harness/ProgramRun.h"
#include "harness/XProxy.h"
#include "harness/XTestMain.h"
#include "harness/XTools.h"

#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <csignal>

namespace {

// What a start may need beyond what Qt itself does for one, see refused(). About half as much again
// as it does: no other machine is to fail, but a second look at the fonts or at all icons is.
constexpr int mostAnswers = 130;
constexpr int mostOpenings = 60;
constexpr qint64 mostInstructions = 200'000'000;

// A table of this many keyboards, of which the last is the one that is shown, and what it may add:
// half as much again as it does. It is some 25 ms in the optimised program.
constexpr int keyboardsInLongTable = 200'000;
constexpr qint64 mostForLongTable = 330'000'000;

constexpr int slowStartMs = 60000; // callgrind takes some fifty times as long

const QStringList refusedArguments{"--nonsense"};

// The command that a start is watched with.
struct Watcher {
    QString program;
    QStringList arguments;

    bool works() const { return runTool(program, arguments + QStringList{"true"}, {}).status == 0; }
};

// Of the main thread: others, such as Qt's for the connection, open nothing.
Watcher fileWatcher(const QString& output)
{
    return {"strace", {"-D", "-e", "trace=open,openat", "-o", output}};
}

Watcher instructionWatcher()
{
    return {"valgrind", {"--tool=callgrind", "--callgrind-out-file=/dev/null"}};
}

} // namespace

// What a start costs, in figures that do not depend on what else the machine does. A start that
// ends at the command line has all that Qt itself does.
class StartCostTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void aStartNeedsFewAnswersOfTheServer_data() { addModes(); }
    void aStartNeedsFewAnswersOfTheServer();
    void aStartOpensFewFiles_data() { addModes(); }
    void aStartOpensFewFiles();
    void aStartNeedsFewInstructions_data() { addModes(); }
    void aStartNeedsFewInstructions();
    void aLongTableAddsFewInstructionsToAStart();

private:
    static void addModes();
    QByteArray errorsOf(const Watcher& watcher, const QStringList& arguments);
    int openingsOf(const QStringList& arguments);
    qint64 instructionsOf(const QStringList& arguments);
    void startAndEnd(ProgramRun& run, const QString& program, const QStringList& arguments);

    XConnection connection;
    QString workingDirectory = KBD_LAYOUT_DIRECTORY; // where the program looks for the table
};

void StartCostTest::initTestCase()
{
    connection = openDisplay(qgetenv("DISPLAY"));
    QVERIFY(connection);
}

void StartCostTest::addModes()
{
    QTest::addColumn<QString>("argument");
    QTest::newRow("to focus") << "--tofocus";
    QTest::newRow("with the list of keyboards") << "--standalone";
}

// Until the window is there, or to the end of a start that is refused.
void StartCostTest::startAndEnd(
    ProgramRun& run, const QString& program, const QStringList& arguments)
{
    run.start(arguments);
    const bool isShown = run.waitForWindow(connection.get(), slowStartMs) != x11::none;
    QVERIFY2(isShown || !run.isRunning(), qPrintable(program));
    if (isShown)
        ::kill(static_cast<pid_t>(run.processId()), SIGTERM);
    QVERIFY(run.waitForEnd());
}

QByteArray StartCostTest::errorsOf(const Watcher& watcher, const QStringList& arguments)
{
    ProgramRun run(watcher.program, qgetenv("DISPLAY"));
    run.setWorkingDirectory(workingDirectory);
    startAndEnd(run, watcher.program, watcher.arguments + QStringList{KBD_PROGRAM} + arguments);
    return run.errors();
}

// Also counts those that find no file.
int StartCostTest::openingsOf(const QStringList& arguments)
{
    const QTemporaryDir directory;
    QFile output(directory.filePath("openings"));
    errorsOf(fileWatcher(output.fileName()), arguments);
    QByteArray lines;
    const auto isWritten = [&] {
        if (!output.isOpen() && !output.open(QIODevice::ReadOnly))
            return false;
        lines += output.readAll();
        return lines.contains("+++ ");
    };
    return QTest::qWaitFor(isWritten) ? static_cast<int>(lines.count("open")) : -1;
}

qint64 StartCostTest::instructionsOf(const QStringList& arguments)
{
    static const QRegularExpression collected("Collected : (\\d+)");
    const QByteArray errors = errorsOf(instructionWatcher(), arguments);
    const QRegularExpressionMatch match = collected.match(QString::fromLocal8Bit(errors));
    return match.hasMatch() ? match.captured(1).toLongLong() : -1;
}

void StartCostTest::aStartNeedsFewAnswersOfTheServer()
{
    QFETCH(const QString, argument);
    const XProxy server(qgetenv("DISPLAY"));
    ProgramRun refused(KBD_PROGRAM, server.display());
    refused.start(refusedArguments);
    QVERIFY(refused.waitForEnd());
    const int answersToQt = server.traffic().replies;
    ProgramRun run(KBD_PROGRAM, server.display());
    run.start({argument});
    QVERIFY(run.waitForWindow(connection.get()));
    const int answers = server.traffic().replies - 2 * answersToQt;
    QVERIFY2(answers <= mostAnswers, QByteArray::number(answers).constData());
}

void StartCostTest::aStartOpensFewFiles()
{
    QFETCH(const QString, argument);
    if (!fileWatcher("/dev/null").works())
        QSKIP("No file is counted: strace is missing or may not trace here");
    const int byQt = openingsOf(refusedArguments);
    QVERIFY(byQt > 0);
    const int openings = openingsOf({argument}) - byQt;
    QVERIFY2(openings > 0 && openings <= mostOpenings, QByteArray::number(openings).constData());
}

void StartCostTest::aStartNeedsFewInstructions()
{
    QFETCH(const QString, argument);
    if (!instructionWatcher().works())
        QSKIP("No instruction is counted: valgrind is missing or does not run here");
    const qint64 byQt = instructionsOf(refusedArguments);
    QVERIFY(byQt > 0);
    const qint64 instructions = instructionsOf({argument}) - byQt;
    QVERIFY2(instructions > 0 && instructions <= mostInstructions,
        QByteArray::number(instructions).constData());
}

void StartCostTest::aLongTableAddsFewInstructionsToAStart()
{
    if (!instructionWatcher().works())
        QSKIP("No instruction is counted: valgrind is missing or does not run here");
    const QTemporaryDir directory;
    QFile table(directory.filePath("kbdSpecs.tab"));
    QVERIFY(table.open(QIODevice::WriteOnly));
    for (int i = 1; i < keyboardsInLongTable; ++i)
        table.write("Keyboard " + QByteArray::number(i) + "\t\tpc105\tde,us\tneo,\n");
    table.write("The one shown\t\tpc105\tus\t\n");
    table.close();
    const qint64 withBuilt = instructionsOf({"--standalone"});
    workingDirectory = directory.path();
    const qint64 added = instructionsOf({"--standalone"}) - withBuilt;
    QVERIFY2(withBuilt > 0 && added > 0 && added <= mostForLongTable,
        QByteArray::number(added).constData());
}

KBD_X11_TEST_MAIN(StartCostTest)

#include "tst_startcost.moc"
