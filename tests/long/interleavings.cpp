// Random interleavings of everything that users and other programs do, against the rules that hold
// whatever the order: when nothing is held no key is down, and locks, lamps, lit keys and the group
// of the picture are the server's. Of the parts 1/2 is the mode beside other programs, 2/2 the
// try-out mode.

#include "app/KbdApp.h"
#include "harness/KeyTargetProcess.h"
#include "harness/PrivateServer.h"
#include "harness/TopLevelWindow.h"
#include "harness/WaitUntil.h"
#include "harness/WindowManager.h"
#include "harness/XErrors.h"
#include "harness/XTools.h"
#include "keys/KbdDoodad.h"
#include "keys/KbdKey.h"
#include "model/KbdGeometry.h"
#include "tests/long/LongRun.h"
#include "ui/MainWindow.h"
#include "ui/specs/KbdSpec.h"
#include "x11/X11.h"

#include <QDir>
#include <QFile>
#include <QMap>
#include <QSet>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <memory>
#include <random>

namespace {

constexpr int actionsInEachMode = 100000;
constexpr int actionsOfOneStart = 1000;
constexpr int actionsBetweenLooks = 25;
constexpr int firstKey = 10; // "1"; evdev key codes from here on
constexpr int lastKey = 91; // keypad decimal
constexpr unsigned int lastButton = 3;
constexpr unsigned char locks = 2 | 16; // Caps Lock and Num Lock in the usual keymaps

// Binds no keys and no buttons of its own, so that all of them reach the windows.
constexpr char managerSettings[] =
    "<openbox_config xmlns=\"http://openbox.org/3.4/rc\"><keyboard/></openbox_config>\n";

const QStringList layouts{"us", "de", "us,ru", "fr", "il", "us,gr,ru", "jp"};

// What a user and other tools do to the program, by chance.
class Chaos {
public:
    Chaos(QByteArray displayName, LongRun& longRun)
        : name(std::move(displayName))
        , run(longRun)
        , connection(openDisplay(name))
        , chance(run.seed())
    {
    }

    // One start of the program with this option, and actions.
    void live(const QByteArray& option);
    int actionsOf(const QByteArray& option) const { return actions.value(option); }
    QStringList figures() const;

private:
    using Action = void (Chaos::*)();
    struct Row {
        int weight;
        const char* word;
        Action action;
    };
    static const std::array<Row, 14> rows;

    bool start(const QByteArray& option);
    void end();
    void act();
    void settle();
    void look();

    void pressButton();
    void releaseButton();
    void move();
    void pressKey();
    void releaseKey();
    void click();
    void lockByTool();
    void groupByTool();
    void setKeymap();
    void chooseLayout();
    void minimise();
    void changeWorkspace();
    void takeFocus();
    void giveFocus();

    int below(int count) { return static_cast<int>(chance() % static_cast<unsigned>(count)); }
    void goToWorkspace(long workspace);
    void showWindow();
    MainWindow* window() const { return topLevelWindow<MainWindow>(); }
    KbdGeometry& picture() const { return *window()->picture(); }
    QString faultOf(const XkbStateRec& state) const;
    QString lampFault() const;
    QString fault() const;

