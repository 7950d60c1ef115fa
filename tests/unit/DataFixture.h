#pragma once

#include "ui/specs/KbdConstants.h"

#include <QBuffer>
#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QTemporaryDir>

// The places where the program looks for the keyboard table and its icons, all of them empty, for
// one test: a directory in the build tree in place of the installed one, and a working directory
// with
// "../src/" beside it.
class DataFixture {
public:
    DataFixture()
        : previousDirectory(QDir::currentPath())
    {
        clearInstalled();
        QDir(root.path()).mkdir(QStringLiteral("work"));
        QDir::setCurrent(root.filePath(QStringLiteral("work")));
    }

    ~DataFixture()
    {
        QDir::setCurrent(previousDirectory);
        clearInstalled();
    }

    Q_DISABLE_COPY_MOVE(DataFixture)

    // Whether the code under test looks into the build tree. Before that nothing may be written.
    static bool isApart() { return KbdConstants::layoutDirectory == installed(QString()); }

    // The path of a file where the program's data are installed.
    static QString installed(const QString& name)
    {
        return QStringLiteral(KBD_LAYOUT_DIRECTORY) + name;
    }

    // A path in this test's own directory.
    QString path(const QString& name) const { return root.filePath(name); }

    // Directories are made as needed; a relative path belongs to the working directory.
    static bool write(const QString& path, const QByteArray& contents)
    {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size();
    }

    static bool writeTable(const QByteArray& contents)
    {
        return write(QStringLiteral("kbdSpecs.tab"), contents);
    }

    // A picture of one colour in the size of the flags.
    static QByteArray png(Qt::GlobalColor colour)
    {
        QImage image(320, 240, QImage::Format_RGB32);
        image.fill(colour);
        QBuffer buffer;
        image.save(&buffer, "PNG");
        return buffer.data();
    }

private:
    static void clearInstalled() { QDir(QStringLiteral(KBD_LAYOUT_DIRECTORY)).removeRecursively(); }

    QTemporaryDir root;
    QString previousDirectory;
};
