#pragma once

// From here on a fatal message of Qt (it cannot reach the X server, or has no platform plug-in that
// fits) is one line on standard error and exit status 1; Qt itself would abort with a core dump.
// Qt's other messages are held back while the program starts, and dropped when a fatal one follows,
// because they lead up to it. The arguments are the process's own: they may name the X server and
// the platform.
void endOnFatalMessages(int argc, char** argv);

// The program has started, or fails to for a reason of its own: prints the messages held back so
// far, and the next ones at once.
void releaseHeldMessages();
