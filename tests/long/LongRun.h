#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QString>
#include <QStringList>

// One part of the long check, as its command line asks for it:
//
//   --seconds N   how long to go on; 0, or not given: until everything is done
//   --seed N      what chance begins with; not given: the time
//   --part I/N    of the cases every N-th, from the I-th on (counted from 1)
//
// Prints what is broken as it is found, and one line of figures at the end.
class LongRun {
public:
    // Ends the program with status 2 and a line of usage for arguments that it does not know.
    LongRun(QByteArray partName, int argc, char** argv);

    quint32 seed() const { return chosenSeed; }
    bool hasTimeLimit() const { return milliseconds > 0; }
    qint64 seconds() const { return milliseconds / 1000; } // of the time limit

    // False once the time is over.
    bool goesOn() const;

    // Whether the case of this number (from 0) is one of this run's.
    bool isOurs(qsizetype number) const { return number % parts == part; }

    // Something is not as it should be: prints it, the first few of them in full.
    void broken(const QString& what);

    // Prints "name: figures, n broken (seed, seconds)" and returns the program's exit status: 1
    // when anything is broken.
    int finish(const QStringList& figures) const;

private:
    bool take(const QByteArray& option, const QByteArray& value);

    QByteArray name;
    QElapsedTimer clock;
    qint64 milliseconds = 0;
    quint32 chosenSeed;
    qsizetype part = 0;
    qsizetype parts = 1;
    qsizetype brokenCount = 0;
};
