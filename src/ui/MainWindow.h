#pragma once

#include "app/description/KeyboardSettings.h"
#include "x11/X11.h"

#include <QMainWindow>
#include <QStringList>

class CKbdSpecSelector;
class GroupCombo;
class KbdGeometry;
class KeycapCombo;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;
class TypingArea;
struct SpecTable;
struct kbdSpec_t;

// The only window: the keyboard picture, a row of controls, and a row with the sample text line.
// It passes events and choices on between these parts, and replaces the picture when the user
// chooses another keyboard.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    // The keyboard to show at first: its settings, and its components, which are only read.
    // wantXTest: clicked keys are typed by the server (XTest, where it has it), else sent as events
    // to the focused window. A keyboard chosen later always wants XTest. Throws
    // KbdGeometry::ExceptionType.
    MainWindow(const KeyboardSettings& settings, XkbComponentNamesRec* names, bool wantXTest);

    // The same with the settings side by side and by value, a signature that is given.
    MainWindow(QString model, QString layout, QString variant, QString options,
        XkbComponentNamesRec* names, bool wantXTest, QWidget* parent, Qt::WindowFlags flags);
    ~MainWindow() override;
    Q_DISABLE_COPY(MainWindow)

    // Shows or hides the layout selector and its label; only the label when there is no table.
    void showLayoutSelector(bool visible);
    void hideTypingArea();

    // Gives the window its first size: three quarters of the screen's width or as much as fits, in
    // the picture's proportions. toBottom also moves it to the bottom centre of the screen.
    void placeOnScreen(bool toBottom);

    // Places the window at the bottom of the screen, and again whenever the screen is rotated or
    // resized. When panels leave more or less of it than before, a window that the user has put
    // elsewhere stays there if it can be seen whole.
    void stayAtBottom();

    // Another program has the keyboard focus now: the picture lets go of the physical keys that it
    // shows as pressed.
    void releasePhysicalKeys();

    // The picture lets go of keys that have gone up without an event, as while another program had
    // the focus. True if it shows others that are down still. Asks the server where it shows any.
    bool releaseKeysThatAreUp();

    // Shows in the selector which entry the picture is, and its flag; loads nothing. Changes
    // nothing where the table has no such keyboard. The options do not count.
    void selectKeyboard(const KeyboardSettings& shown);

    // The first keyboard of the selector's current entry, without options (of the last entry the
    // selector's defaults); all empty where there is no table.
    KeyboardSettings chosenKeyboard() const;

    // The picture shown now, owned by the window; replaced with every choice of a keyboard, and
    // null after newKbdSelected has thrown.
    KbdGeometry* picture() const { return view; }

signals:
    // For the picture: each slot named In emits the signal named Out. These relays are given.
    // An event, here as below, is borrowed and valid during the call only.
    void x11KeyPressEventOut(XKeyEvent* event);
    void x11KeyReleaseEventOut(XKeyEvent* event);
    void x11NewKbdEventOut();
    void x11LockStateChangedOut();

    // A key event that Qt gave to this window, for the sample line.
    void qKeyPressEventOut(QKeyEvent* event);
    void qKeyReleaseEventOut(QKeyEvent* event);

    // Another keyboard is shown, made of these components; names is valid during the call only.
    void newKeyboard(XkbComponentNamesRec& names);

public slots:
    // The keys show their active character (0) or all characters (1).
    void modeChanged(int which);

    // Shows another group (from 0) and locks it in the server; ignored when negative.
    void levelChanged(int which);

    // Asks for a printer and prints the picture; `checked` is ignored.
    void printButtonClicked(bool checked);

    // Replaces the keyboard by the one that spec, which the selector owns, describes. Blocks until
    // setxkbmap has ended, 30 seconds at most. Where that gives no components the picture stays,
    // but the selector shows spec. Throws KbdGeometry::ExceptionType when the server makes no
    // keyboard of them; the window then has no picture.
    void newKbdSelected(kbdSpec_t* spec);

    // What happened to the server's keyboard.
    void x11KeyPressEventIn(XKeyEvent* event);
    void x11KeyReleaseEventIn(XKeyEvent* event);
    void x11NewKbdEventIn();
    void x11LockStateChangedIn();

    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    void build(const KeyboardSettings& settings, XkbComponentNamesRec* names, bool wantXTest);
    void setUpWindow();
    QHBoxLayout* addRow();
    void addGroupCombo(const SpecTable& table);
    void addLayoutSelector(const KeyboardSettings& shown, const SpecTable& table);
    void addKeycapCombo();
    void addPrintButton();
    void addBottomRow();
    void replaceView(const KeyboardSettings& settings, const XkbComponentNamesRec& names);
    void connectView();
    void connectTypingArea();
    void returnToBottom();
    void followRoom();
    bool isWherePlaced() const;
    void dropCustomEntry();
    QStringList translatedGroupNames() const;

    QWidget* mainWidget = nullptr;
    KbdGeometry* view = nullptr;
    QPushButton* printButton = nullptr;
    QPushButton* closeButton = nullptr;
    QLabel* layoutLabel = nullptr;
    TypingArea* typingArea = nullptr;
    CKbdSpecSelector* specSelector = nullptr; // null when the table could not be read
    QVBoxLayout* mainLayout = nullptr;
    QHBoxLayout* topRow = nullptr; // empty; keeps the picture at index 1
    QHBoxLayout* controlRow = nullptr;
    QHBoxLayout* bottomRow = nullptr;
    GroupCombo* groupCombo = nullptr;
    KeycapCombo* keycapCombo = nullptr;
    QRect placed; // where stayAtBottom has put the window last
};
