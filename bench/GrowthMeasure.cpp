#include "GrowthMeasure.h"

#include "KeyMeasure.h"
#include "LinkedDirectory.h"
#include "ManyKeys.h"
#include "StartMeasure.h"

#include <QFile>

#include <memory>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize screenSize(1280, 800);

// So wide that the smallest key is larger than a letter of the text line, which changes with it:
// the one is not mistaken for the other.
constexpr QSize screenForManyKeys(1920, 1200);

constexpr QLatin1StringView tableName("kbdSpecs.tab");

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
        : directory(builtDirectory)
    {
        const QByteArrayList built = keyboardLines(builtDirectory);
        QByteArray text;
        for (int i = 0; i < length; ++i) {
            const qsizetype round = i / built.size();
            const QByteArray number = round == 0 ? QByteArray() : QByteArray::number(round) + ' ';
            text += number + built[i % built.size()] + '\n';
        }
        directory.replace(tableName, text);
    }

    QString path() const { return directory.path(); }

private:
    LinkedDirectory directory;
};

// The program on a server of its own, whose usual keyboard has this many keys.
struct KeyCountCase {
    KeyCountCase(const GrowthSetup& setup, int keyCount)
        : data(keyCount)
        , desktop(screenForManyKeys, {u"-xkbdir"_s, data.path()})
        , program(desktop, {{setup.program, "--standalone"}, setup.directory, {}})
    {
    }

    ManyKeys data;
    Desktop desktop;
    Program program;
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

KeyGrowth measureKeyGrowth(const GrowthSetup& setup, const std::vector<int>& keyCounts, int rounds)
{
    std::vector<std::unique_ptr<KeyCountCase>> cases;
    for (const int keyCount : keyCounts)
        cases.push_back(std::make_unique<KeyCountCase>(setup, keyCount));
    KeyGrowth growth{Series(cases.size()), Series(cases.size())};
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t i = 0; i < cases.size(); ++i) {
            Program& program = cases[i]->program;
            growth.start[i].push_back(program.startUntilPainted());
            program.stop();
            const KeyFigures keys = measureKeys(cases[i]->desktop, {&program}, 1, 1);
            growth.shift[i].push_back(keys.allLabels.front().front());
        }
    }
    return growth;
}
