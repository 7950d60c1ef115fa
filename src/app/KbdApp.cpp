#include "app/KbdApp.h"

#include "app/FatalMessages.h"
#include "app/KbdSwitcher.h"
#include "app/RefusalAdvice.h"
#include "app/Registry.h"
#include "app/SignalWatch.h"
#include "app/description/ComponentNames.h"
#include "app/description/ServerSettings.h"
#include "keys/ImageFile.h"
#include "keys/KeyCapPainter.h"
#include "model/KbdGeometry.h"
#include "ui/CKbdSpecSelector.h"
#include "ui/MainWindow.h"
#include "ui/TypingArea.h"
#include "ui/specs/KbdConstants.h"
#include "x11/HeldKeys.h"
#include "x11/Queries.h"
#include "x11/X11.h"
#include "x11/qt/KeymapGate.h"
#include "x11/qt/PhysicalKeys.h"
#include "x11/qt/ToFocusWindow.h"
#include "x11/qt/ToolkitDisplay.h"
#include "x11/qt/WaylandSession.h"
#include "x11/qt/XcbEventBridge.h"

#include <QLabel>
#include <QLocale>
#include <QPixmapCache>
#include <QTranslator>

#include <array>
#include <clocale>
#include <cstdlib>
#include <cstring>
#include <iostream>

using namespace Qt::StringLiterals;

namespace {

constexpr char instanceName[] = "orvix-kbd-display-tofocus";
constexpr char iconFile[] = "orvix-kbd-display.png";
constexpr char translationDirectory[] = "/usr/share/orvix-i18n/";
constexpr char translationPrefix[] = "orvix-keyboard-layout_";

// In kilobytes, of Qt's cache of pictures from files: the last flags that were shown. Qt would keep
// five times as much.
constexpr int pictureCacheLimit = 2048;

// After the last press; a key that repeats is pressed again and again.
constexpr int litKeysMs = 1000;

constexpr char waylandLine[] = "Keys clicked here reach the windows of X programs only: this X "
                               "server (Xwayland) hands none on to Wayland programs.";

struct FailureRow {
    KbdApp::ExceptionType exception = KbdApp::UnknownError;
    const char* message = nullptr; // null: none
};

constexpr std::array<FailureRow, 6> failures{{
    {KbdApp::UnknownError, "Unknown exception, aborting."},
    {KbdApp::XkbInitError, "Exception: Cannot initialize xkb exception"},
    {KbdApp::DescriptionError, "Error parsing given keyboard description"},
    {KbdApp::BadParameter, nullptr},
    {KbdApp::MissingValue, nullptr},
    {KbdApp::RulesError, "Exception:  Could not use 'setxkbmap -print' to compile rules."},
}};

// The locales that have a translation, by the beginning of the locale's name.
struct TranslationRow {
    const char* localePrefix;
    const char* translation;
};

constexpr std::array<TranslationRow, 5> translations{{
    {"de", "de_DE"},
    {"es", "es_ES"},
    {"fr", "fr_FR"},
    {"ja", "ja_JP"},
    {"zh_CN", "zh_CN"},
}};

// Models whose geometry the platform draws itself. The order matters: the setting may name several.
constexpr std::array<const char*, 5> platformModels{"jp106", "abnt2", "kr106", "pc105", "pc104"};

constexpr std::array<const char*, 6> optionLines{
    "  -model m | --model=m",
    "  -layout l | --layout=l",
    "  -variant v | --variant=v",
    "  -options o | --options=o",
    "  --standalone",
    "  --tofocus",
};

void assign(char*& target, const char* text)
{
    char* copy = strdup(text);
    std::free(target);
    target = copy;
}

bool startsWith(const char* text, const std::string& prefix)
{
    return std::strncmp(text, prefix.c_str(), prefix.size()) == 0;
}

KbdApp::ExceptionType translated(KbdGeometry::ExceptionType exception)
{
    switch (exception) {
    case KbdGeometry::NoXkb:
        return KbdApp::XkbInitError;
    case KbdGeometry::NoDescription:
        return KbdApp::DescriptionError;
    }
    return KbdApp::UnknownError;
}

} // namespace

// One setting, and where it is read from.
struct KbdApp::SettingRow {
    char* KbdApp::* setting;
    const char* registryPath;
    const char* option; // without its dashes
};

