#include "ui/TypingArea.h"

#include "ui/DeadKeyTable.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace {

// A line edit moves its cursor at their press.
bool movesTheCursorAtItsRelease(int key)
{
    return key == Qt::Key_Left || key == Qt::Key_Right;
}

bool isModifier(int key)
{
    return key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock;
}

} // namespace

// Input methods stay off: Qt uses none for a read-only line without focus.
TypingArea::TypingArea(QWidget* parent)
    : QLineEdit(parent)
{
    setReadOnly(true);
    setFocusPolicy(Qt::NoFocus);
    setText(sampleText());
}

TypingArea::TypingArea(const QString& contents, QWidget* parent)
    : QLineEdit(contents, parent)
{
}

void TypingArea::keyPressEvent(QKeyEvent* event)
{
    if (text() == sampleText())
        clear();
    if (DeadKeyTable::isDeadKey(event->key()))
        return;
    if (pendingDeadKey > 0) {
        event->ignore();
        return;
    }
    if (!movesTheCursorAtItsRelease(event->key()))
        typeKey(event);
}

void TypingArea::keyReleaseEvent(QKeyEvent* event)
{
    if (DeadKeyTable::isDeadKey(event->key()))
        return deadKeyReleased(event);
    if (pendingDeadKey > 0 && !event->text().isEmpty())
        return composeDeadKey(event);

    const bool select = event->modifiers().testFlag(Qt::ShiftModifier);
    if (event->key() == Qt::Key_Left)
        cursorBackward(select);
    else if (event->key() == Qt::Key_Right)
        cursorForward(select);
    else
        passRelease(event);
}

// A dead key struck twice types its accent; another one takes the place of the first.
void TypingArea::deadKeyReleased(QKeyEvent* event)
{
    if (event->key() == pendingDeadKey)
        return composeDeadKey(event);
    pendingDeadKey = event->key();
    deadKeyText = event->text();
}

void TypingArea::composeDeadKey(QKeyEvent* event)
{
    const DeadKeyRow* row = DeadKeyTable::find(pendingDeadKey, event->key());
    pendingDeadKey = 0;
    if (row)
        sendComposedKey(*row, event->modifiers());
    else
        typeKey(event);
}

void TypingArea::sendComposedKey(const DeadKeyRow& row, Qt::KeyboardModifiers modifiers)
{
    const bool shift = modifiers.testFlag(Qt::ShiftModifier);
    const QChar character(shift ? row.shiftCharacter : row.plainCharacter);
    QKeyEvent composed(QEvent::KeyPress, row.resultKey, modifiers, QString(character));
    QCoreApplication::sendEvent(this, &composed);
}

// Each change of being read-only draws the whole line anew, frame and all, which takes longer than
// a key of the picture.
void TypingArea::typeKey(QKeyEvent* event)
{
    if (isModifier(event->key()))
        return QLineEdit::keyPressEvent(event);
    setReadOnly(false);
    QLineEdit::keyPressEvent(event);
    setReadOnly(true);
}

void TypingArea::passRelease(QKeyEvent* event)
{
    // A widget does the same whether read-only or not.
    // NOLINTNEXTLINE(bugprone-parent-virtual-call): a line edit would start its cursor blinking
    QWidget::keyReleaseEvent(event);
}
