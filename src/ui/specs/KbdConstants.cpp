#include "ui/specs/KbdConstants.h"

#include "paths/Paths.h"

#include <QFileInfo>
#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

const QString KbdConstants::layoutDirectory = QString::fromLatin1(paths::layoutDirectory);
const QString KbdConstants::specTablePath = layoutDirectory + "kbdSpecs.tab"_L1;
const QString KbdConstants::iconDirectory = layoutDirectory + "icons/"_L1;

namespace {

bool isReadableFile(const QString& path)
{
    const QFileInfo file(path);
    return file.isFile() && file.isReadable();
}

} // namespace

QString KbdConstants::iconPath(const QString& fileName)
{
    // A name of the keyboard table can hold anything; Qt prints a warning for one with a NUL in it.
    if (fileName.isEmpty() || fileName.contains(QChar::Null))
        return {};

    const QStringList places{
        iconDirectory + fileName, "./icons/"_L1 + fileName, "../src/icons/"_L1 + fileName};
    const auto found = std::find_if(places.cbegin(), places.cend(), isReadableFile);
    return found == places.cend() ? QString() : *found;
}
