#include "app/description/ComponentNames.h"
#include "harness/XTestMain.h"
#include "harness/XTools.h"
#include "keys/KbdDoodad.h"
#include "keys/KbdKey.h"
#include "model/KbdGeometry.h"
#include "ui/CKbdSpecSelector.h"
#include "ui/GroupCombo.h"
#include "ui/KeycapCombo.h"
#include "ui/MainWindow.h"
#include "ui/TypingArea.h"
#include "ui/specs/KbdSpec.h"
#include "x11/X11.h"
#include "x11/qt/ToolkitDisplay.h"

#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QPaintEvent>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <memory>

namespace {

struct Keyboard {
    QString model;
    QString layout;
    QString variant;
};

// A directory with a setxkbmap of the test's own, first in the search path while it lives.
class ToolDirectory {
public:
    explicit ToolDirectory(const QByteArray& script)
        : path(qgetenv("PATH"))
    {
        QFile tool(directory.filePath(QStringLiteral("setxkbmap")));
        if (tool.open(QIODevice::WriteOnly))
            tool.write("#!/bin/sh\n" + script);
        tool.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        qputenv("PATH", directory.path().toLocal8Bit() + ':' + path);
    }
    ~ToolDirectory() { qputenv("PATH", path); }
    Q_DISABLE_COPY_MOVE(ToolDirectory)

    QByteArray written(const char* name) const
    {
        QFile file(directory.filePath(QString::fromLatin1(name)));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

private:
    QTemporaryDir directory;
    QByteArray path;
};

// How often a widget's middle is painted, in which the picture lies.
class PaintCount : public QObject {
public:
    explicit PaintCount(QWidget* painted)
        : widget(painted)
    {
        widget->installEventFilter(this);
    }

    int count() const { return times; }

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint
            && static_cast<QPaintEvent*>(event)->region().contains(widget->rect().center()))
            ++times;
        return false;
    }

private:
    QWidget* widget;
    int times = 0;
};

} // namespace

// Notes, each time that Qt brings the screen up to date, the size of the picture that it paints
// then; an invalid one where it paints none.
class PaintLog : public QObject {
public:
    explicit PaintLog(const MainWindow& watched)
        : window(watched)
    {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject* object, QEvent* event) override
    {
        if (object == &window && event->type() == QEvent::UpdateRequest)
            sizes.append(QSize());
        if (event->type() != QEvent::Paint || sizes.isEmpty())
            return false;
        const KbdGeometry* view = window.picture();
        if (view && object == view->viewport())
            sizes.last() = view->size();
        return false;
    }

    QList<QSize> sizes;

private:
    const MainWindow& window;
};

class MainWindowTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void theRowsStandInTheirOrder();
    void everyControlRefusesTheFocus();
    void theFirstSizeHasThePicturesProportions();
    void theControlsAreWholeAtTheFirstSize();
    void aSingleGroupNeedsNoGroupCombo();
    void theGroupComboComesBackWithASecondGroup();
    void theGroupComboStartsAtTheServersGroup();
    void theGroupComboFollowsTheServer();
    void optionsAddNoItemToTheGroupCombo();
    void aKeyboardOfTheTableIsSelectedAndCustomIsNotOffered();
    void aKeyboardOutsideTheTableIsCustom();
    void choosingAnEntryReplacesThePictureAndDropsCustomForGood();
    void theNewPictureHasItsSizeWhenItIsFirstPainted();
    void theNewPictureKeepsNothingOfTheOldCaps();
    void theNewPictureKeepsTheKeycapMode();
    void theNewPictureGetsTheFlagAndItsNamesAreHandedOn();
    void aChoiceIsPaintedOnce();
    void componentsThatCannotBeHadChangeNothing();
    void customIsHandedToSetxkbmapAsItStands();
    void customThatCanBeHadLoadsNoOther();
    void keyEventsOfTheWindowGoToTheSampleLine();
    void theX11EventsAreHandedOn();
    void theGroupChosenIsLockedInTheServer();

private:
    void open(const Keyboard& keyboard);
    CKbdSpecSelector* selector() const { return window->findChild<CKbdSpecSelector*>(); }
    TypingArea* sampleLine() const { return window->findChild<TypingArea*>(); }
    QComboBox* groupBox() const;
    QLabel* labelWith(const QString& text) const;
    int indexOf(const QString& layout, const QString& variant = {}) const;
    void choose(const QString& layout, const QString& variant = {});

    std::unique_ptr<MainWindow> window;
};

