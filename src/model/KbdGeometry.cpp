// The picture as a view: how it comes and goes, is looked at and clicked.

#include "model/KbdGeometry.h"

#include "keys/GeometryColours.h"
#include "keys/KbdDoodad.h"
#include "keys/KbdKey.h"
#include "keys/KbdLabelTable.h"
#include "model/KbdAccessible.h"
#include "x11/CoreKeyboard.h"
#include "x11/qt/KeySender.h"

#include <QCoreApplication>
#include <QGraphicsRectItem>
#include <QGraphicsTextItem>
#include <QMouseEvent>
#include <QWindow>

#include <utility>

KbdGeometry::KbdGeometry( // NOLINT(readability-function-size): the settings stand side by side
    QString model, QString layout, QString variant, QString options, XkbComponentNamesRec* names,
    bool wantXTest, QWidget* parent)
    : QGraphicsView(parent)
    , keyboardScene(new QGraphicsScene(this))
{
    setUpView();
    KbdAccessible::install();

    openDisplay();
    useXTest = wantXTest && server->hasXTest();
    loadKeyboard({model, layout, variant, options}, *names);

    setScene(keyboardScene);
    fitPicture();
    connect(qApp, &QCoreApplication::aboutToQuit, this, [this] { sender->releaseAll(); });
}

void KbdGeometry::setUpView()
{
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFrameShape(QFrame::NoFrame);
    viewport()->setAutoFillBackground(false); // the window's own ground shows, and none on paper
    setRenderHints(
        QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
}

KbdGeometry::~KbdGeometry()
{
    // Before the keys: the server must not keep one pressed whose release can no longer come.
    sender->releaseAll();

    const QList<QGraphicsItem*> items = keyboardScene->items();
    for (QGraphicsItem* item : items)
        keyboardScene->removeItem(item);
    qDeleteAll(std::exchange(keys, {})); // nobody finds one of them half gone
    qDeleteAll(doodads);
    delete modelText;
    delete layoutText;
    delete variantText;
    delete optionsText;
    delete background;
}

QString KbdGeometry::symbolsName() const
{
    return xDisplay->atomName(xkb->names->symbols);
}

int KbdGeometry::keymapGroupCount() const
{
    int groups = 1;
    for (int code = xkb->min_key_code; code <= xkb->max_key_code; ++code)
        groups = std::max<int>(groups, XkbKeyNumGroups(xkb, code));
    return groups;
}

QStringList KbdGeometry::groupNames() const
{
    QStringList names;
    for (const Atom name : xkb->names->groups) {
        if (name != x11::none)
            names << xDisplay->atomName(name);
    }
    return names;
}

void KbdGeometry::fitPicture()
{
    fitInView(keyboardScene->sceneRect(), Qt::KeepAspectRatio);
}

void KbdGeometry::resizeEvent(QResizeEvent* event)
{
    QGraphicsView::resizeEvent(event);
    fitPicture();
    emit newScale(viewportTransform().m11());
}

void KbdGeometry::showEvent(QShowEvent* event)
{
    QGraphicsView::showEvent(event);
    if (QWindow* handle = window()->windowHandle())
        handle->installEventFilter(this);
}

// Another program may take the window off the screen without the toolkit hiding it.
bool KbdGeometry::eventFilter(QObject* watched, QEvent* event)
{
    const auto* handle = qobject_cast<QWindow*>(watched);
    if (handle && event->type() == QEvent::Expose && !handle->isExposed())
        sender->releaseAll();
    return QGraphicsView::eventFilter(watched, event);
}

// The release of a button that is down while the picture goes away never arrives.
void KbdGeometry::hideEvent(QHideEvent* event)
{
    sender->releaseAll();
    QGraphicsView::hideEvent(event);
}

void KbdGeometry::mousePressEvent(QMouseEvent* event)
{
    lastInputTime = event->timestamp();
    QGraphicsView::mousePressEvent(event);
}

void KbdGeometry::mouseReleaseEvent(QMouseEvent* event)
{
    lastInputTime = event->timestamp();
    QGraphicsView::mouseReleaseEvent(event);
}

void KbdGeometry::mouseDoubleClickEvent(QMouseEvent* event)
{
    lastInputTime = event->timestamp();
    QGraphicsView::mouseDoubleClickEvent(event);
}

// No event of the server's comes with these, but two keys of the same time pass for one that
// repeats itself.
void KbdGeometry::click(KbdKey* key)
{
    ++lastInputTime;
    key->pressByUser();
    ++lastInputTime;
    key->releaseByUser();
}

void KbdGeometry::setPrintMode(quint8 print)
{
    for (KbdKey* key : std::as_const(keys))
        key->setColourScheme(static_cast<ColourScheme>(print));
    for (KbdDoodad* doodad : std::as_const(doodads))
        doodad->setWhite(print);
}

void KbdGeometry::setFlagFilename(QString filename)
{
    emit newFlagFilename(filename);
}

void KbdGeometry::setMultishiftDisplay(bool isMulti)
{
    for (KbdKey* key : std::as_const(keys))
        key->setMultipleCharacters(isMulti);
}

void KbdGeometry::gotVirtualKeyPress(QString& symbol, QString& desc)
{
    emit virtualKeyPress(symbol, desc);
}

void KbdGeometry::gotVirtualKeyRelease(QString& symbol, QString& desc)
{
    emit virtualKeyRelease(symbol, desc);
}
