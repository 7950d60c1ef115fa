#include "platform/Translators.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>

using namespace Qt::StringLiterals;

Translators::Translators() = default;

Translators::~Translators() = default;

void Translators::installQtTranslation()
{
    qtTexts = std::make_unique<QTranslator>();
    if (qtTexts->load(QLocale::system(), u"qtbase"_s, u"_"_s,
            QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(qtTexts.get());
}
