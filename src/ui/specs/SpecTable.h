#pragma once

#include <QList>
#include <QString>
#include <QStringList>

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
namespace SpecTable {

// The first of the paths that can be read; empty when none can. A directory counts: opening it is
// what fails.
QString firstReadable(const QStringList& paths);

// The table's lines in file order, without blank lines, comments and lines of fewer than four
// fields. White space before a line is no part of it; fields after the fifth are left out.
// Nothing when the path is no regular file or cannot be opened.
std::optional<QList<SpecRow>> rowsOf(const QString& path);

} // namespace SpecTable
