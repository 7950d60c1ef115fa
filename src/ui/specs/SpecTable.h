#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QString>

#include <optional>

// One line of the keyboard spec table, as written. The variant is empty when the line has none.
struct SpecRow {
    QString name; // never empty
    QString icon;
    QString model;
    QString layout;
    QString variant;
};

// The same in UTF-8, borrowed from the table's text.
struct SpecFields {
    QByteArrayView name;
    QByteArrayView icon;
    QByteArrayView model;
    QByteArrayView layout;
    QByteArrayView variant;
};

// The lines of a table that describe a keyboard, in file order. Copies share the text. A line is
// taken apart when it is asked for: a table can be long, and few of its lines are ever shown.
class SpecRows {
public:
    SpecRows() = default;

    // text is a table in UTF-8, or in UTF-16 or UTF-32 with a byte order mark. Blank lines,
    // comments and lines of fewer than four fields are left out. White space before a line is no
    // part of it, nor are fields after the fifth.
    explicit SpecRows(QByteArray text);

    qsizetype size() const { return starts.size(); }

    // row is from 0 to size() - 1.
    SpecFields fieldsAt(qsizetype row) const;
    SpecRow at(qsizetype row) const;

    QList<SpecRow> all() const;

    // A number that all rows of this model and layout have, and hardly another: what is looked for
    // in a long table is found without taking each line apart. Both are in UTF-8.
    static quint32 markOf(QByteArrayView model, QByteArrayView layout);
    quint32 markAt(qsizetype row) const { return marks.at(row); }

private:
    QByteArray text; // in UTF-8
    QList<qsizetype> starts; // of the lines in the text
    QList<quint32> marks; // of the same lines
};

// The file kbdSpecs.tab: UTF-8 text, one keyboard per line, its fields separated by single tabs.
// The window reads it once and lends it to its controls.
struct SpecTable {
    // Where the file may be: KbdConstants::specTablePath, "./kbdSpecs.tab", "../src/kbdSpecs.tab".
    enum class Place { None, Installed, WorkingDirectory, SourceTree };

    // The first place in this order where the file can be read; None when there is no such place.
    // A directory of this name counts as readable; its rows cannot be read then.
    Place place = Place::None;

    // Nothing when the file cannot be read.
    std::optional<SpecRows> rows;

    static SpecTable find();

    // The rows of one file. Nothing when the path is no regular file or cannot be opened.
    static std::optional<SpecRows> rowsOf(const QString& path);
};
