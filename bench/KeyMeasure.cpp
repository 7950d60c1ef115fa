#include "KeyMeasure.h"

#include "x11/X11.h"

#include <stdexcept>

namespace {

using Clock = ScreenWatch::Clock;

// A picture of many pixels takes its time where the machine is busy.
constexpr std::chrono::milliseconds surelyPainted(500);

// A key and what is to be seen of its press.
struct KeyCase {
    unsigned int keycode;
    ScreenLines (*changes)(const ScreenImage& before, const ScreenImage& after);
};

// In the numbering of PC keyboards: the key of the letter A, and the left Shift.
constexpr KeyCase letter{38, longestChange};
constexpr KeyCase shift{50, changesEverywhere};

class KeyPresser {
public:
    KeyPresser(Desktop& desktopOfAll, const KeyCase& keyCase)
        : desktop(desktopOfAll)
        , keycode(keyCase.keycode)
    {
    }

    void press() { send(true); }

    void release()
    {
        send(false);
        desktop.screen().waitForQuiet(surelyPainted);
    }

private:
    void send(bool down)
    {
        XTestFakeKeyEvent(desktop.display(), keycode, down ? x11::xTrue : x11::xFalse, CurrentTime);
        XFlush(desktop.display());
    }

    Desktop& desktop;
    unsigned int keycode;
};

// A first press, which is not measured, shows what changes.
ScreenLines learnChanges(Desktop& desktop, const QRect& area, const KeyCase& keyCase)
{
    KeyPresser key(desktop, keyCase);
    const ScreenImage before = desktop.screen().grab(area);
    desktop.screen().forgetPaints();
    key.press();
    desktop.screen().waitForQuiet(surelyPainted);
    const ScreenImage after = desktop.screen().grab(area);
    key.release();
    return keyCase.changes(before, after);
}

double measurePress(Desktop& desktop, const KeyCase& keyCase, const ScreenLines& changes)
{
    if (changes.empty() || desktop.screen().shows(changes))
        throw std::runtime_error("a key press is not to be seen");
    KeyPresser key(desktop, keyCase);
    desktop.screen().forgetPaints();
    const auto begin = Clock::now();
    key.press();
    const auto painted = desktop.screen().waitFor(changes);
    key.release();
    if (!painted)
        throw std::runtime_error("a key press does not show as before");
    return std::chrono::duration<double, std::milli>(*painted - begin).count();
}

void measureKey(
    Desktop& desktop, const QRect& area, const KeyCase& keyCase, int presses, Samples& samples)
{
    const ScreenLines changes = learnChanges(desktop, area, keyCase);
    for (int i = 0; i < presses; ++i)
        samples.push_back(measurePress(desktop, keyCase, changes));
}

} // namespace

KeyFigures measureKeys(Desktop& desktop, const Programs& programs, int rounds, int presses)
{
    KeyFigures figures{Series(programs.size()), Series(programs.size())};
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t i = 0; i < programs.size(); ++i) {
            Program& program = *programs[i];
            program.startUntilPainted();
            desktop.waitForFocus(program.window());
            desktop.screen().waitForQuiet();
            measureKey(desktop, program.area(), letter, presses, figures.oneKey[i]);
            measureKey(desktop, program.area(), shift, presses, figures.allLabels[i]);
            program.stop();
        }
    }
    return figures;
}
