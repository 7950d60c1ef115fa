#include "ui/MainWindow.h"

#include "app/description/ComponentNames.h"
#include "app/description/XkbTexts.h"
#include "keys/ImageFile.h"
#include "keys/KbdDoodad.h"
#include "model/DrawnCaps.h"
#include "model/KbdGeometry.h"
#include "ui/CKbdSpecSelector.h"
#include "ui/GroupCombo.h"
#include "ui/KeycapCombo.h"
#include "ui/PicturePrinter.h"
#include "ui/ScreenFollower.h"
#include "ui/TypingArea.h"
#include "ui/specs/SpecTable.h"
#include "x11/X11.h"
#include "x11/qt/ToolkitDisplay.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr char windowIconFile[] = "/usr/share/icons/Rodent/48x48/apps/keyboard.png";
constexpr int viewIndex = 1; // of the picture in the window's layout
constexpr int textLineStretch = 1000;

constexpr double screenShare = 0.75; // of the screen's width
constexpr int screenMargin = 8; // pixels left for the window manager's frame
constexpr int frameWidth = 40; // pixels that its frame takes at most

// All keyboards of the entry together; it does not choose options.
KeyboardSettings settingsOf(const kbdSpec_t& spec)
{
    const QString comma = u","_s;
    return {spec.models.join(comma), spec.layouts.join(comma), spec.variants.join(comma), {}};
}

} // namespace

MainWindow::MainWindow(
    const KeyboardSettings& settings, XkbComponentNamesRec* names, bool wantXTest)
{
    build(settings, names, wantXTest);
}

MainWindow::MainWindow( // NOLINT(readability-function-size): the signature is given
    QString model, QString layout, QString variant, QString options, XkbComponentNamesRec* names,
    bool wantXTest, QWidget* parent, Qt::WindowFlags flags)
    : QMainWindow(parent, flags)
{
    build({model, layout, variant, options}, names, wantXTest);
}

// The given connections of this class are made by text: that is given too.
void MainWindow::build(
    const KeyboardSettings& settings, XkbComponentNamesRec* names, bool wantXTest)
{
    setUpWindow();
    const SpecTable table = SpecTable::find();

    mainWidget = new QWidget(this);
    mainLayout = new QVBoxLayout(mainWidget);
    topRow = addRow();
    view = new KbdGeometry(settings, *names, wantXTest, this);
    mainLayout->addWidget(view);
    controlRow = addRow();
    addGroupCombo(table);
    addLayoutSelector(settings, table);
    addKeycapCombo();
    addPrintButton();
    addBottomRow();
    setCentralWidget(mainWidget);

    connectView();
    groupCombo->setCurrentIndex(view->firstGroup());
    connectTypingArea();
    setFocus(Qt::OtherFocusReason);
}

// The picture goes first: it releases the keys that it holds down in the server. The central widget
// owns the rest.
MainWindow::~MainWindow()
{
    delete view;
}

void MainWindow::setUpWindow()
{
    // Without that icon theme the window keeps the application's icon.
    if (const QPixmap icon = imageFile::read(QString::fromLatin1(windowIconFile)); !icon.isNull())
        setWindowIcon(QIcon(icon));
    // The text line composes dead keys itself: an input method must not take them away.
    setAttribute(Qt::WA_InputMethodEnabled, false);
}

QHBoxLayout* MainWindow::addRow()
{
    auto* row = new QHBoxLayout;
    mainLayout->addLayout(row);
    return row;
}

QStringList MainWindow::translatedGroupNames() const
{
    QStringList names = view->groupNames();
    for (QString& name : names)
        name = translateXkbName(name);
    return names;
}

void MainWindow::addGroupCombo(const SpecTable& table)
{
    const QStringList names = translatedGroupNames();
    groupCombo = new GroupCombo(names, false, this, table);
    // The keymap's symbols name lists the layouts of the groups first, then what options add.
    groupCombo->setGroupLayouts(view->groupLayouts().mid(0, names.size()));
    controlRow->addLayout(groupCombo);
    connect(groupCombo, SIGNAL(currentIndexChanged(int)), this, SLOT(levelChanged(int)));
    if (names.size() <= 1)
        groupCombo->hide();
    else
        controlRow->addStretch(1);
}

