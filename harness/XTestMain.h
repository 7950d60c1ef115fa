#pragma once

#include "harness/FailurePictures.h"
#include "harness/PrivateServer.h"
#include "harness/XErrors.h"

#include <QApplication>
#include <QTest>

// The main function of a test that shows windows: a private X server, the application on it, and
// every X error a failure.
#define KBD_X11_TEST_MAIN(TestClass)                                       \
    int main(int argc, char** argv)                                        \
    {                                                                      \
        const PrivateServer server;                                        \
        server.useForThisProcess();                                        \
        QApplication application(argc, argv);                              \
        failOnXErrors();                                                   \
        TestClass test;                                                    \
        return runWithFailurePictures(test, server.display(), argc, argv); \
    }