void MainWindowTest::init()
{
    QVERIFY(setKeyboard(qgetenv("DISPLAY"),
        {QStringLiteral("-model"), QStringLiteral("pc105"), QStringLiteral("-layout"),
            QStringLiteral("us"), QStringLiteral("-option"), QString()}));
}

void MainWindowTest::cleanup()
{
    window.reset();
    XkbLockGroup(toolkitDisplay(), x11::coreKeyboard, 0);
    XSync(toolkitDisplay(), x11::xFalse);
}

void MainWindowTest::open(const Keyboard& keyboard)
{
    XkbComponentNamesRec names{};
    const ComponentNamesGuard guard(&names);
    QVERIFY(queryComponentNames(
        &names, toolkitDisplay(), keyboard.model, keyboard.layout, keyboard.variant, QString()));
    window = std::make_unique<MainWindow>(keyboard.model, keyboard.layout, keyboard.variant,
        QString(), &names, false, nullptr, Qt::WindowFlags());
    window->placeOnScreen(false);
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
}

// The group combo's box is the first of the control row.
QComboBox* MainWindowTest::groupBox() const
{
    const QLabel* caption = labelWith(QStringLiteral("Group: "));
    const QList<QComboBox*> boxes = window->findChildren<QComboBox*>();
    for (QComboBox* box : boxes) {
        if (!qobject_cast<CKbdSpecSelector*>(box) && box->toolTip().isEmpty() && caption)
            return box;
    }
    return nullptr;
}

QLabel* MainWindowTest::labelWith(const QString& text) const
{
    const QList<QLabel*> labels = window->findChildren<QLabel*>();
    for (QLabel* label : labels) {
        if (label->text() == text)
            return label;
    }
    return nullptr;
}

int MainWindowTest::indexOf(const QString& layout, const QString& variant) const
{
    const int before = selector()->currentIndex();
    const QSignalBlocker quiet(selector());
    int found = -1;
    for (int i = 0; i < selector()->count() && found < 0; ++i) {
        selector()->setCurrentIndex(i);
        if (!selector()->isCustom(i) && selector()->currentLayout() == layout
            && selector()->currentVariant() == variant)
            found = i;
    }
    selector()->setCurrentIndex(before);
    return found;
}

void MainWindowTest::choose(const QString& layout, const QString& variant)
{
    const int index = indexOf(layout, variant);
    QVERIFY2(index >= 0, qPrintable(layout));
    selector()->setCurrentIndex(index);
}

void MainWindowTest::theRowsStandInTheirOrder()
{
    open({QStringLiteral("pc105"), QStringLiteral("us,ru"), {}});
    const auto placeOf = [this](const QWidget* widget) {
        return widget->mapTo(window.get(), QPoint());
    };
    const auto* printButton = window->findChildren<QPushButton*>().at(0);
    const auto* closeButton = window->findChildren<QPushButton*>().at(1);
    QCOMPARE(printButton->text(), QStringLiteral("Print"));
    QCOMPARE(closeButton->text(), QStringLiteral("Close"));

    const QPoint group = placeOf(labelWith(QStringLiteral("Group: ")));
    const QPoint layout = placeOf(labelWith(QStringLiteral("Layout: ")));
    const QPoint keycap = placeOf(labelWith(QStringLiteral("Keycap Display: ")));
    QVERIFY(placeOf(window->picture()).y() < group.y());
    QVERIFY(group.x() < layout.x());
    QVERIFY(layout.x() < placeOf(selector()).x());
    QVERIFY(placeOf(selector()).x() < keycap.x());
    QVERIFY(keycap.x() < placeOf(printButton).x());
    QVERIFY(placeOf(printButton).y() < placeOf(closeButton).y());
    QVERIFY(placeOf(sampleLine()).x() < placeOf(closeButton).x());
    QVERIFY(sampleLine()->width() > 5 * closeButton->width());
}

void MainWindowTest::everyControlRefusesTheFocus()
{
    open({QStringLiteral("pc105"), QStringLiteral("us"), {}});
    const QList<QWidget*> controls{window->picture(), selector(), groupBox(), sampleLine()};
    for (const QWidget* control : controls)
        QCOMPARE(control->focusPolicy(), Qt::NoFocus);
    const auto buttons = window->findChildren<QPushButton*>();
    for (const QPushButton* button : buttons)
        QCOMPARE(button->focusPolicy(), Qt::NoFocus);
    window->activateWindow();
    QTRY_COMPARE(QApplication::focusWidget(), window.get());
}

