#pragma once

#include <QByteArray>
#include <QStringList>

#include <optional>

// The standard output of a program found through the search path, or nothing when it could not
// be started, did not end within timeout milliseconds or wrote more than a megabyte (far more than
// the tools used here print). Its exit status and standard error are ignored. Blocks until the
// program has ended, or has been killed after timeout.
std::optional<QByteArray> toolOutput(
    const QString& program, const QStringList& arguments, int timeout);

// Adds the option (with its dashes) and its value to a tool's arguments, unless the value is empty.
void appendOption(QStringList& arguments, const char* option, const QString& value);
