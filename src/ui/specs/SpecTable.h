#pragma once

#include <QList>
#include <QString>

#include <optional>

// One line of the keyboard spec table, as written. The variant is empty when the line has none.
struct SpecRow {
    QString name;
    QString icon;
    QString model;
    QString layout;
    QString variant;
};

// The file kbdSpecs.tab: UTF-8 text, one keyboard per line, its fields separated by single tabs.
// The window reads it once and lends it to its controls.
struct SpecTable {
    // Where the file may be: KbdConstants::specTablePath, "./kbdSpecs.tab", "../src/kbdSpecs.tab".
    enum class Place { None, Installed, WorkingDirectory, SourceTree };

    // The first place in this order where the file can be read; None when there is no such place.
    // A directory of this name counts as readable; its rows cannot be read then.
    Place place = Place::None;

    // In file order, without blank lines, comments and lines of fewer than four fields. Nothing
    // when the file cannot be read.
    std::optional<QList<SpecRow>> rows;

    static SpecTable find();

    // The rows of one file, as above. White space before a line is no part of it; fields after the
    // fifth are left out. Nothing when the path is no regular file or cannot be opened.
    static std::optional<QList<SpecRow>> rowsOf(const QString& path);
};
