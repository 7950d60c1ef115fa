// The registry's file: whatever stands in it, a setting is one value or none.

#include "platform/BrindleClient.h"
#include "tests/fuzz/FuzzFile.h"

#include <QDir>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const QTemporaryDir directory;
    static const bool isMade = QDir(directory.path()).mkpath(QStringLiteral("Orvix"))
        && qputenv("XDG_CONFIG_HOME", directory.path().toLocal8Bit())
        && qputenv("XDG_CONFIG_DIRS", directory.path().toLocal8Bit());
    static FuzzFile file(directory.filePath(QStringLiteral("Orvix/keyboard.conf")));
    if (!isMade)
        __builtin_trap();
    file.fill(data, size);
    for (const char* key : {"XkbModel", "XkbLayout", "XkbVariant", "XkbOptions"}) {
        QMap<QString, _RegNodeType> nodes;
        BrindleClient().get(
            QStringLiteral("root/keyboard/") + QLatin1StringView(key), nodes, 0, {});
        if (nodes.size() > 1)
            __builtin_trap();
    }
    return 0;
}
