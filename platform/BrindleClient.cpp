#include "platform/BrindleClient.h"

#include <QSettings>
#include <QStringList>

void BrindleClient::get(
    const QString& path, QMap<QString, _RegNodeType>& nodes, int, const QString&) const
{
    static const QString root = QStringLiteral("root/");
    if (!path.startsWith(root))
        return;
    const QSettings settings(
        QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("Orvix"), "keyboard");
    const QVariant value = settings.value(path.mid(root.size()));
    if (!value.isValid())
        return;
    // An INI file separates the elements of a list by commas, as XKB does.
    nodes.insert(value.toStringList().join(QLatin1Char(',')), RegValue);
}