void MainWindow::addLayoutSelector(const KeyboardSettings& shown, const SpecTable& table)
{
    layoutLabel = new QLabel(tr("Layout: "));
    controlRow->addWidget(layoutLabel);
    try {
        specSelector = new CKbdSpecSelector(true, this, table);
    } catch (...) {
        layoutLabel->setText(QString());
        return;
    }
    specSelector->setFocusPolicy(Qt::NoFocus);
    specSelector->select(shown);
    if (!specSelector->isCustom(specSelector->currentIndex()))
        dropCustomEntry();
    connect(
        specSelector, SIGNAL(currentChanged(kbdSpec_t*)), this, SLOT(newKbdSelected(kbdSpec_t*)));
    layoutLabel->setBuddy(specSelector);
    controlRow->addWidget(specSelector);
    controlRow->addStretch(1);
    view->setFlagFilename(specSelector->currentIconFile());
}

// "<Custom>" is offered only while the table does not have the keyboard that is shown.
void MainWindow::dropCustomEntry()
{
    const int last = specSelector ? specSelector->count() - 1 : -1;
    if (last < 0 || !specSelector->isCustom(last))
        return;
    // If "<Custom>" is current, removing it selects another entry: do not report that as a choice.
    const QSignalBlocker silent(specSelector);
    specSelector->removeItem(last);
}

void MainWindow::addKeycapCombo()
{
    keycapCombo = new KeycapCombo(false, this);
    controlRow->addLayout(keycapCombo);
    controlRow->addStretch(1);
    connect(keycapCombo, SIGNAL(currentIndexChanged(int)), this, SLOT(modeChanged(int)));
}

void MainWindow::addPrintButton()
{
    printButton = new QPushButton(tr("Print"));
    printButton->setFocusPolicy(Qt::NoFocus);
    controlRow->addWidget(printButton);
    connect(printButton, SIGNAL(clicked(bool)), this, SLOT(printButtonClicked(bool)));
}

void MainWindow::addBottomRow()
{
    bottomRow = addRow();
    typingArea = new TypingArea(nullptr);
    bottomRow->addWidget(typingArea, textLineStretch);
    bottomRow->addStretch(1);
    closeButton = new QPushButton(tr("Close"));
    closeButton->setFocusPolicy(Qt::NoFocus);
    bottomRow->addWidget(closeButton);
    connect(closeButton, SIGNAL(clicked()), qApp, SLOT(quit()));
}

void MainWindow::connectView()
{
    connect(
        this, SIGNAL(x11KeyPressEventOut(XKeyEvent*)), view, SLOT(x11KeyPressEventIn(XKeyEvent*)));
    connect(this, SIGNAL(x11KeyReleaseEventOut(XKeyEvent*)), view,
        SLOT(x11KeyReleaseEventIn(XKeyEvent*)));
    connect(this, SIGNAL(x11LockStateChangedOut()), view, SLOT(x11LockStateChangedIn()));
    connect(this, SIGNAL(x11NewKbdEventOut()), view, SLOT(x11NewKbdEventIn()));
    view->observeGroup([this](KeyGroup_t group) {
        // The server has locked this group already: locking it again could undo the next change.
        const QSignalBlocker quiet(groupCombo);
        groupCombo->setCurrentIndex(group);
    });
}

void MainWindow::connectTypingArea()
{
    connect(
        this, SIGNAL(qKeyPressEventOut(QKeyEvent*)), typingArea, SLOT(keyPressEvent(QKeyEvent*)));
    connect(this, SIGNAL(qKeyReleaseEventOut(QKeyEvent*)), typingArea,
        SLOT(keyReleaseEvent(QKeyEvent*)));
}

void MainWindow::showLayoutSelector(bool visible)
{
    layoutLabel->setVisible(visible);
    if (specSelector)
        specSelector->setVisible(visible);
}

void MainWindow::hideTypingArea()
{
    typingArea->hide();
}

void MainWindow::placeOnScreen(bool toBottom)
{
    const QRect available = QGuiApplication::primaryScreen()->availableGeometry();
    ensurePolished();
    mainLayout->activate();
    const QSize least = minimumSizeHint();
    const int viewLeast = std::max(view->minimumSizeHint().height(), view->minimumHeight());
    const int controls = least.height() - viewLeast;

    const QSizeF picture = view->pictureSize();
    const QMargins margins = mainLayout->contentsMargins();
    const int uncut = controlRow->sizeHint().width() + margins.left() + margins.right();
    double width =
        std::max<double>(available.width() * screenShare, std::max(least.width(), uncut));
    width = std::min<double>(width, available.width() - 2 * screenMargin);
    const double highest = available.height() - 2 * screenMargin - controls;
    const double height = std::min(width * picture.height() / picture.width(), highest);
    resize(static_cast<int>(width), static_cast<int>(height) + controls);
    if (!toBottom)
        return;
    placed = QRect(available.center().x() - size().width() / 2,
        available.bottom() + 1 - size().height() - screenMargin, size().width(), size().height());
    setGeometry(placed);
}

