#pragma once

#include <QByteArrayList>

// What programs on a private server must not inherit from the user who runs the tests or the bench.

// Names of variables that the programs are started without: the user's session, display and
// language, and settings that change how Qt looks.
const QByteArrayList& userVariables();

// Names of variables with the user's own directories. Programs get a private directory instead.
const QByteArrayList& userDirectories();

// The environment of this process as "NAME=value" entries, without userVariables, with `home` for
// each of userDirectories, and with `additions`, entries that come before all others of their name.
QByteArrayList environmentWithoutUser(const QByteArray& home, const QByteArrayList& additions);
