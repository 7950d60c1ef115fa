#include "ui/specs/KbdConstants.h"

#include <QFileInfo>
#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

// Tests compile this file with a directory of their own.
#ifndef KBD_LAYOUT_DIRECTORY
#define KBD_LAYOUT_DIRECTORY "/usr/share/orvix-keyboard-layout/"
#endif

const QString KbdConstants::layoutDirectory = QStringLiteral(KBD_LAYOUT_DIRECTORY);
const QString KbdConstants::specTablePath = layoutDirectory + QLatin1String("kbdSpecs.tab");
const QString KbdConstants::iconDirectory = layoutDirectory + QLatin1String("icons/");

namespace {

bool isReadableFile(const QString& path)
{
    const QFileInfo file(path);
    return file.isFile() && file.isReadable();
}

} // namespace

QString KbdConstants::iconPath(const QString& fileName)
{
    // A name in the keyboard table can hold anything; Qt warns of one with a NUL in it.
    if (fileName.isEmpty() || fileName.contains(QChar::Null))
        return {};

    const QStringList places{
        iconDirectory + fileName, "./icons/"_L1 + fileName, "../src/icons/"_L1 + fileName};
    const auto found = std::find_if(places.cbegin(), places.cend(), isReadableFile);
    return found == places.cend() ? QString() : *found;
}
