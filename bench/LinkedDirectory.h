#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

// A temporary directory with the content of another one, of which single files are replaced. The
// rest are links.
class LinkedDirectory {
public:
    // Throws std::runtime_error when there is no such directory.
    explicit LinkedDirectory(const QString& original);

    QString path() const { return directory.path(); }

    // The file of this name, which may lie in a folder of the directory. Throws std::runtime_error
    // when it cannot be written.
    void replace(const QString& name, const QByteArray& content);

private:
    QTemporaryDir directory;
};