void MainWindowTest::theFirstSizeHasThePicturesProportions()
{
    open({QStringLiteral("pc105"), QStringLiteral("us"), {}});
    const QRect screen = window->screen()->availableGeometry();
    QVERIFY(window->width() <= screen.width() * 3 / 4);
    QVERIFY(window->width() >= screen.width() * 3 / 4 - 2);
    const QSizeF picture = window->picture()->pictureSize();
    const QSizeF shown = window->picture()->size();
    const double difference = shown.width() / shown.height() - picture.width() / picture.height();
    QVERIFY2(qAbs(difference) < 0.1, qPrintable(QString::number(difference)));
}

void MainWindowTest::theControlsAreWholeAtTheFirstSize()
{
    open({QStringLiteral("pc105"), QStringLiteral("us,ba,ru"), {}});
    const QList<QComboBox*> boxes = window->findChildren<QComboBox*>();
    QCOMPARE(boxes.size(), 3);
    for (const QComboBox* box : boxes) {
        QVERIFY(box->isVisible());
        QVERIFY2(box->width() >= box->sizeHint().width(), qPrintable(box->currentText()));
    }
}

void MainWindowTest::aSingleGroupNeedsNoGroupCombo()
{
    open({QStringLiteral("pc105"), QStringLiteral("us"), {}});
    QVERIFY(!groupBox()->isVisible());
    QVERIFY(!labelWith(QStringLiteral("Group: "))->isVisible());
}

void MainWindowTest::theGroupComboComesBackWithASecondGroup()
{
    open({QStringLiteral("pc105"), QStringLiteral("us"), {}});
    choose(QStringLiteral("us,ru"));
    QVERIFY(groupBox()->isVisible());
    QCOMPARE(groupBox()->count(), 2);
    QCOMPARE(groupBox()->itemText(0), QStringLiteral("English (US)"));
    QCOMPARE(groupBox()->itemText(1), QStringLiteral("Russian"));
    choose(QStringLiteral("us"));
    QVERIFY(!groupBox()->isVisible());
}

void MainWindowTest::theGroupComboStartsAtTheServersGroup()
{
    QVERIFY(setKeyboard(qgetenv("DISPLAY"), {QStringLiteral("-layout"), QStringLiteral("us,ru")}));
    XkbLockGroup(toolkitDisplay(), x11::coreKeyboard, 1);
    open({QStringLiteral("pc105"), QStringLiteral("us,ru"), {}});
    QCOMPARE(groupBox()->currentIndex(), 1);
    QCOMPARE(int(window->picture()->group()), 1);
}

void MainWindowTest::theGroupComboFollowsTheServer()
{
    QVERIFY(setKeyboard(qgetenv("DISPLAY"), {QStringLiteral("-layout"), QStringLiteral("us,ru")}));
    open({QStringLiteral("pc105"), QStringLiteral("us,ru"), {}});
    QCOMPARE(groupBox()->currentIndex(), 0);
    XkbLockGroup(toolkitDisplay(), x11::coreKeyboard, 1);
    XFlush(toolkitDisplay());
    const auto followedGroup = [this] {
        window->x11LockStateChangedIn();
        return groupBox()->currentIndex();
    };
    QTRY_COMPARE(followedGroup(), 1);
    QCOMPARE(int(window->picture()->group()), 1);
}

void MainWindowTest::optionsAddNoItemToTheGroupCombo()
{
    QVERIFY(setKeyboard(qgetenv("DISPLAY"),
        {QStringLiteral("-layout"), QStringLiteral("us,ru"), QStringLiteral("-option"),
            QStringLiteral("grp:alt_shift_toggle,compose:ralt")}));
    open({});
    QCOMPARE(groupBox()->count(), 2);
    QVERIFY(!groupBox()->itemIcon(0).isNull());
    QVERIFY(!groupBox()->itemIcon(1).isNull());
}

void MainWindowTest::aKeyboardOfTheTableIsSelectedAndCustomIsNotOffered()
{
    open({QStringLiteral("pc105"), QStringLiteral("de"), QStringLiteral("nodeadkeys")});
    QCOMPARE(selector()->currentLayout(), QStringLiteral("de"));
    QCOMPARE(selector()->currentVariant(), QStringLiteral("nodeadkeys"));
    QVERIFY(!selector()->isCustom(selector()->currentIndex()));
    QVERIFY(!selector()->isCustom(selector()->count() - 1));
}

