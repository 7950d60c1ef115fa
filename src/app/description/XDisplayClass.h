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

    // The atom's name, from the server at its first mention; empty for no atom or one that the
    // server does not know.
    QString atomName(Atom atom);

    // Learns all these names in one round trip, where atomName would need one for each.
    // Atoms that are none or known already may be among them.
    void learnAtomNames(const QList<Atom>& atoms);

private:
    Display* display;
    QMap<Atom, QString> atomNames;
};
