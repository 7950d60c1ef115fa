#pragma once

#include "x11/X11.h"

#include <QStringList>

// Makes every X error of this process fail the running test function. To be called after the
// application object was made: Qt installs a handler that swallows all errors.
void failOnXErrors();

// While it lives, X errors are kept here instead of failing the test, ending the program or being
// warned of, whether Xlib or Qt's own connection gets them. For tests that provoke one. One
// within another forgets what the outer one has kept.
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
    QtMessageHandler previousOfQt;
};