constexpr std::array<KbdApp::SettingRow, 4> KbdApp::settingRows{{
    {&KbdApp::xkbModel, "root/keyboard/XkbModel", "model"},
    {&KbdApp::xkbLayout, "root/keyboard/XkbLayout", "layout"},
    {&KbdApp::xkbVariant, "root/keyboard/XkbVariant", "variant"},
    {&KbdApp::xkbOptions, "root/keyboard/XkbOptions", "options"},
}};

// NOLINTNEXTLINE(readability-non-const-parameter): Qt takes out of it what it understands
KbdApp::KbdApp(int* argc, char** argv, bool flag)
    : BrindleApplication(*argc, argv, flag, true, true)
{
}

KbdApp::KbdApp(int argc, char** argv, bool flag)
    : KbdApp(&(argumentCount = argc), argv, flag)
{
    startUp(argv);
}

void KbdApp::startUp(char** argv)
{
    QPixmapCache::setCacheLimit(pictureCacheLimit);
    installTranslation();
    setApplicationName(tr("Arvane Virtual Keyboard"));
    setWindowIcon(imageFile::read(KbdConstants::iconPath(QString::fromLatin1(iconFile))));
    readRegistry();
    std::setlocale(LC_ALL, "");
    parseArguments(argumentCount, argv);
    settings = {QString::fromUtf8(xkbModel), QString::fromUtf8(xkbLayout),
        QString::fromUtf8(xkbVariant), QString::fromUtf8(xkbOptions)};
    askedFor = settings;
    if (!toolkitDisplay())
        throw XkbInitError;
    if (toFocus)
        exitIfRunning(QString::fromLatin1(instanceName));
    componentNames = getComponentNames();
    selectKeyboardEvents();
    createMainWindow();
    connectMainWindow();
    launchSwitcher();
    mainWindow->show();
    QTimer::singleShot(0, this, &KbdApp::tellWhatCannotWork); // once the window is there
    releaseHeldMessages();
}

KbdApp::~KbdApp()
{
    // By text, like the connection in the base class: another form would not find it.
    disconnect(this, SIGNAL(focusChanged(QWidget*, QWidget*)), this,
        SLOT(gotFocusChange(QWidget*, QWidget*)));
    std::free(xkbModel);
    std::free(xkbLayout);
    std::free(xkbVariant);
    std::free(xkbOptions);
    if (componentNames)
        freeComponentNames(componentNames);
    delete componentNames;
    delete mainWindow;
}

bool KbdApp::report(ExceptionType exception)
{
    for (const FailureRow& row : failures) {
        if (row.exception != exception)
            continue;
        if (row.message)
            std::cerr << row.message << '\n';
        if (exception == DescriptionError)
            std::cerr << qUtf8Printable(adviceAfterRefusal(askedFor, hasGeometryFile())) << '\n';
        return true;
    }
    return false;
}

// The table is that of the machine where it was built; this X server may know other layouts.
void KbdApp::reportChosenKeyboard() const
{
    askedFor = mainWindow->chosenKeyboard();
    std::cerr << "KbdApp: cannot load layout '" << qUtf8Printable(askedFor.layout) << '\'';
    if (!askedFor.variant.isEmpty())
        std::cerr << ", variant '" << qUtf8Printable(askedFor.variant) << '\'';
    std::cerr << ", model '" << qUtf8Printable(askedFor.model) << "'\n";
}

// Qt's event handlers are on the stack: exit() would destroy static objects that they still use.
bool KbdApp::notify(QObject* receiver, QEvent* event)
{
    try {
        return BrindleApplication::notify(receiver, event);
    } catch (ExceptionType exception) {
        report(exception);
    } catch (KbdGeometry::ExceptionType exception) {
        reportChosenKeyboard();
        report(translated(exception));
    }
    std::_Exit(EXIT_FAILURE);
}

void KbdApp::installTranslation()
{
    const QString locale = QLocale::system().name();
    for (const TranslationRow& row : translations) {
        if (locale.startsWith(QLatin1StringView(row.localePrefix)))
            return loadTranslator(QString::fromLatin1(row.translation));
    }
}

void KbdApp::loadTranslator(const QString& locale)
{
    auto* translator = new QTranslator(this);
    const QString file = QLatin1StringView(translationPrefix) + locale;
    // The second place serves a program that runs from where it was built or unpacked.
    if (translator->load(file, QLatin1StringView(translationDirectory) + locale)
        || translator->load(file, applicationDirPath() + u"/../share/orvix-i18n/"_s + locale))
        installTranslator(translator);
}

