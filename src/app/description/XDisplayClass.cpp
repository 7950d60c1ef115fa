#include "app/description/XDisplayClass.h"

#include "x11/Queries.h"

#include <vector>

XDisplayClass::XDisplayClass(Display* xDisplay)
    : display(xDisplay)
{
}

QString XDisplayClass::atomName(Atom atom)
{
    if (atom == x11::none)
        return {};
    const auto known = atomNames.constFind(atom);
    if (known != atomNames.constEnd())
        return *known;
    return *atomNames.insert(atom, QString::fromStdString(x11::atomName(display, atom)));
}

void XDisplayClass::learnAtomNames(const QList<Atom>& atoms)
{
    std::vector<Atom> unknown;
    for (const Atom atom : atoms) {
        if (atom == x11::none || atomNames.contains(atom))
            continue;
        atomNames.insert(atom, {});
        unknown.push_back(atom);
    }
    if (unknown.empty())
        return;

    const std::vector<std::string> names = x11::atomNames(display, unknown);
    for (std::size_t i = 0; i < unknown.size(); ++i)
        atomNames[unknown[i]] = QString::fromStdString(names[i]);
}
