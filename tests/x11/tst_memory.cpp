#include "app/KbdApp.h"
#include "harness/FailurePictures.h"
#include "harness/PrivateServer.h"
#include "harness/TopLevelWindow.h"
#include "harness/WindowManager.h"
#include "harness/XErrors.h"
#include "model/KbdGeometry.h"
#include "ui/CKbdSpecSelector.h"
#include "ui/MainWindow.h"

#include <QAbstractItemView>
#include <QFile>
#include <QTest>

namespace {

constexpr double kilobytesInMegabyte = 1024;
constexpr double mostOwnMemory = 20; // megabytes, over those of the start
constexpr int choices = 600;

// What this process holds that is no file's, in megabytes (proc(5), "RssAnon").
double ownMemory()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    const QList<QByteArray> lines = status.readAll().split('\n');
    for (const QByteArray& line : lines) {
        if (line.startsWith("RssAnon:"))
            return line.mid(8).trimmed().split(' ').first().toDouble() / kilobytesInMegabyte;
    }
    return -1;
}

} // namespace

// What a user does in a long session must not pile up in memory.
class MemoryTest : public QObject {
    Q_OBJECT

private slots:
    void theListAndManyChoicesTakeLittleMemory();
};

void MemoryTest::theListAndManyChoicesTakeLittleMemory()
{
    auto* window = topLevelWindow<MainWindow>();
    QVERIFY(QTest::qWaitForWindowExposed(window));
    auto* selector = window->findChild<CKbdSpecSelector*>();
    window->repaint();
    const double atStart = ownMemory();
    QVERIFY(atStart > 0);

    selector->showPopup();
    QVERIFY(QTest::qWaitForWindowExposed(selector->view()->window()));
    selector->view()->viewport()->repaint();
    selector->hidePopup();
    for (int i = 0; i < choices; ++i) {
        selector->setCurrentIndex(i * selector->count() / choices);
        QTRY_VERIFY(window->picture()->isVisible());
        window->picture()->viewport()->repaint();
    }

    const double taken = ownMemory() - atStart;
    QVERIFY2(taken < mostOwnMemory, qPrintable(QString::number(taken)));
}

int main(int argc, char** argv)
{
    const PrivateServer server;
    server.useForThisProcess();
    const WindowManager windowManager("openbox", server.display());

    char program[] = "tst_memory";
    char standalone[] = "--standalone";
    char* arguments[] = {program, standalone, nullptr};
    KbdApp application(2, arguments);
    failOnXErrors();
    MemoryTest test;
    return runWithFailurePictures(test, server.display(), argc, argv);
}

#include "tst_memory.moc"
