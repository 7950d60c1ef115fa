#pragma once

#include "x11/Types.h"

#include <QList>
#include <QMap>
#include <QObject>

// The application's X display, and the names of the atoms asked for on it.
class XDisplayClass : public QObject {
    Q_OBJECT

public:
    // The display is borrowed from Qt and outlives this object.
    explicit XDisplayClass(Display* display);

    Display* xDisplay() const { return display; }

    // The atom's name; the server is asked for it once. Empty for x11::none and for an atom that
    // the server does not know.
    QString atomName(Atom atom);

    // Asks the server for all these names in one round trip, where atomName would need one for
    // each. Skips x11::none and atoms whose names are known already.
    void learnAtomNames(const QList<Atom>& atoms);

private:
    Display* display;
    QMap<Atom, QString> atomNames;
};
