#pragma once

#include "app/description/KeyboardSettings.h"
#include "x11/X11.h"

#include <QMainWindow>
#include <QStringList>

class CKbdSpecSelector;
class GroupCombo;
class KbdGeometry;
class KeycapCombo;
class PackageTest;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;
class TypingArea;
struct kbdSpec_t;

// The only window: the keyboard picture, a row of controls, and a row with the sample text line.
// It hands what happens on from one of its parts to the next, and replaces the picture when the
// user chooses another keyboard.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    // The settings are those of the keyboard shown at first, names its components (only read).
    // wantXTest: clicked keys go to other programs' windows.
    // Throws KbdGeometry::ExceptionType.
    MainWindow(QString model, QString layout, QString variant, QString options,
        XkbComponentNamesRec* names, bool wantXTest, QWidget* parent, Qt::WindowFlags flags);
    ~MainWindow() override;
    Q_DISABLE_COPY(MainWindow)

    // The layout selector with its label; nothing but the label where there is no table.
    void showLayoutSelector(bool visible);
    void hideTypingArea();

    // Gives the window its first size, the picture's proportions at three quarters of the screen's
    // width or as much as fits, and, if toBottom, its place at the bottom centre of the screen.
    void placeOnScreen(bool toBottom);

    // The physical keyboard goes to another program from now on.
    void releasePhysicalKeys();

    // Shows in the selector which entry the picture is, and its flag; loads nothing. Changes
    // nothing where the table has no such keyboard. The options do not count.
    void selectKeyboard(const KeyboardSettings& shown);

    // The selector's current entry, without options; nothing where there is no table.
    KeyboardSettings chosenKeyboard() const;

    // The picture shown now; replaced with every choice of a keyboard.
    KbdGeometry* picture() const { return view; }

signals:
    // What the slots of the same name took in, for the picture. An event, here as below, is
    // borrowed and valid during the call only.
    void x11KeyPressEventOut(XKeyEvent* event);
    void x11KeyReleaseEventOut(XKeyEvent* event);
    void x11NewKbdEventOut();
    void x11LockStateChangedOut();

    // A key that the toolkit gave to this window, for the sample line.
    void qKeyPressEventOut(QKeyEvent* event);
    void qKeyReleaseEventOut(QKeyEvent* event);

    // Another keyboard is shown, made of these components; names is valid during the call only.
    void newKeyboard(XkbComponentNamesRec& names);

public slots:
    // The keys show their active character (0) or all characters (1).
    void modeChanged(int which);

    // Another group (from 0) is shown, and locked in the server; nothing below 0.
    void levelChanged(int which);

    // Asks for a printer and prints the picture; checked means nothing.
    void printButtonClicked(bool checked);

    // Replaces the keyboard by the one that the entry, which is the selector's, describes. Changes
    // nothing when its components cannot be had. Throws KbdGeometry::ExceptionType when they make
    // no keyboard; the window is without a picture then.
    void newKbdSelected(kbdSpec_t* spec);

    // What happened to the server's keyboard; goes on to the picture.
    void x11KeyPressEventIn(XKeyEvent* event);
    void x11KeyReleaseEventIn(XKeyEvent* event);
    void x11NewKbdEventIn();
    void x11LockStateChangedIn();

    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    // What the selector is to show.
    struct Description {
        QString model;
        QString layout;
        QString variant;
    };

    void setUpWindow();
    QHBoxLayout* addRow();
    void addGroupCombo();
    void addLayoutSelector(const Description& shown, PackageTest& fontPackages);
    void addKeycapCombo();
    void addPrintButton();
    void addBottomRow();
    void connectView();
    void connectTypingArea();
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
};
