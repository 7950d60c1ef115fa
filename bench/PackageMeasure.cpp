#include "PackageMeasure.h"

#include "StartMeasure.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QStandardPaths>

#include <stdexcept>

namespace {

const QString tableName = QStringLiteral("kbdSpecs.tab");

QByteArray contentsOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void write(const QString& path, const QByteArray& contents)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(contents) != contents.size())
        throw std::runtime_error("cannot write " + path.toStdString());
}

// A directory with the icons of another one and its table without native names.
void fillPlainDirectory(const QString& directory, const QString& source)
{
    static const QRegularExpression nativeName(
        QStringLiteral("^([^#\\t\\n]*?) *\\[[^\\t\\n]*"), QRegularExpression::MultilineOption);
    QString table = QString::fromUtf8(contentsOf(source + QLatin1Char('/') + tableName));
    table.replace(nativeName, QStringLiteral("\\1"));
    write(directory + QLatin1Char('/') + tableName, table.toUtf8());
    QFile::link(source + QStringLiteral("/icons"), directory + QStringLiteral("/icons"));
}

// Stands before dpkg in the search path and writes a line at each run.
class PackageToolCounter {
public:
    PackageToolCounter()
    {
        const QString tool = QStandardPaths::findExecutable(QStringLiteral("dpkg"));
        const QString wrapper = directory.filePath(QStringLiteral("dpkg"));
        write(wrapper,
            QStringLiteral("#!/bin/sh\necho run >>'%1'\nexec '%2' \"$@\"\n")
                .arg(log(), tool)
                .toLocal8Bit());
        QFile::setPermissions(wrapper, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    QByteArray searchPath() const
    {
        return "PATH=" + directory.path().toLocal8Bit() + ':' + qgetenv("PATH");
    }

    int takeCount()
    {
        const qsizetype count = contentsOf(log()).count('\n');
        QFile::remove(log());
        return static_cast<int>(count);
    }

private:
    QString log() const { return directory.filePath(QStringLiteral("runs")); }

    QTemporaryDir directory;
};

int countTests(Desktop& desktop, ProgramSetup setup)
{
    PackageToolCounter counter;
    setup.variables << counter.searchPath();
    const Program program(desktop, setup); // starts once, to learn what it looks like
    return counter.takeCount();
}

} // namespace

PackageFigures measurePackageTests(Desktop& desktop, const ProgramSetup& asShipped, int runs)
{
    const QTemporaryDir plainDirectory;
    fillPlainDirectory(plainDirectory.path(), asShipped.directory);
    ProgramSetup plain = asShipped;
    plain.directory = plainDirectory.path();

    PackageFigures figures;
    figures.testsAsShipped = countTests(desktop, asShipped);
    figures.testsWithoutNames = countTests(desktop, plain);
    Program withTests(desktop, asShipped);
    Program withoutTests(desktop, plain);
    figures.start = measureStart({&withTests, &withoutTests}, runs).start;
    return figures;
}
