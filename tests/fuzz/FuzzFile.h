#pragma once

#include <QFile>
#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>

// A file whose content is the input of one execution.
class FuzzFile {
public:
    // The directory of the file has to be there.
    explicit FuzzFile(const QString& path)
        : file(path)
    {
    }

    void fill(const uint8_t* data, size_t size)
    {
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
            __builtin_trap();
        file.write(reinterpret_cast<const char*>(data), static_cast<qint64>(size));
        file.close();
    }

    QString path() const { return file.fileName(); }

private:
    QFile file;
};
