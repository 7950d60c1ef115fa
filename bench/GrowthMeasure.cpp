#include "GrowthMeasure.h"

#include "StartMeasure.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <memory>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize screenSize(1280, 800);
constexpr QLatin1StringView tableName("kbdSpecs.tab");

void write(const QString& path, const QByteArray& content)
{
    QFile::remove(path); // it may be a link
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        throw std::runtime_error("cannot write " + path.toStdString());
}

void linkEntries(const QString& from, const QString& to)
{
    QDir().mkpath(to);
    const QStringList names = QDir(from).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    for (const QString& name : names)
        QFile::link(from + u'/' + name, to + u'/' + name);
}

QByteArrayList keyboardLines(const QString& directory)
{
    QFile table(directory + u'/' + tableName);
    if (!table.open(QIODevice::ReadOnly))
        throw std::runtime_error("the table cannot be read");
    QByteArrayList lines = table.readAll().split('\n');
    lines.removeIf([](const QByteArray& line) { return line.isEmpty() || line.startsWith('#'); });
    return lines;
}

// A directory with a table of this length; the names of all keyboards differ.
class LongTable {
public:
    LongTable(const QString& builtDirectory, int length)
    {
        const QByteArrayList built = keyboardLines(builtDirectory);
        QByteArray text;
        for (int i = 0; i < length; ++i) {
            const qsizetype round = i / built.size();
            const QByteArray number = round == 0 ? QByteArray() : QByteArray::number(round) + ' ';
            text += number + built[i % built.size()] + '\n';
        }
        linkEntries(builtDirectory, directory.path());
        write(directory.filePath(tableName), text);
    }

    QString path() const { return directory.path(); }

private:
    QTemporaryDir directory;
};

} // namespace

Series measureTableGrowth(const GrowthSetup& setup, const std::vector<int>& tableLengths, int runs)
{
    Desktop desktop(screenSize);
    std::vector<std::unique_ptr<LongTable>> tables;
    std::vector<std::unique_ptr<Program>> owned;
    Programs programs;
    for (const int length : tableLengths) {
        tables.push_back(std::make_unique<LongTable>(setup.directory, length));
        owned.push_back(std::make_unique<Program>(
            desktop, ProgramSetup{{setup.program, "--standalone"}, tables.back()->path(), {}}));
        programs.push_back(owned.back().get());
    }
    return measureStart(programs, runs).start;
}

int tableLength(const QString& directory)
{
    return static_cast<int>(keyboardLines(directory).size());
}
