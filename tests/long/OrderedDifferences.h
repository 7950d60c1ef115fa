#pragma once

#include <QHash>
#include <QList>
#include <QString>

// Where a cap is meant to show something else than the server's keymap has: the rows of
// differences.tab, four fields each with TABs between them.
//
//   kind     "level": the cap shows another level than the one typed; "corner": one of several
//            labels does, or is not there; "case": the letter is the same, its case under Lock is
//            not; "group": the cap shows another group than the one that XKB gives the
//            key for the group chosen; "sign": the cap shows another character than that of the
//            keysym
//   what     the key type; of a sign, the keysym. May have * in it.
//   when     the modifiers, with + between them: of a case Shift and Lock, of a sign none, else
//            those that the key type takes notice of, and "without a fifth level" for a type of
//            eight levels where no modifier is bound to the fifth. May have * in it.
//   reason   why it is meant to be so
class OrderedDifferences {
public:
    // Empty when the file cannot be read; see isEmpty().
    static OrderedDifferences read(const QString& path);
    bool isEmpty() const { return rows.isEmpty(); }

    // Whether a row allows this difference; counts it under the row's reason.
    bool allow(const QString& kind, const QString& what, const QString& when);

    // "n reason" for each reason that was needed.
    QStringList counts() const;

private:
    struct Row {
        QString kind;
        QString what;
        QString when;
        QString reason;
    };
    QList<Row> rows;
    QHash<QString, int> countByReason;
};
