#pragma once

#include <QHash>
#include <QString>

// Asks the package manager for installed packages, once for each name in this object's life.
class PackageTest {
public:
    // Whether "dpkg --status" reports the package as installed. False when dpkg or grep is missing
    // or too slow. Blocks for 1.1 seconds at most.
    bool isPackageInstalled(const QString& package);

private:
    QHash<QString, bool> answers;
};
