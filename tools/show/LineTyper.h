#pragma once

#include "harness/PictureLocator.h"
#include "x11/Types.h"

#include <QRect>
#include <QString>
#include <QStringList>

class KbdGeometry;
class KbdKey;

// Types by clicking the keys of a picture that another program shows, with the real pointer.
class LineTyper {
public:
    // Where the program types.
    enum class Target { FocusedWindow, OwnLine };

    // `picture` is the same keyboard as the one shown and tells where its keys are; both are
    // borrowed, as is the display.
    LineTyper(Display* xDisplay, const KbdGeometry& samePicture, const PictureLocator& place,
        Target typedInto);

    // A line that this keyboard can type: words with a capital, and a character of the third level
    // where there is one.
    QString suggestLine() const;

    // Clicks the line's keys, each with the modifier keys that its character needs. Throws
    // std::runtime_error when a click has no effect, as does the next.
    void typeLine(const QString& line);
    void typeReturn();

private:
    struct Stroke {
        const KbdKey* key = nullptr;
        int level = 0;
    };

    Stroke strokeFor(QChar character) const;
    QString characterAt(const KbdKey& key, int level) const;
    QString lettersOfThirdRow() const;
    const KbdKey* thirdLevelKey() const;
    void typeStroke(const Stroke& stroke);
    void click(const KbdKey* key);
    QRect capOnScreen(const KbdKey* key) const;
    void setButton(bool down);
    bool keyWasReleased(KeyCode keycode);

    Display* display;
    const KbdGeometry& picture;
    const PictureLocator& locator;
    const Target target;
};