void KbdApp::readRegistry()
{
    for (const SettingRow& row : settingRows) {
        const QString value = readRegistryValue(QString::fromLatin1(row.registryPath));
        if (!value.isEmpty())
            assign(this->*row.setting, value.toUtf8().constData());
    }
}

void KbdApp::parseArguments(int argc, char** argv)
{
    for (int i = 1; i < argc; ++i) {
        if (takeValue(argc, argv, i) || takeFlag(argv[i]))
            continue;
        std::cerr << "Bad parameter: " << argv[i] << '\n';
        usage(argv[0], BadParameter);
    }
    normaliseModel();
}

// Takes an option with a value, in either form. Moves index to the value when the value is an
// argument of its own.
bool KbdApp::takeValue(int argc, char** argv, int& index)
{
    const char* argument = argv[index];
    for (const SettingRow& row : settingRows) {
        const std::string single = std::string("-") + row.option;
        const std::string joined = "-" + single + "=";
        if (argument == single || argument == "-" + single) {
            if (index + 1 == argc)
                usage(argv[0], MissingValue);
            assign(this->*row.setting, argv[++index]);
            return true;
        }
        if (startsWith(argument, joined)) {
            assign(this->*row.setting, argument + joined.size());
            return true;
        }
    }
    return false;
}

bool KbdApp::takeFlag(const char* argument)
{
    if (std::strcmp(argument, "--standalone") == 0)
        return standalone = true;
    if (std::strcmp(argument, "--tofocus") == 0)
        return toFocus = true;
    return false;
}

void KbdApp::normaliseModel()
{
    if (!xkbModel)
        return;
    for (const char* model : platformModels) {
        if (std::strstr(xkbModel, model))
            return assign(xkbModel, model);
    }
    const std::string first(xkbModel, std::strcspn(xkbModel, ","));
    assign(xkbModel, first.c_str());
}

void KbdApp::usage(const char* program, int code)
{
    std::cerr << "Usage:  " << program << " [options]" << '\n';
    for (const char* line : optionLines)
        std::cerr << line << '\n';
    if (code != 0)
        throw static_cast<ExceptionType>(code);
}

XkbComponentNamesRec* KbdApp::getComponentNames()
{
    auto names = std::make_unique<XkbComponentNamesRec>();
    ComponentQuery query(toolkitDisplay(), settings);
    prepareWhileSetxkbmapRuns();
    KeyCapPainter::loadFonts(); // takes as long as setxkbmap, which runs meanwhile
    if (!query.answer(names.get())) {
        freeComponentNames(names.get());
        // Without the extension setxkbmap cannot have succeeded.
        throw openKeyboardExtension() ? RulesError : XkbInitError;
    }
    return names.release();
}

// These questions run while setxkbmap asks the server its own, so they add no waiting time.
void KbdApp::prepareWhileSetxkbmapRuns()
{
    Display* display = toolkitDisplay();
    x11::askForXInput(display);
    x11::releaseKeysOfTheGone(display);
    shownSettings = withServerSettings(settings, display);
    if (!toFocus)
        return;
    x11::prepareXTest(display);
    isWayland = isWaylandsServer();
}

// Sets xkbEventBase. False where the server has no such extension.
bool KbdApp::openKeyboardExtension()
{
    const auto xkb = x11::queryXkb(toolkitDisplay());
    if (xkb)
        xkbEventBase = xkb->event;
    return xkb.has_value();
}

// Qt selects keyboard events on the same connection, and the server keeps one selection for both:
// bits are only added to it.
void KbdApp::selectKeyboardEvents()
{
    Display* display = toolkitDisplay();
    if (!openKeyboardExtension())
        throw XkbInitError;
    XkbSelectEvents(display, x11::coreKeyboard, XkbMapNotifyMask, XkbMapNotifyMask);
    if (toFocus)
        XkbSelectEventDetails(
            display, x11::coreKeyboard, XkbStateNotify, XkbModifierLockMask, XkbModifierLockMask);
    installFilters();
}

// The filter that is installed last sees an event first. Of these three only the gate keeps events
// from Qt; the picture's PointerPresses, installed later, keeps those of single devices.
// To be called before the window is made: the picture's FollowedKeyboard has to see a change of
// state before the bridge reports it, because the picture then asks it for the state.
void KbdApp::installFilters()
{
    Display* display = toolkitDisplay();
    keymapGate = std::make_unique<KeymapGate>([this] {
        return mainWindow && mainWindow->picture() && mainWindow->picture()->holdsKeys();
    });
    eventBridge = std::make_unique<XcbEventBridge>(display, [this](XEvent* event) {
        const bool isKey = event->type == x11::keyPress || event->type == x11::keyRelease;
        const bool isReported = isKey && physicalKeys && physicalKeys->isReporting();
        if (!isReported)
            x11EventFilter(event);
    });
    installNativeEventFilter(eventBridge.get());
    if (!toFocus)
        return;
    physicalKeys =
        std::make_unique<PhysicalKeys>(display, [this](XEvent* event) { x11EventFilter(event); });
    installNativeEventFilter(physicalKeys.get());
}

