// The registry's file: whatever stands in it, a setting is one value or none.

#include "platform/BrindleClient.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <array>
#include <cstdint>

using namespace Qt::StringLiterals;

namespace {

// The file lies in memory. Qt reads one of the same size again only when it is of another date.
void fill(QFile& file, const uint8_t* data, size_t size)
{
    static qint64 date = 0; // in seconds
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        __builtin_trap();
    file.write(reinterpret_cast<const char*>(data), static_cast<qint64>(size));
    file.flush();
    file.setFileTime(QDateTime::fromSecsSinceEpoch(++date), QFileDevice::FileModificationTime);
    file.close();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const QTemporaryDir directory(QStringLiteral("/dev/shm/registry-XXXXXX"));
    static const bool isMade = QDir(directory.path()).mkpath(QStringLiteral("Orvix"))
        && qputenv("XDG_CONFIG_HOME", directory.path().toLocal8Bit())
        && qputenv("XDG_CONFIG_DIRS", directory.path().toLocal8Bit());
    static QFile file(directory.filePath(QStringLiteral("Orvix/keyboard.conf")));
    if (!isMade)
        __builtin_trap();
    fill(file, data, size);
    // One of the settings is enough: looking for the file takes longer than reading it.
    static constexpr std::array keys{"XkbModel", "XkbLayout", "XkbVariant", "XkbOptions"};
    QMap<QString, _RegNodeType> nodes;
    BrindleClient().get(
        u"root/keyboard/"_s + QLatin1StringView(keys[size % keys.size()]), nodes, 0, {});
    if (nodes.size() > 1)
        __builtin_trap();
    return 0;
}
