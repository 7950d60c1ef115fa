#pragma once

#include "Samples.h"

#include <QByteArray>
#include <QString>

// How what the program does grows with its data. Everything runs on private servers.

struct GrowthSetup {
    QByteArray program;
    QString directory; // of the built table and the icons
};

// Starts, in milliseconds, with tables of as many keyboards as `tableLengths` says, in that order:
// those of the built table, over and over.
Series measureTableGrowth(const GrowthSetup& setup, const std::vector<int>& tableLengths, int runs);

// How many keyboards the built table has.
int tableLength(const QString& directory);

struct KeyGrowth {
    Series start; // from fork to the painted window, milliseconds
    Series shift; // from the press of Shift to the last changed label, milliseconds
};

// In turns with as many keys as `keyCounts` says, in that order; `rounds` of each.
KeyGrowth measureKeyGrowth(const GrowthSetup& setup, const std::vector<int>& keyCounts, int rounds);
