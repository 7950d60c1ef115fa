#pragma once

#include "ui/CaptionedCombo.h"

#include <QMap>
#include <QString>
#include <QStringList>

#include <memory>

struct SpecTable;

// The choice of the XKB group that the picture shows: one item for each group, with the flag of the
// group's layout where the keyboard table knows one.
class GroupCombo : public CaptionedCombo {
    Q_OBJECT

public:
    // items are the groups' names. Icon-only mode hides the caption and shows icons and numbers
    // instead of the names. The flags are those of the table, which is read during the construction
    // only; one in the source tree, or one that cannot be read, gives none.
    GroupCombo(const QStringList& items, bool onlyIcons, QWidget* parent, const SpecTable& table);

    // The same with a table that it reads itself.
    GroupCombo(const QStringList& items, bool onlyIcons, QWidget* parent);

    // Replaces all items. The current index stays where it is if there is still such an item; in
    // any case it is reported once, as a change: it is another group by now.
    void setItems(const QStringList& items);

    // Selects the item and reports the change; ignored when there is no item of this index.
    void setCurrentIndex(int index);

    // Puts the flag of layouts[i] on item i, adding items as needed. A keymap's symbols name puts
    // ":2" after the layout of a second group: this is ignored.
    void setGroupLayouts(const QStringList& layouts);

    // What activatedData and currentDataChanged report for each item.
    void setData(const QStringList& data);

signals:
    // activated: the user picked the item, even the current one. currentIndexChanged: the selection
    // changed (-1: to none). The other two follow them, for an item that setData gave data for.
    void activated(int index);
    void activatedData(const QString& data);
    void currentIndexChanged(int index);
    void currentDataChanged(const QString& data);

private slots:
    void internalActivated(int index);
    void internalCurrentIndexChanged(int index);

private:
    void refill(const QStringList& items);
    void readFlagMap(const SpecTable& table);
    QString flagPath(const QString& layout) const;
    void ensureItem(int index);

    std::unique_ptr<QStringList> dataList; // null until setData
    QMap<QString, QString> flagMap; // layout name to icon file name
};
