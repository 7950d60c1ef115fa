#include "app/description/XDisplayClass.h"

#include "x11/X11.h"

#include <vector>

namespace {

QString takeName(char* name)
{
    const x11::Owned<char> owned(name);
    return QString::fromUtf8(owned.get());
}

} // namespace

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
    return *atomNames.insert(atom, takeName(XGetAtomName(display, atom)));
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

    std::vector<char*> names(unknown.size(), nullptr);
    XGetAtomNames(display, unknown.data(), static_cast<int>(unknown.size()), names.data());
    for (std::size_t i = 0; i < unknown.size(); ++i)
        atomNames[unknown[i]] = takeName(names[i]);
}