void MainWindowTest::aKeyboardOutsideTheTableIsCustom()
{
    open({});
    QVERIFY(selector()->isCustom(selector()->currentIndex()));
    QCOMPARE(selector()->currentIndex(), selector()->count() - 1);
    QCOMPARE(selector()->currentText(), QStringLiteral("<Custom>"));
}

void MainWindowTest::choosingAnEntryReplacesThePictureAndDropsCustomForGood()
{
    open({});
    const KbdGeometry* before = window->picture();
    const QSignalSpy gone(before, &QObject::destroyed);
    choose(QStringLiteral("gr"));
    QCOMPARE(gone.count(), 1);
    QTRY_VERIFY(window->picture()->isVisible());
    QVERIFY(!selector()->isCustom(selector()->count() - 1));
    choose(QStringLiteral("fr"));
    QVERIFY(!selector()->isCustom(selector()->count() - 1));
}

// Nor is the window painted without a picture in between.
void MainWindowTest::theNewPictureHasItsSizeWhenItIsFirstPainted()
{
    open({QStringLiteral("pc105"), QStringLiteral("us"), QString()});
    QCoreApplication::processEvents();
    const QSize size = window->picture()->size();
    const PaintLog paints(*window);
    choose(QStringLiteral("de"));
    QTRY_VERIFY(paints.sizes.contains(size));
    QCOMPARE(paints.sizes.first(), size);
}

// Caps that look the same are drawn by the old picture's.
void MainWindowTest::theNewPictureKeepsNothingOfTheOldCaps()
{
    open({QStringLiteral("pc105"), QStringLiteral("us"), QString()});
    choose(QStringLiteral("ru"));
    choose(QStringLiteral("de"));
    const QImage chosen = window->picture()->grab().toImage();
    open({QStringLiteral("pc105"), QStringLiteral("de"), QString()});
    QCOMPARE(chosen, window->picture()->grab().toImage());
}

void MainWindowTest::theNewPictureKeepsTheKeycapMode()
{
    open({QStringLiteral("pc105"), QStringLiteral("us"), {}});
    const QList<QComboBox*> boxes = window->findChildren<QComboBox*>();
    const auto keycap = std::find_if(boxes.begin(), boxes.end(), [](const QComboBox* box) {
        return box->itemText(1) == QLatin1String("Multiple Characters");
    });
    QVERIFY(keycap != boxes.end());
    const auto shown = [this] {
        choose(QStringLiteral("gb"));
        choose(QStringLiteral("us"));
        const bool visible = QTest::qWaitFor([this] { return window->picture()->isVisible(); });
        return visible ? window->picture()->grab().toImage() : QImage();
    };
    const QImage one = shown();
    QCOMPARE(shown(), one);
    (*keycap)->setCurrentIndex(1);
    const QImage several = window->picture()->grab().toImage();
    QVERIFY(several != one);
    QCOMPARE(shown(), several);
}

void MainWindowTest::theNewPictureGetsTheFlagAndItsNamesAreHandedOn()
{
    open({QStringLiteral("pc105"), QStringLiteral("us"), {}});
    QStringList symbols;
    connect(window.get(), &MainWindow::newKeyboard, this,
        [&symbols](XkbComponentNamesRec& names) { symbols << QString::fromUtf8(names.symbols); });
    choose(QStringLiteral("fr"));
    QCOMPARE(symbols, QStringList{QStringLiteral("pc+fr+inet(evdev)")});
    QStringList flags;
    const QList<KbdDoodad*> doodads = window->picture()->doodadItems();
    for (const KbdDoodad* doodad : doodads) {
        if (!doodad->flagFilename().isEmpty())
            flags << doodad->flagFilename();
    }
    QCOMPARE(flags, QStringList{QStringLiteral("fr.png")});
}

// Neither the gap without a picture nor a picture of another size, which a remote display would be
// sent in full.
void MainWindowTest::aChoiceIsPaintedOnce()
{
    open({QStringLiteral("pc105"), QStringLiteral("us"), {}});
    const PaintCount ofGround(window->centralWidget());
    choose(QStringLiteral("fr"));
    const PaintCount ofPicture(window->picture()->viewport());
    QTRY_COMPARE(ofPicture.count(), 1);
    QCOMPARE(ofGround.count(), 1);
}

void MainWindowTest::componentsThatCannotBeHadChangeNothing()
{
    open({QStringLiteral("pc105"), QStringLiteral("us"), {}});
    const KbdGeometry* before = window->picture();
    const ToolDirectory fake("echo rubbish; exit 1\n");
    choose(QStringLiteral("fr"));
    QCOMPARE(window->picture(), before);
    QVERIFY(before->isVisible());
    QCOMPARE(selector()->currentLayout(), QStringLiteral("fr"));
}

