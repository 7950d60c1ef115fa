#pragma once

#include "app/description/KeyboardSettings.h"
#include "platform/BrindleApplication.h"
#include "x11/X11.h"

#include <array>
#include <memory>

class KbdSwitcher;
class MainWindow;
class PhysicalKeys;
class XcbEventBridge;

// The application: reads the settings and the command line, opens the keyboard extension, shows
// the main window, and feeds it the X events that concern the keyboard.
class KbdApp : public BrindleApplication {
    Q_OBJECT

public:
    enum ExceptionType {
        UnknownError = 1,
        XkbInitError = 2,
        DescriptionError = 3,
        BadParameter = 4, // the usage text has been printed
        MissingValue = 5, // the usage text has been printed
        RulesError = 6,
    };

    // Does all of the start-up, the main window shown included. argv is borrowed and outlives the
    // application. Throws ExceptionType.
    KbdApp(int argc, char** argv, bool flag = false);
    ~KbdApp() override;
    Q_DISABLE_COPY(KbdApp)

    // Prints the exception's message, if it has one. False for a value that is none of
    // ExceptionType's.
    static bool report(ExceptionType exception);

    // A keyboard chosen at run time that cannot be had ends the program as it would at start-up.
    bool notify(QObject* receiver, QEvent* event) override;

signals:
    // A key of the keyboard went down or up; the event is borrowed and valid during the call only.
    void x11KeyPressEventOut(XKeyEvent* event);
    void x11KeyReleaseEventOut(XKeyEvent* event);

    // The server has another keyboard now. Only told while the window has the focus.
    void x11NewKbdEventOut();

    // The locks or the group of the server's keyboard may have changed.
    void x11LockStateChangedOut();

private slots:
    // Takes over the components of a keyboard chosen in the window: names is copied.
    void newKeyboard(XkbComponentNamesRec& names);

    // Looks at an X event before the toolkit does. Always false: no event ends here.
    bool x11EventFilter(XEvent* event);

private:
    struct SettingRow;
    static const std::array<SettingRow, 4> settingRows;

    // Only makes the bases. The public constructor delegates to it, so that the destructor runs
    // when the start-up throws.
    KbdApp(int* argc, char** argv, bool flag);

    void startUp(char** argv);
    void installTranslation();
    void loadTranslator(const QString& locale);
    void readRegistry();
    void parseArguments(int argc, char** argv);
    bool takeValue(int argc, char** argv, int& index);
    bool takeFlag(const char* argument);
    void normaliseModel();
    static void usage(const char* program, int code);
    XkbComponentNamesRec* getComponentNames();
    bool hasKeyboardExtension();
    void selectKeyboardEvents();
    void createMainWindow();
    void connectMainWindow();
    void launchSwitcher();

    static int argumentCount; // QApplication keeps a reference to argc; this outlives it

    // The settings as they are read, in UTF-8; null where there is none. That they are byte strings
    // made with strdup is given.
    char* xkbModel = nullptr;
    char* xkbLayout = nullptr;
    char* xkbVariant = nullptr;
    char* xkbOptions = nullptr;
    KeyboardSettings settings; // the same once the command line is read, for all other classes

    bool standalone = false;
    bool toFocus = false;
    XkbComponentNamesRec* componentNames = nullptr; // owned, and its strings with it
    MainWindow* mainWindow = nullptr; // owned
    int xkbEventBase = 0; // the keyboard extension's event code
    KbdSwitcher* switcher = nullptr; // lives until the process ends
    std::unique_ptr<XcbEventBridge> eventBridge;
    std::unique_ptr<PhysicalKeys> physicalKeys; // only with toFocus
};
