#pragma once

#include <QMap>
#include <QString>

// What a node of the registry is; 0 stands for none.
enum _RegNodeType { RegNone = 0, RegValue = 1 };

// The client of the platform's configuration registry. Here the registry is the XDG
// configuration: Orvix/keyboard.conf in /etc/xdg (for all users) and in ~/.config (the user's own,
// which wins), an INI file with the group [keyboard].
class BrindleClient {
public:
    // Fills nodes with what stands at the path ("root/keyboard/XkbModel"): a value is a node whose
    // name is the value. Leaves nodes empty when there is none or the registry cannot be read.
    // entry and text choose among a node's entries in the platform's own registry. They are ignored
    // here: each node has one entry.
    void get(const QString& path, QMap<QString, _RegNodeType>& nodes, int entry,
        const QString& text) const;
};
