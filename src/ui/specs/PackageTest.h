#pragma once

#include <QHash>
#include <QString>

#include <map>
#include <memory>

// Asks the package manager for installed packages, once for each name in this object's life.
class PackageTest {
public:
    PackageTest();

    // Ends what still runs.
    ~PackageTest();
    PackageTest(const PackageTest&) = delete;
    PackageTest& operator=(const PackageTest&) = delete;

    // Begins to ask for the package, so that the answer is there when it is wanted. Does not block.
    void start(const QString& package);

    // Whether "dpkg --status" reports the package as installed. False when dpkg or grep is missing
    // or too slow. Blocks for 1.1 seconds at most.
    bool isPackageInstalled(const QString& package);

private:
    struct Run;

    std::map<QString, std::unique_ptr<Run>> runs; // by package, begun and not asked for yet
    QHash<QString, bool> answers;
};