void MainWindowTest::customIsHandedToSetxkbmapAsItStands()
{
    open({});
    const ToolDirectory fake("echo \"$@\" >\"$(dirname \"$0\")/arguments\"\n");
    kbdSpec_t custom;
    custom.models = custom.layouts = custom.variants = QStringList{QStringLiteral("<NoChange>")};
    const KbdGeometry* before = window->picture();
    window->newKbdSelected(&custom);
    QVERIFY(fake.written("arguments")
            .contains("-model <NoChange> -layout <NoChange> -variant <NoChange> -print"));
    QCOMPARE(window->picture(), before);
}

void MainWindowTest::customThatCanBeHadLoadsNoOther()
{
    open({});
    const int custom = selector()->currentIndex();
    QVERIFY(selector()->isCustom(custom));
    // As if the server's own keyboard went by these names.
    const QByteArray real = QStandardPaths::findExecutable("setxkbmap").toLocal8Bit();
    const ToolDirectory fake("echo \"$@\" >>\"$(dirname \"$0\")/arguments\"\nexec " + real
        + " -display \"$2\" -print\n");
    QSignalSpy loaded(window.get(), SIGNAL(newKeyboard(XkbComponentNamesRec&)));
    emit selector()->currentIndexChanged(custom);
    QCOMPARE(loaded.size(), 1);
    QCOMPARE(fake.written("arguments").count('\n'), 1);
}

void MainWindowTest::keyEventsOfTheWindowGoToTheSampleLine()
{
    open({QStringLiteral("pc105"), QStringLiteral("us"), {}});
    QCOMPARE(sampleLine()->text(), QStringLiteral("Sample Text Area"));
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    const XConnection keyboard = openDisplay(qgetenv("DISPLAY"));
    for (const char* key : {"h", "i"}) {
        const KeyCode code = XKeysymToKeycode(keyboard.get(), XStringToKeysym(key));
        XTestFakeKeyEvent(keyboard.get(), code, x11::xTrue, CurrentTime);
        XTestFakeKeyEvent(keyboard.get(), code, x11::xFalse, CurrentTime);
    }
    XSync(keyboard.get(), x11::xFalse);
    QTRY_COMPARE(sampleLine()->text(), QStringLiteral("hi"));
    QVERIFY(sampleLine()->isReadOnly());
}

void MainWindowTest::theX11EventsAreHandedOn()
{
    open({QStringLiteral("pc105"), QStringLiteral("us"), {}});
    const QSignalSpy presses(window.get(), &MainWindow::x11KeyPressEventOut);
    const QSignalSpy releases(window.get(), &MainWindow::x11KeyReleaseEventOut);
    const QSignalSpy keyboards(window.get(), &MainWindow::x11NewKbdEventOut);
    const QSignalSpy locks(window.get(), &MainWindow::x11LockStateChangedOut);
    XKeyEvent event{};
    event.keycode = XKeysymToKeycode(toolkitDisplay(), XK_a);
    window->x11KeyPressEventIn(&event);
    const QList<KbdKey*> keys = window->picture()->keyItems();
    const auto lit = [&keys] {
        return std::count_if(
            keys.begin(), keys.end(), [](const KbdKey* key) { return key->isPhysicallyDown(); });
    };
    QCOMPARE(lit(), 1);
    window->x11KeyReleaseEventIn(&event);
    QCOMPARE(lit(), 0);
    window->x11NewKbdEventIn();
    window->x11LockStateChangedIn();
    QCOMPARE(presses.count(), 1);
    QCOMPARE(releases.count(), 1);
    QCOMPARE(keyboards.count(), 1);
    QCOMPARE(locks.count(), 1);
}

void MainWindowTest::theGroupChosenIsLockedInTheServer()
{
    QVERIFY(setKeyboard(qgetenv("DISPLAY"), {QStringLiteral("-layout"), QStringLiteral("us,ru")}));
    open({QStringLiteral("pc105"), QStringLiteral("us,ru"), {}});
    groupBox()->setCurrentIndex(1);
    XkbStateRec state{};
    XkbGetState(toolkitDisplay(), x11::coreKeyboard, &state);
    QCOMPARE(int(state.locked_group), 1);
}

KBD_X11_TEST_MAIN(MainWindowTest)
#include "tst_mainwindow.moc"
