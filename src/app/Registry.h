#pragma once

#include <QString>

// One value of the platform's registry; empty when there is none or the registry cannot be read.
QString readRegistryValue(const QString& path);
