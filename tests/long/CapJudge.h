#pragma once

#include "app/description/KeyboardSettings.h"
#include "keys/KbdLabelTable.h"
#include "keys/KbdTypes.h"
#include "tests/long/OrderedDifferences.h"
#include "x11/Types.h"

#include <QMap>
#include <QStringList>

class KbdKey;
class LongRun;
class ServerKeymap;

// All that a key paints on its cap, without the breaks between lines and labels: what a user reads,
// whatever the classes behind it say.
QString drawnOn(KbdKey& key);

// Says whether what caps show is what it should be, by the label table and the differences that are
// ordered (differences.tab), and keeps what is not.
class CapJudge {
public:
    // The run is borrowed.
    explicit CapJudge(LongRun& longRun);

    // What the keys that are judged from now on belong to; both are borrowed.
    void setKeyboard(const KeyboardSettings& settings, const ServerKeymap* serverKeymap);

    // A key, with the group that is chosen (from 0) and the modifiers that are held or locked.
    struct Place {
        const KbdKey& key;
        int group;
        ShiftMask_t modifiers;
    };

    // A cap with one label shows `drawn`, and the key gives `keysym`.
    void judge(const Place& place, const QString& drawn, quint32 keysym);

    // A cap with several labels shows `drawn`, and the key gives `keysyms` in its corners and
    // `keysym` now. While a modifier is held, the same labels stay unless its level has no corner:
    // that symbol then stands alone. Lock changes the case of all.
    void judgeCorners(
        const Place& place, const QString& drawn, const QList<quint32>& keysyms, quint32 keysym);

    // A difference of this kind: allowed by a row, or kept.
    void differs(
        const Place& place, const QString& kind, const QString& drawn, const QString& expected);

    // Tells the run of the differences without a row, once for each row that would be missing.
    void report();

    // How many differences had a row, by its reason.
    QStringList counts() const { return ordered.counts(); }

private:
    struct Unexplained {
        void add(const QString& example);
        int count = 0;
        QString first;
    };

    QString labelOf(quint32 keysym, int group) const;
    void judgeSign(const QString& drawn, quint32 keysym);

    LongRun& run;
    OrderedDifferences ordered;
    QMap<QStringList, Unexplained> unexplained; // by kind, what and when
    const KbdLabelTable labels;
    KeyboardSettings keyboard;
    const ServerKeymap* keymap = nullptr;
};
