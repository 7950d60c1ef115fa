#pragma once

#include <QByteArray>
#include <QStringList>

#include <optional>

// The standard output of a program found through the search path, or nothing when it could not
// be started, did not end within timeout milliseconds or wrote more than a megabyte (no tool that
// we ask has that much to say). Its exit status and standard error are not looked at.
// A program that has not ended is killed. Blocks until then.
std::optional<QByteArray> toolOutput(
    const QString& program, const QStringList& arguments, int timeout);

// Adds the option (with its dashes) and its value to a tool's arguments; nothing where the value is
// empty.
void appendOption(QStringList& arguments, const char* option, const QString& value);
