#pragma once

#include <QByteArray>
#include <QString>

#include <cstdio>

class QObject;

// While it lives, every test function that fails leaves a picture of the screen as it was at that
// moment, and says where. It listens to what QtTest prints on the standard output, which is before
// the function's windows and programs go; a test that is told to write into a file leaves none.
class FailurePictures {
public:
    // `watchedDisplay` is the server to look at (empty: the one that DISPLAY names at that moment),
    // the directory `target` is made when needed. What is printed goes on to `goesTo`, which is
    // borrowed.
    FailurePictures(QByteArray watchedDisplay, QString target, std::FILE* goesTo);
    ~FailurePictures();
    FailurePictures(const FailurePictures&) = delete;
    FailurePictures& operator=(const FailurePictures&) = delete;

private:
    static ssize_t print(void* self, const char* text, size_t size);
    void leavePicture() const;

    QByteArray display;
    QString directory;
    std::FILE* output;
    std::FILE* previous; // the standard output until then
    std::FILE* watched;
};

// Runs the test as QTest::qExec() does, with pictures of `display` in "failures/" of the build
// tree.
int runWithFailurePictures(QObject& test, const QByteArray& display, int argc, char** argv);