void KbdApp::createMainWindow()
{
    try {
        mainWindow = new MainWindow(settings, componentNames, toFocus);
    } catch (KbdGeometry::ExceptionType exception) {
        throw translated(exception);
    } catch (...) {
        std::cerr << "Unexpected exception occurred in KbdApp!" << '\n';
        throw UnknownError;
    }

    if (settings.model.isEmpty() || settings.layout.isEmpty())
        mainWindow->selectKeyboard(shownSettings);
    mainWindow->showLayoutSelector(standalone);
    mainWindow->setWindowTitle(
        toFocus ? tr("Arvane Virtual Keyboard") : tr("Arvane Trial Keyboard"));
    if (toFocus) {
        neverTakeFocus(mainWindow, toolkitDisplay());
        mainWindow->hideTypingArea();
        mainWindow->stayAtBottom();
    } else {
        mainWindow->placeOnScreen(false);
    }
}

// Connected by text where that is given.
void KbdApp::connectMainWindow()
{
    connect(this, SIGNAL(x11KeyPressEventOut(XKeyEvent*)), mainWindow,
        SLOT(x11KeyPressEventIn(XKeyEvent*)));
    connect(this, SIGNAL(x11KeyReleaseEventOut(XKeyEvent*)), mainWindow,
        SLOT(x11KeyReleaseEventIn(XKeyEvent*)));
    connect(this, SIGNAL(x11NewKbdEventOut()), mainWindow, SLOT(x11NewKbdEventIn()));
    connect(this, SIGNAL(x11LockStateChangedOut()), mainWindow, SLOT(x11LockStateChangedIn()));
    connect(this, &BrindleApplication::focusLost, mainWindow, &MainWindow::releasePhysicalKeys);
    connect(&litKeysTimer, &QTimer::timeout, this, &KbdApp::lookAfterLitKeys);
    connect(new SignalWatch(this), &SignalWatch::askedToEnd, this, &QCoreApplication::quit);
}

// Some releases of lit keys never reach this program: the server holds them back while a mouse key
// is down (XKB's control MouseKeys), and a program that grabs the keyboard gets them instead. Raw
// events, which the mode beside other programs takes, always come.
void KbdApp::lookAfterLitKeys()
{
    if (!mainWindow->releaseKeysThatAreUp())
        litKeysTimer.stop();
}

void KbdApp::launchSwitcher()
{
    switcher = new KbdSwitcher(toolkitDisplay(), mainWindow->winId(), componentNames, toFocus);
    switcher->launch();
    connect(mainWindow, SIGNAL(newKeyboard(XkbComponentNamesRec&)), this,
        SLOT(newKeyboard(XkbComponentNamesRec&)));
}

void KbdApp::tellWhatCannotWork() const
{
    if (isWayland)
        std::cerr << waylandLine << '\n';
}

void KbdApp::newKeyboard(XkbComponentNamesRec& names)
{
    copyComponentNames(componentNames, names);
    switcher->setComponentNames(componentNames);
    switcher->launch();
}

bool KbdApp::x11EventFilter(XEvent* event)
{
    if (event->type == x11::keyPress) {
        emit x11KeyPressEventOut(&event->xkey);
        if (!toFocus)
            litKeysTimer.start(litKeysMs);
    } else if (event->type == x11::keyRelease) {
        emit x11KeyReleaseEventOut(&event->xkey);
    } else if (event->type == x11::focusIn && mainWindow) {
        // Qt reports the loss of the focus only after 0.4 s, and one that is over by then not at
        // all.
        mainWindow->releaseKeysThatAreUp();
    } else if (event->type == xkbEventBase) {
        const int kind = reinterpret_cast<XkbEvent*>(event)->any.xkb_type;
        if (kind == XkbNewKeyboardNotify && focusWidget())
            emit x11NewKbdEventOut();
        else if (kind == XkbStateNotify)
            emit x11LockStateChangedOut();
    }
    return false;
}
