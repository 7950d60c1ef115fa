#pragma once

#include <QLineEdit>
#include <QString>

struct DeadKeyRow;

// The line that shows what the keys type. It never has the keyboard focus: the window passes its
// own key events on to it. It composes a dead key when the key after it is released.
class TypingArea : public QLineEdit {
    Q_OBJECT

public:
    // A read-only line with a placeholder text, which the first key clears.
    explicit TypingArea(QWidget* parent = nullptr);

    // An ordinary line edit with these contents that composes dead keys.
    explicit TypingArea(const QString& contents, QWidget* parent = nullptr);

public slots:
    // Types the key, unless a dead key waits for its base key: then its press is ignored. The press
    // of Left or Right does nothing: one stroke is one step.
    void keyPressEvent(QKeyEvent* event) override;

    // Composes a pending dead key with this one. Left and Right move the cursor by one character,
    // and with Shift they select it.
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    static QString sampleText() { return tr("Sample Text Area"); }

    void deadKeyReleased(QKeyEvent* event);
    void composeDeadKey(QKeyEvent* event);
    void sendComposedKey(const DeadKeyRow& row, Qt::KeyboardModifiers modifiers);
    void typeKey(QKeyEvent* event);
    void passRelease(QKeyEvent* event);

    int pendingDeadKey = 0; // the key code of a dead key that was released and waits; 0 when none
    QString deadKeyText; // the text of that dead key's event; only kept, as is given
};
