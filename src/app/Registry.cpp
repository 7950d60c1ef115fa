#include "app/Registry.h"

#include "platform/BrindleClient.h"

QString readRegistryValue(const QString& path)
{
    QMap<QString, _RegNodeType> nodes;
    BrindleClient().get(path, nodes, 0, QString());
    for (auto node = nodes.cbegin(); node != nodes.cend(); ++node) {
        if (node.value() != 0)
            return node.key();
    }
    return {};
}
