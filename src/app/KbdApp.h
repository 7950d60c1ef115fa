#pragma once

#include "platform/BrindleApplication.h"
#include "x11/X11.h"

#include <array>
#include <memory>

class KbdSwitcher;
class MainWindow;
class PhysicalKeys;
class XcbEventBridge;

// Holds the argument count that the application refers to. A virtual base, because it must be
// there before the application is and as long as it is.
struct ArgumentCount {
    explicit ArgumentCount(int count)
        : argumentCount(count)
    {
    }
    int argumentCount;
};

// The application: reads the settings and the command line, opens the keyboard extension, shows
// the main window, and feeds it the X events that concern the keyboard.
class KbdApp : public BrindleApplication, private virtual ArgumentCount {
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

    // A keyboard chosen at run time that cannot be had ends the program as it would at start-up,
    // after a line that says which one it was.
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
    static const std::array<SettingRow, 4> settings;

    // Only makes the bases: the public one delegates to it, so that what it has acquired is
    // released when it throws.
    KbdApp(ArgumentCount arguments, char** argv, bool flag);

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
    bool hasKeyboardExtension();
    void selectKeyboardEvents();
    void createMainWindow();
    void selectServerKeyboard();
    void connectMainWindow();
    void launchSwitcher();

    // The settings, made by strdup, in UTF-8; null where there is none.
    char* xkbModel = nullptr;
    char* xkbLayout = nullptr;
    char* xkbVariant = nullptr;
    char* xkbOptions = nullptr;

    bool standalone = false;
    bool toFocus = false;
    XkbComponentNamesRec* componentNames = nullptr; // owned, and its strings with it
    MainWindow* mainWindow = nullptr; // owned
    int xkbEventBase = 0; // the keyboard extension's event code
    KbdSwitcher* switcher = nullptr; // lives until the process ends
    std::unique_ptr<XcbEventBridge> eventBridge;
    std::unique_ptr<PhysicalKeys> physicalKeys; // only with toFocus
};
