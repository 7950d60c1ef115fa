#include "harness/FailurePictures.h"
#include "harness/PictureLocator.h"
#include "harness/PrivateServer.h"
#include "harness/ProgramRun.h"
#include "harness/ProgramWindows.h"
#include "harness/WindowManager.h"
#include "harness/XTools.h"
#include "x11/X11.h"

#include <QDebug>
#include <QTest>

#include <memory>

namespace {

// Of the picture's ground and keys: the picture without its captions, in tenths of a millimetre.
constexpr QRectF ground{0, 0, 4317, 1269};
constexpr QRgb groundColour = qRgb(169, 169, 169);

// Wide enough for the frame that a window manager puts around a window, in pixels.
constexpr int frameWidth = 12;
constexpr int titleHeight = 40;

constexpr int bottomMargin = 20;
constexpr int waitLimitMs = 15000;

// As the user does with the settings of the desktop: a mode of its own, and the screen in it.
bool resizeScreen(const QByteArray& display, const QSize& size)
{
    const auto randr = [&](const QStringList& arguments) {
        return runTool(QStringLiteral("xrandr"), arguments, display).status == 0;
    };
    const QString width = QString::number(size.width());
    const QString height = QString::number(size.height());
    const QString name = QStringLiteral("test%1x%2").arg(width, height);
    return randr({"--newmode", name, "30", width, width, width, width, height, height, height,
               height})
        && randr({"--addmode", "screen", name}) && randr({"--output", "screen", "--mode", name});
}

bool isAtBottom(const QRect& window, const QRect& screen)
{
    return screen.contains(window) && qAbs(window.center().x() - screen.center().x()) < 6
        && screen.bottom() - window.bottom() < bottomMargin && window.width() > screen.width() / 2;
}

} // namespace

// The real program on screens of many sizes, at the scale factors that desktops use.
class ScreensTest : public QObject {
    Q_OBJECT

private slots:
    void theWindowFitsAndThePictureIsCentred_data();
    void theWindowFitsAndThePictureIsCentred();
    void theWindowComesBackToTheBottomOfAChangedScreen_data();
    void theWindowComesBackToTheBottomOfAChangedScreen();

private:
    static QRect rectangleOf(Display* display, Window window);
};

void ScreensTest::theWindowFitsAndThePictureIsCentred_data()
{
    QTest::addColumn<QStringList>("server");
    QTest::addColumn<QRect>("screen"); // where the window is to be
    QTest::addColumn<QString>("scale");
    QTest::addColumn<QString>("mode");

    const auto add = [](const char* size, const QSize& pixels, const char* scale) {
        const QStringList server{
            QStringLiteral("-screen"), QStringLiteral("0"), QString::fromLatin1(size)};
        for (const char* mode : {"--tofocus", "--standalone"})
            QTest::addRow("%s, scale %s, %s", size, scale, mode)
                << server << QRect(QPoint(), pixels) << QString::fromLatin1(scale)
                << QString::fromLatin1(mode);
    };
    add("800x600x24", {800, 600}, "1");
    add("800x600x24", {800, 600}, "1.5");
    add("1280x1024x24", {1280, 1024}, "1.5");
    add("3840x2160x24", {3840, 2160}, "1");
    add("3840x2160x24", {3840, 2160}, "2");

    QTest::newRow("two screens side by side")
        << QStringList{QStringLiteral("-screen"), QStringLiteral("0"),
               QStringLiteral("1024x768x24"), QStringLiteral("-screen"), QStringLiteral("1"),
               QStringLiteral("1024x768x24"), QStringLiteral("+xinerama")}
        << QRect(0, 0, 1024, 768) << QStringLiteral("1") << QStringLiteral("--tofocus");
}

QRect ScreensTest::rectangleOf(Display* display, Window window)
{
    XWindowAttributes attributes{};
    XGetWindowAttributes(display, window, &attributes);
    int x = 0;
    int y = 0;
    Window child = x11::none;
    XTranslateCoordinates(display, window, DefaultRootWindow(display), 0, 0, &x, &y, &child);
    return {x, y, attributes.width, attributes.height};
}

