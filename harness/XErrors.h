#pragma once

#include "x11/X11.h"

#include <QStringList>

// Makes every X error of this process fail the running test function. To be called after the
// application object was made: Qt installs a handler that swallows all errors.
void failOnXErrors();

// While it lives, X errors are kept here instead of failing the test or ending the program. For
// tests that provoke one; do not nest.
class ExpectedXErrors {
public:
    ExpectedXErrors();
    ~ExpectedXErrors();
    ExpectedXErrors(const ExpectedXErrors&) = delete;
    ExpectedXErrors& operator=(const ExpectedXErrors&) = delete;

    // One text per error that has arrived so far; a round trip (XSync) brings the last ones.
    static QStringList seen();

private:
    XErrorHandler previous;
};
