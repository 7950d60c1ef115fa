#include "ui/specs/PackageTest.h"

#include "app/description/ToolRun.h"

#include <QProcess>
#include <QProcessEnvironment>

using namespace Qt::StringLiterals;

namespace {

constexpr int statusTimeout = 1000; // milliseconds for dpkg
constexpr int searchTimeout = 100; // milliseconds that grep may take longer

void describeStatusRun(QProcess& dpkg, const QString& package)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"LANG"_s, u"C"_s);
    dpkg.setProcessEnvironment(environment);
    dpkg.setProgram(u"dpkg"_s);
    dpkg.setArguments({u"--status"_s, package});
    dpkg.setStandardErrorFile(QProcess::nullDevice());
}

void describeSearchRun(QProcess& grep)
{
    grep.setProgram(u"grep"_s);
    grep.setArguments({u"-qi"_s, u"^Status:.* installed"_s});
    grep.setStandardOutputFile(QProcess::nullDevice());
    grep.setStandardErrorFile(QProcess::nullDevice());
}

} // namespace

// dpkg, with its output piped into grep.
struct PackageTest::Run {
    explicit Run(const QString& package)
    {
        describeStatusRun(dpkg, package);
        describeSearchRun(grep);
        dpkg.setStandardOutputProcess(&grep);
        dpkg.start();
        grep.start();
    }

    ~Run()
    {
        endNow(dpkg);
        endNow(grep);
    }
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

    // dpkg's exit status is of no use: grep may stop reading before dpkg has written all.
    bool finds()
    {
        return hasEnded(dpkg, statusTimeout) && hasEnded(grep, searchTimeout)
            && grep.exitStatus() == QProcess::NormalExit && grep.exitCode() == 0;
    }

    QProcess dpkg;
    QProcess grep;
};

PackageTest::PackageTest() = default;

PackageTest::~PackageTest() = default;

void PackageTest::start(const QString& package)
{
    if (!answers.contains(package) && !runs.contains(package))
        runs.emplace(package, std::make_unique<Run>(package));
}

bool PackageTest::isPackageInstalled(const QString& package)
{
    const auto known = answers.constFind(package);
    if (known != answers.cend())
        return *known;
    start(package);
    const bool installed = runs.at(package)->finds();
    runs.erase(package);
    return *answers.insert(package, installed);
}
