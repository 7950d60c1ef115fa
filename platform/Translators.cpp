#include "platform/Translators.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>

Translators::Translators() = default;

Translators::~Translators() = default;

void Translators::installQtTranslation()
{
    qtTexts = std::make_unique<QTranslator>();
    if (qtTexts->load(QLocale::system(), QStringLiteral("qtbase"), QStringLiteral("_"),
            QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(qtTexts.get());
}
