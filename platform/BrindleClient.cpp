#include "platform/BrindleClient.h"

#include <QSettings>
#include <QStringList>

using namespace Qt::StringLiterals;

void BrindleClient::get(
    const QString& path, QMap<QString, _RegNodeType>& nodes, int, const QString&) const
{
    static const QString root = u"root/"_s;
    if (!path.startsWith(root))
        return;
    const QSettings settings(
        QSettings::NativeFormat, QSettings::UserScope, u"Orvix"_s, u"keyboard"_s);
    const QVariant value = settings.value(path.mid(root.size()));
    if (!value.isValid())
        return;
    // An INI file separates the elements of a list by commas, as XKB does.
    nodes.insert(value.toStringList().join(u','), RegValue);
}
