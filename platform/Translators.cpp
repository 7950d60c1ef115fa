#include "platform/Translators.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>

Translators::Translators() = default;

Translators::~Translators() = default;

void Translators::installToolkitTranslation()
{
    toolkit = std::make_unique<QTranslator>();
    if (toolkit->load(QLocale::system(), QStringLiteral("qtbase"), QStringLiteral("_"),
            QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(toolkit.get());
}