void MainWindow::stayAtBottom()
{
    placeOnScreen(true);
    const auto* screen = new ScreenFollower(this);
    connect(screen, &ScreenFollower::screenChanged, this, &MainWindow::returnToBottom);
    connect(screen, &ScreenFollower::roomChanged, this, &MainWindow::followRoom);
}

// A window manager tells only after a change of the screen what its panels leave of it.
void MainWindow::followRoom()
{
    const QScreen* primary = QGuiApplication::primaryScreen();
    const bool fits = primary && primary->availableGeometry().contains(frameGeometry());
    if (!fits || isWherePlaced())
        returnToBottom();
}

// About so: window managers move a window by the width of its frame.
bool MainWindow::isWherePlaced() const
{
    const QMargins about(frameWidth, frameWidth, frameWidth, frameWidth);
    return placed.marginsAdded(about).contains(geometry())
        && geometry().marginsAdded(about).contains(placed);
}

// A maximised window is the window manager's to place.
void MainWindow::returnToBottom()
{
    if (QGuiApplication::primaryScreen() && !isMaximized() && !isFullScreen())
        placeOnScreen(true);
}

void MainWindow::releasePhysicalKeys()
{
    view->releasePhysicalKeys();
}

bool MainWindow::releaseKeysThatAreUp()
{
    return view->releaseKeysThatAreUp();
}

void MainWindow::modeChanged(int which)
{
    view->setMultishiftDisplay(which > 0);
}

void MainWindow::levelChanged(int which)
{
    // The combo reports -1 when it has no items: that is no choice of a group.
    if (which < 0)
        return;
    view->setGroupNum(static_cast<KeyGroup_t>(which));
}

void MainWindow::printButtonClicked(bool)
{
    printPicture(view, this);
}

void MainWindow::newKbdSelected(kbdSpec_t* spec)
{
    const KeyboardSettings settings = settingsOf(*spec);
    XkbComponentNamesRec names{};
    const ComponentNamesGuard guard(&names);
    ComponentQuery query(toolkitDisplay(), settings);
    for (const KbdDoodad* doodad : view->doodadItems()) // while setxkbmap runs
        doodad->prepareFlag(spec->icon);
    if (!query.answer(&names))
        return;

    dropCustomEntry();
    replaceView(settings, names);
    connectView();

    const QStringList groups = translatedGroupNames();
    groupCombo->setItems(groups);
    groupCombo->setVisible(groups.size() >= 2);
    emit newKeyboard(names);
    view->setFlagFilename(spec->icon);
}

void MainWindow::replaceView(const KeyboardSettings& settings, const XkbComponentNamesRec& names)
{
    DrawnCaps caps(view->keyItems());
    view->hide();
    delete view;
    view = nullptr;
    view = new KbdGeometry(settings, names, true, nullptr);
    caps.giveTo(view->keyItems());
    view->setMultishiftDisplay(keycapCombo->currentIndex() >= 1);
    mainLayout->insertWidget(viewIndex, view);
    // At once in its full size: otherwise the window would be painted without a picture first.
    view->show();
    mainLayout->activate();
}

void MainWindow::selectKeyboard(const KeyboardSettings& shown)
{
    if (!specSelector)
        return;
    {
        const QSignalBlocker quiet(specSelector);
        specSelector->setCurrent(shown.model, shown.layout, shown.variant);
    }
    specSelector->updateGeometry(); // another name may need more room
    if (specSelector->isCustom(specSelector->currentIndex()))
        return;
    dropCustomEntry();
    view->setFlagFilename(specSelector->currentIconFile());
}

KeyboardSettings MainWindow::chosenKeyboard() const
{
    if (!specSelector)
        return {};
    return {specSelector->currentModel(), specSelector->currentLayout(),
        specSelector->currentVariant(), QString()};
}

void MainWindow::x11KeyPressEventIn(XKeyEvent* event)
{
    emit x11KeyPressEventOut(event);
}

void MainWindow::x11KeyReleaseEventIn(XKeyEvent* event)
{
    emit x11KeyReleaseEventOut(event);
}

void MainWindow::x11NewKbdEventIn()
{
    emit x11NewKbdEventOut();
}

void MainWindow::x11LockStateChangedIn()
{
    emit x11LockStateChangedOut();
}

void MainWindow::keyPressEvent(QKeyEvent* event)
{
    emit qKeyPressEventOut(event);
}

void MainWindow::keyReleaseEvent(QKeyEvent* event)
{
    emit qKeyReleaseEventOut(event);
}
