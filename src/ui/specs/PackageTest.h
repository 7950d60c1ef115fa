#pragma once

#include <QHash>
#include <QString>

#include <map>
#include <memory>

// Asks the package manager which packages are installed, once for each name.
class PackageTest {
public:
    PackageTest();

    // Kills the tools that still run.
    ~PackageTest();
    PackageTest(const PackageTest&) = delete;
    PackageTest& operator=(const PackageTest&) = delete;

    // Starts the tools for this package, so that isPackageInstalled need not wait as long. Does not
    // block.
    void start(const QString& package);

    // Whether "dpkg --status" reports the package as installed. False when dpkg or grep is missing
    // or too slow. Blocks for 1.1 seconds at most.
    bool isPackageInstalled(const QString& package);

private:
    struct Run;

    std::map<QString, std::unique_ptr<Run>> runs; // by package; started, and no answer taken yet
    QHash<QString, bool> answers;
};
