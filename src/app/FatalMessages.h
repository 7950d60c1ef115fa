#pragma once

// From here on a fatal message of Qt (it cannot reach an X server, it finds no platform plug-in
// that fits) becomes one line on standard error and exit status 1, where Qt itself would abort with
// a core dump. Qt's other messages are held back until releaseHeldMessages, and dropped when the
// process ends before. The arguments are the process's own: they may name the X server.
void endOnFatalMessages(int argc, char** argv);

// To be called once the program has started: prints the messages held back, and from now on each
// message as it comes.
void releaseHeldMessages();
