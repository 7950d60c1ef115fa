#pragma once

#include "app/description/KeyboardSettings.h"
#include "platform/BrindleApplication.h"
#include "x11/X11.h"

#include <QTimer>

#include <array>
#include <memory>

class KbdSwitcher;
class KeymapGate;
class MainWindow;
class PhysicalKeys;
class XcbEventBridge;

// The application: reads the settings and the command line, opens the keyboard extension, shows
// the main window, and feeds it the X events that concern the keyboard.
class KbdApp : public BrindleApplication {
    Q_OBJECT

public:
    // Thrown by value; that they are integers is given.
    enum ExceptionType {
        UnknownError = 1,
        XkbInitError = 2,
        DescriptionError = 3,
        BadParameter = 4, // the usage text has been printed
        MissingValue = 5, // the usage text has been printed
        RulesError = 6,
    };

    // Does the whole start-up, up to showing the main window. argv is borrowed and outlives the
    // application. Throws ExceptionType.
    KbdApp(int argc, char** argv, bool flag = false);
    ~KbdApp() override;
    Q_DISABLE_COPY(KbdApp)

    // Prints the exception's message, if it has one. False when ExceptionType has no such value.
    static bool report(ExceptionType exception);

    // Ends the program, as at start-up, when a keyboard that the user has chosen cannot be loaded,
    // after a line that says which one it is.
    bool notify(QObject* receiver, QEvent* event) override;

signals:
    // For the main window's slots named In; these relays are given.
    // A key of the keyboard went down or up; the event is borrowed and valid during the call only.
    void x11KeyPressEventOut(XKeyEvent* event);
    void x11KeyReleaseEventOut(XKeyEvent* event);

    // The server has another keyboard now. Only emitted while the window has the focus.
    void x11NewKbdEventOut();

    // The locks or the group of the server's keyboard may have changed.
    void x11LockStateChangedOut();

private slots:
    // Copies the components of a keyboard chosen in the window, and starts the switcher with them.
    void newKeyboard(XkbComponentNamesRec& names);

    // Sees every X event before Qt does. Always returns false: Qt gets the event too.
    bool x11EventFilter(XEvent* event);

private:
    struct SettingRow;
    static const std::array<SettingRow, 4> settingRows;

    // Only makes the bases. The public constructor delegates to it, so that the destructor runs
    // when the start-up throws.
    KbdApp(int* argc, char** argv, bool flag);

    void startUp(char** argv);
    void reportChosenKeyboard() const;
    void installTranslation();
    void loadTranslator(const QString& locale);
    void readRegistry();
    void parseArguments(int argc, char** argv);
    bool takeValue(int argc, char** argv, int& index);
    bool takeFlag(const char* argument);
    void normaliseModel();
    static void usage(const char* program, int code);
    XkbComponentNamesRec* getComponentNames();
    void prepareWhileSetxkbmapRuns();
    bool openKeyboardExtension();
    void selectKeyboardEvents();
    void installFilters();
    void createMainWindow();
    void connectMainWindow();
    void launchSwitcher();
    void tellWhatCannotWork() const;
    void lookAfterLitKeys();

    // QApplication keeps a reference to argc, from before there is an object; this outlives it.
    // NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
    inline static int argumentCount = 0;

    // The settings as they are read, in UTF-8; null where there is none. That they are byte strings
    // made with strdup is given.
    char* xkbModel = nullptr;
    char* xkbLayout = nullptr;
    char* xkbVariant = nullptr;
    char* xkbOptions = nullptr;
    KeyboardSettings settings; // the same once the command line is read, for all other classes
    KeyboardSettings shownSettings; // with those of the server where none are given

    // The keyboard that was asked for last: what report() says of it outlives the application.
    // NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
    inline static KeyboardSettings askedFor;

    bool standalone = false;
    bool toFocus = false;
    bool isWayland = false; // the X server is one; only looked at with toFocus
    XkbComponentNamesRec* componentNames = nullptr; // owned, and its strings with it
    MainWindow* mainWindow = nullptr; // owned
    int xkbEventBase = 0; // the keyboard extension's event code
    KbdSwitcher* switcher = nullptr; // lives until the process ends
    std::unique_ptr<KeymapGate> keymapGate;
    std::unique_ptr<XcbEventBridge> eventBridge;
    std::unique_ptr<PhysicalKeys> physicalKeys; // only with toFocus
    QTimer litKeysTimer; // runs while the picture shows a key as pressed; without toFocus only
};