void ScreensTest::theWindowFitsAndThePictureIsCentred()
{
    QFETCH(QStringList, server);
    QFETCH(QRect, screen);
    QFETCH(QString, scale);
    QFETCH(QString, mode);
    const PrivateServer privateServer(server);
    privateServer.useForThisProcess();
    const XConnection display = openDisplay(privateServer.display());
    const WindowManager windowManager("openbox", privateServer.display());
    QVERIFY(setKeyboard(privateServer.display(),
        {QStringLiteral("-model"), QStringLiteral("pc105"), QStringLiteral("-layout"),
            QStringLiteral("us")}));

    ProgramRun program(QStringLiteral(KBD_PROGRAM), privateServer.display());
    program.setVariable(QStringLiteral("QT_SCALE_FACTOR"), scale);
    program.setWorkingDirectory(QStringLiteral(KBD_LAYOUT_DIRECTORY));
    program.start({mode});
    const Window window = program.waitForWindow(display.get());
    QVERIFY2(window != x11::none, program.errors().constData());
    PictureLocator locator(display.get(), window, ground, groundColour);
    QVERIFY(locator.waitForPicture());

    const QRect frame = rectangleOf(display.get(), window)
                            .adjusted(-frameWidth, -titleHeight, frameWidth, frameWidth);
    QVERIFY2(screen.adjusted(-frameWidth, -titleHeight, frameWidth, frameWidth).contains(frame),
        qPrintable(QStringLiteral("%1x%2+%3+%4")
                .arg(frame.width())
                .arg(frame.height())
                .arg(frame.x())
                .arg(frame.y())));
    const QRect inside = rectangleOf(display.get(), window);
    const double left = locator.area().left() - inside.left();
    const double right = inside.left() + inside.width() - locator.area().right();
    QVERIFY2(qAbs(left - right) < 6, qPrintable(QStringLiteral("%1 and %2").arg(left).arg(right)));
    if (mode == QLatin1String("--tofocus")) {
        const int centre = inside.left() + inside.width() / 2;
        QVERIFY(qAbs(centre - screen.center().x()) < 6);
    }
}

void ScreensTest::theWindowComesBackToTheBottomOfAChangedScreen_data()
{
    QTest::addColumn<QString>("manager");
    QTest::newRow("openbox") << QStringLiteral("openbox");
    QTest::newRow("xfwm4") << QStringLiteral("xfwm4");
    QTest::newRow("no window manager") << QString();
}

// Turned on its side, made small, and as it was.
void ScreensTest::theWindowComesBackToTheBottomOfAChangedScreen()
{
    QFETCH(QString, manager);
    const PrivateServer privateServer;
    privateServer.useForThisProcess();
    const XConnection display = openDisplay(privateServer.display());
    std::unique_ptr<WindowManager> windowManager;
    if (!manager.isEmpty())
        windowManager =
            std::make_unique<WindowManager>(manager.toLatin1(), privateServer.display());
    QVERIFY(setKeyboard(privateServer.display(), {"-model", "pc105", "-layout", "us"}));
    ProgramRun program(QStringLiteral(KBD_PROGRAM), privateServer.display());
    program.setWorkingDirectory(QStringLiteral(KBD_LAYOUT_DIRECTORY));
    program.start({"--tofocus"});
    const Window window = program.waitForWindow(display.get());
    QVERIFY2(window != x11::none, program.errors().constData());

    const QRect atFirst = rectangleOf(display.get(), window);
    for (const QSize& size : {QSize(768, 1024), QSize(800, 600), QSize(1280, 1024)}) {
        QVERIFY(resizeScreen(privateServer.display(), size));
        const QRect screen(QPoint(), size);
        const auto isBack = [&] { return isAtBottom(rectangleOf(display.get(), window), screen); };
        QVERIFY2(QTest::qWaitFor(isBack, waitLimitMs),
            qPrintable(QDebug::toString(rectangleOf(display.get(), window))));
        PictureLocator locator(display.get(), window, ground, groundColour);
        QVERIFY2(locator.waitForPicture(), qPrintable(QDebug::toString(size)));
    }
    QTRY_COMPARE(rectangleOf(display.get(), window).size(), atFirst.size());
}

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    ScreensTest test;
    return runWithFailurePictures(test, {}, argc, argv);
}

#include "tst_screens.moc"
