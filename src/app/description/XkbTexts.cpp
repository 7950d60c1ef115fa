#include "app/description/XkbTexts.h"

#include <QCoreApplication>

#include <libintl.h>

#include <array>

namespace {

constexpr std::array<const char*, 3> domains{"xkeyboard-config", "iso_3166", "iso_639"};

} // namespace

QString translateXkbName(const QString& text)
{
    // gettext answers an empty message with the catalogue's header.
    if (text.isEmpty())
        return text;

    const QByteArray message = text.toUtf8();
    QString own = QCoreApplication::translate("QObject", message.constData());
    if (own != text)
        return own;

    for (const char* domain : domains) {
        bind_textdomain_codeset(domain, "UTF-8");
        QString found = QString::fromUtf8(dgettext(domain, message.constData()));
        if (found != text)
            return found;
    }
    return text;
}