    QByteArray name;
    LongRun& run;
    XConnection connection;
    std::mt19937 chance;
    std::array<QByteArray, 2> arguments{"interleavings"};
    std::array<char*, 3> argumentVector{};
    std::unique_ptr<KbdApp> application;
    std::unique_ptr<KeyTargetProcess> target;
    QSet<unsigned int> buttonsDown;
    QSet<unsigned int> keysDown;
    QStringList since; // the actions since the last look
    QMap<QByteArray, int> actions; // by the program's option
    int looks = 0;
    bool isBroken = false;
};

const std::array<Chaos::Row, 14> Chaos::rows{{
    {30, "button down", &Chaos::pressButton},
    {30, "button up", &Chaos::releaseButton},
    {20, "move", &Chaos::move},
    {20, "key down", &Chaos::pressKey},
    {20, "key up", &Chaos::releaseKey},
    {30, "click", &Chaos::click},
    {6, "lock", &Chaos::lockByTool},
    {4, "group", &Chaos::groupByTool},
    {1, "setxkbmap", &Chaos::setKeymap},
    {1, "layout choice", &Chaos::chooseLayout},
    {1, "minimise", &Chaos::minimise},
    {2, "workspace", &Chaos::changeWorkspace},
    {2, "focus to us", &Chaos::takeFocus},
    {2, "focus to the other", &Chaos::giveFocus},
}};

bool Chaos::start(const QByteArray& option)
{
    arguments[1] = option;
    argumentVector = {arguments[0].data(), arguments[1].data(), nullptr};
    {
        int count = 1;
        const QCoreApplication forTheTool(count, argumentVector.data());
        const Atom guard = XInternAtom(connection.get(), "orvix-kbd-display-tofocus", x11::xFalse);
        const auto isOnly = [&] {
            return XGetSelectionOwner(connection.get(), guard) == x11::none;
        };
        if (!setKeyboard(name, {"-layout", "us"}) || !waitUntil(isOnly))
            return false;
    }
    application = std::make_unique<KbdApp>(2, argumentVector.data());
    target = std::make_unique<KeyTargetProcess>(name);
    isBroken = false;
    return QTest::qWaitForWindowExposed(window()) && target->waitForReady();
}

void Chaos::end()
{
    target.reset();
    application.reset();
    XkbLockModifiers(connection.get(), x11::coreKeyboard, 0xff, 0);
    XkbLockGroup(connection.get(), x11::coreKeyboard, 0);
    for (const int key : pressedKeys(name))
        XTestFakeKeyEvent(connection.get(), static_cast<unsigned>(key), x11::xFalse, CurrentTime);
    XSync(connection.get(), x11::xFalse);
}

void Chaos::live(const QByteArray& option)
{
    if (!start(option))
        run.broken(QStringLiteral("the program does not start"));
    const ExpectedXErrors errors;
    for (int i = 0; i < actionsOfOneStart && run.goesOn() && !isBroken; ++i) {
        act();
        ++actions[option];
        if (i % actionsBetweenLooks == actionsBetweenLooks - 1)
            look();
    }
    look();
    for (const QString& error : ExpectedXErrors::seen())
        run.broken(error);
    end();
}

void Chaos::act()
{
    int sum = 0;
    for (const Row& row : rows)
        sum += row.weight;
    int at = below(sum);
    for (const Row& row : rows) {
        if ((at -= row.weight) >= 0)
            continue;
        since << QLatin1StringView(row.word);
        (this->*row.action)();
        break;
    }
    XFlush(connection.get());
    QCoreApplication::processEvents();
}

// Most of the picture is keys.
void Chaos::move()
{
    const QRect area(picture().viewport()->mapToGlobal(QPoint()), picture().viewport()->size());
    XTestFakeMotionEvent(connection.get(), -1, area.x() + below(area.width()),
        area.y() + below(area.height()), CurrentTime);
}

void Chaos::pressButton()
{
    if (below(2) == 0)
        move();
    const unsigned int button = 1 + static_cast<unsigned>(below(lastButton));
    XTestFakeButtonEvent(connection.get(), button, x11::xTrue, CurrentTime);
    buttonsDown << button;
}

void Chaos::releaseButton()
{
    if (buttonsDown.isEmpty())
        return;
    const unsigned int button = *std::next(buttonsDown.begin(), below(buttonsDown.size()));
    XTestFakeButtonEvent(connection.get(), button, x11::xFalse, CurrentTime);
    buttonsDown.remove(button);
}

void Chaos::click()
{
    move();
    XTestFakeButtonEvent(connection.get(), 1, x11::xTrue, CurrentTime);
    XTestFakeButtonEvent(connection.get(), 1, x11::xFalse, CurrentTime);
    buttonsDown.remove(1);
}

void Chaos::pressKey()
{
    const auto key = static_cast<unsigned>(firstKey + below(lastKey - firstKey));
    XTestFakeKeyEvent(connection.get(), key, x11::xTrue, CurrentTime);
    keysDown << key;
}

void Chaos::releaseKey()
{
    if (keysDown.isEmpty())
        return;
    const unsigned int key = *std::next(keysDown.begin(), below(keysDown.size()));
    XTestFakeKeyEvent(connection.get(), key, x11::xFalse, CurrentTime);
    keysDown.remove(key);
}

void Chaos::lockByTool()
{
    XkbLockModifiers(
        connection.get(), x11::coreKeyboard, locks, static_cast<unsigned>(below(256)) & locks);
}

void Chaos::groupByTool()
{
    XkbLockGroup(connection.get(), x11::coreKeyboard, static_cast<unsigned>(below(3)));
}

void Chaos::setKeymap()
{
    setKeyboard(name, {"-layout", layouts.at(below(layouts.size()))});
}

// Beside other programs there is no list of layouts.
void Chaos::chooseLayout()
{
    if (arguments[1] != "--standalone")
        return;
    const QString layout = layouts.at(below(layouts.size()));
    kbdSpec_t spec{layout, layout, QString(), {"pc105"}, {layout}, {QString()}};
    window()->newKbdSelected(&spec);
}

void Chaos::minimise()
{
    XIconifyWindow(connection.get(), window()->winId(), XDefaultScreen(connection.get()));
}

void Chaos::goToWorkspace(long workspace)
{
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = XDefaultRootWindow(connection.get());
    event.xclient.message_type = XInternAtom(connection.get(), "_NET_CURRENT_DESKTOP", x11::xFalse);
    event.xclient.format = 32;
    event.xclient.data.l[0] = workspace;
    XSendEvent(connection.get(), event.xclient.window, x11::xFalse,
        SubstructureRedirectMask | SubstructureNotifyMask, &event);
}

void Chaos::changeWorkspace()
{
    goToWorkspace(below(2));
}

// A window that cannot be seen cannot have the focus.
void Chaos::takeFocus()
{
    if (arguments[1] == "--standalone")
        window()->activateWindow();
}

void Chaos::giveFocus()
{
    XWindowAttributes attributes{};
    XGetWindowAttributes(connection.get(), target->windowId(), &attributes);
    const ExpectedXErrors mayHaveGoneMeanwhile;
    if (attributes.map_state == IsViewable)
        XSetInputFocus(connection.get(), target->windowId(), RevertToParent, CurrentTime);
    XSync(connection.get(), x11::xFalse);
}

void Chaos::showWindow()
{
    goToWorkspace(0);
    XMapWindow(connection.get(), window()->winId());
}

// Everything that is held is let go of, and the window is there to be looked at.
void Chaos::settle()
{
    while (!buttonsDown.isEmpty())
        releaseButton();
    while (!keysDown.isEmpty())
        releaseKey();
    showWindow();
    XSync(connection.get(), x11::xFalse);
}

void Chaos::look()
{
    settle();
    ++looks;
    if (!isBroken && !waitUntil([this] { return fault().isEmpty(); })) {
        isBroken = true;
        run.broken(QStringLiteral("%1: %2, after %3")
                .arg(QString::fromLatin1(arguments[1]), fault(), since.join(QLatin1String(", "))));
    }
    since.clear();
}

QString Chaos::fault() const
{
    const QList<int> down = pressedKeys(name);
    if (!down.isEmpty())
        return QStringLiteral("key %1 is down").arg(down.first());
    XkbStateRec state{};
    XkbGetState(connection.get(), x11::coreKeyboard, &state);
    const QString stateFault = faultOf(state);
    return stateFault.isEmpty() ? lampFault() : stateFault;
}

QString Chaos::faultOf(const XkbStateRec& state) const
{
    if ((picture().modifiers() & locks) != (state.locked_mods & locks))
        return QStringLiteral("locks are %1, in the server %2")
            .arg(picture().modifiers() & locks)
            .arg(state.locked_mods & locks);
    for (const KbdKey* key : picture().keyItems()) {
        if (key->isPressed())
            return QStringLiteral("key %1 is lit").arg(key->x11Keycode());
    }
    return {};
}

QString Chaos::lampFault() const
{
    int lit = 0;
    for (const KbdDoodad* doodad : picture().doodadItems())
        lit += doodad->isIndicator() && doodad->isActive() ? 1 : 0;
    const int locked =
        ((picture().modifiers() & 2) ? 1 : 0) + ((picture().modifiers() & 16) ? 1 : 0);
    return lit == locked ? QString() : QStringLiteral("%1 lamps, %2 locks").arg(lit).arg(locked);
}

QStringList Chaos::figures() const
{
    QStringList figures;
    for (auto each = actions.cbegin(); each != actions.cend(); ++each)
        figures << QStringLiteral("%1 actions with %2")
                       .arg(each.value())
                       .arg(QString::fromLatin1(each.key()));
    return figures << QStringLiteral("%1 looks").arg(looks);
}

} // namespace

int main(int argc, char** argv)
{
    LongRun run("random interleavings", argc, argv);
    const PrivateServer server;
    server.useForThisProcess();
    const QTemporaryDir settings;
    QDir(settings.path()).mkdir("openbox");
    QFile file(settings.filePath("openbox/rc.xml"));
    if (!file.open(QIODevice::WriteOnly) || file.write(managerSettings) < 0)
        run.broken(QStringLiteral("no settings for the window manager"));
    file.close();
    qputenv("XDG_CONFIG_DIRS", settings.path().toLocal8Bit());
    const WindowManager manager("openbox", server.display());

    Chaos chaos(server.display(), run);
    const QByteArrayList options{"--tofocus", "--standalone"};
    for (qsizetype i = 0; i < options.size(); ++i) {
        while (run.isOurs(i) && run.goesOn() && chaos.actionsOf(options.at(i)) < actionsInEachMode)
            chaos.live(options.at(i));
    }
    return run.finish(chaos.figures());
}
