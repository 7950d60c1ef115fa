#include "LinkedDirectory.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <stdexcept>

namespace {

void linkEntries(const QString& from, const QString& to)
{
    const QDir original(from);
    if (!original.exists())
        throw std::runtime_error("there is no directory " + from.toStdString());
    const QStringList names = original.entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    for (const QString& name : names)
        QFile::link(original.absoluteFilePath(name), to + u'/' + name);
}

// A folder that is linked becomes one of its own, with links in it.
void unlinkFolder(const QString& path)
{
    const QFileInfo folder(path);
    if (!folder.isSymLink())
        return;
    const QString original = folder.symLinkTarget();
    QFile::remove(path);
    QDir().mkdir(path);
    linkEntries(original, path);
}

} // namespace

LinkedDirectory::LinkedDirectory(const QString& original)
{
    linkEntries(original, directory.path());
}

void LinkedDirectory::replace(const QString& name, const QByteArray& content)
{
    for (qsizetype slash = name.indexOf(u'/'); slash >= 0; slash = name.indexOf(u'/', slash + 1))
        unlinkFolder(directory.filePath(name.left(slash)));
    const QString path = directory.filePath(name);
    QFile::remove(path); // it may be a link
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        throw std::runtime_error("cannot write " + path.toStdString());
}
