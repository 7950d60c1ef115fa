#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QTemporaryDir>

// XKB geometries as nobody would write them. The server's compiler takes most of them and refuses
// the others.
struct HostileGeometry {
    const char* word; // what is hostile about it
    QByteArray text; // the statements between its braces
};

QList<HostileGeometry> hostileGeometries();

// The machine's XKB data with these geometries besides, each of which belongs to a model of its
// own. A server finds them by -xkbdir, and setxkbmap in its working directory.
class HostileXkbData {
public:
    // Throws std::runtime_error when it cannot be written.
    HostileXkbData();

    QString path() const { return directory.path(); }

    // The model of an element of hostileGeometries(), and the geometry.
    static QString name(qsizetype index);

private:
    void link(const QString& file) const;
    void linkFiles(const QString& folder) const;
    void write(const QString& file, const QByteArray& content) const;

    QTemporaryDir directory;
};
