#include "ui/PackageTest.h"

#include <QProcess>
#include <QProcessEnvironment>

namespace {

constexpr int statusTimeout = 1000; // milliseconds for dpkg
constexpr int searchTimeout = 100; // milliseconds that grep may take longer

// A process object complains when it goes before its process.
void endNow(QProcess& process)
{
    if (process.state() == QProcess::NotRunning)
        return;
    process.kill();
    process.waitForFinished();
}

void describeStatusRun(QProcess& dpkg, const QString& package)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LANG"), QStringLiteral("C"));
    dpkg.setProcessEnvironment(environment);
    dpkg.setProgram(QStringLiteral("dpkg"));
    dpkg.setArguments({QStringLiteral("--status"), package});
    dpkg.setStandardErrorFile(QProcess::nullDevice());
}

void describeSearchRun(QProcess& grep)
{
    grep.setProgram(QStringLiteral("grep"));
    grep.setArguments({QStringLiteral("-qi"), QStringLiteral("^Status:.* installed")});
    grep.setStandardOutputFile(QProcess::nullDevice());
    grep.setStandardErrorFile(QProcess::nullDevice());
}

bool askPackageManager(const QString& package)
{
    QProcess dpkg;
    QProcess grep;
    describeStatusRun(dpkg, package);
    describeSearchRun(grep);
    dpkg.setStandardOutputProcess(&grep);
    dpkg.start();
    grep.start();

    // How dpkg ends says nothing: grep stops reading at the line that it looks for.
    const bool ended = dpkg.waitForFinished(statusTimeout) && grep.waitForFinished(searchTimeout);
    endNow(dpkg);
    endNow(grep);
    return ended && grep.exitStatus() == QProcess::NormalExit && grep.exitCode() == 0;
}

} // namespace

bool PackageTest::isPackageInstalled(const QString& package)
{
    const auto known = answers.constFind(package);
    if (known != answers.cend())
        return *known;
    return *answers.insert(package, askPackageManager(package));
}
