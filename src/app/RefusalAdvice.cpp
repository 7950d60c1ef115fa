#include "app/RefusalAdvice.h"

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr char geometryFile[] = "/usr/share/X11/xkb/geometry/pc-arvane";

// As one word of a POSIX shell.
QString quoted(QString text)
{
    return u'\'' + text.replace(u'\'', "'\\''"_L1) + u'\'';
}

QString keyboardOptions(const KeyboardSettings& asked)
{
    QString options;
    const auto add = [&options](QLatin1StringView option, const QString& value) {
        if (!value.isEmpty())
            options += option + quoted(value);
    };
    add(" -model "_L1, asked.model);
    add(" -layout "_L1, asked.layout);
    add(" -variant "_L1, asked.variant);
    add(" -option "_L1, asked.options);
    return options;
}

} // namespace

// The second command does what the program does with the geometry that setxkbmap prints.
QString adviceAfterRefusal(const KeyboardSettings& asked, bool hasGeometryFile)
{
    const QString place = hasGeometryFile
        ? QString()
        : u"The geometry file pc-arvane must be in the X server's directory "
          "/usr/share/X11/xkb/geometry. "_s;
    return place + "For the X server's reason, run: setxkbmap"_L1 + keyboardOptions(asked)
        + " -print | sed 's/\"pc(/\"pc-arvane(/' | "
          "xkbcomp -w 0 -I/usr/share/X11/xkb -xkb - - >/dev/null"_L1;
}

bool hasGeometryFile()
{
    return access(geometryFile, R_OK) == 0;
}
