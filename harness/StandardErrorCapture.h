#pragma once

#include <QByteArray>
#include <QTemporaryFile>

#include <cstdio>
#include <unistd.h>

// While it lives, what this process writes to its standard error is kept here instead.
class StandardErrorCapture {
public:
    StandardErrorCapture()
    {
        std::fflush(stderr);
        original = dup(STDERR_FILENO);
        if (file.open())
            dup2(file.handle(), STDERR_FILENO);
    }

    ~StandardErrorCapture()
    {
        std::fflush(stderr);
        dup2(original, STDERR_FILENO);
        close(original);
    }

    StandardErrorCapture(const StandardErrorCapture&) = delete;
    StandardErrorCapture& operator=(const StandardErrorCapture&) = delete;

    // All that was written so far.
    QByteArray written()
    {
        std::fflush(stderr);
        file.seek(0);
        QByteArray text = file.readAll();
        file.seek(text.size());
        return text;
    }

private:
    QTemporaryFile file;
    int original = -1;
};
