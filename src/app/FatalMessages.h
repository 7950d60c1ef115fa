#pragma once

// From here on a fatal message of the toolkit (no X server to be reached, no platform plug-in that
// fits) is one line on standard error and exit status 1, where the toolkit itself would abort with
// a core dump. What the toolkit says on the way to a failure is left out. The arguments are the
// process's own: they may name the X server.
void endOnFatalMessages(int argc, char** argv);

// The program has started: what the toolkit has said so far was no road to a failure, and is
// printed.
void releaseHeldMessages();
