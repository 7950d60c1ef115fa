#pragma once

#include <QBoxLayout>
#include <QMap>
#include <QPointer>
#include <QString>
#include <QStringList>

#include <memory>

class QComboBox;
class QLabel;

// The choice of the XKB group that the picture shows: a caption and a combo box in a row, one item
// for each group, with the flag of the group's layout where the keyboard table knows one.
class GroupCombo : public QBoxLayout {
    Q_OBJECT

public:
    // Becomes the layout of parent unless that has one already; then it is to be added to another
    // layout. Icon-only mode hides the caption and shows icons and numbers instead of names.
    // Without a readable spec table there are no flags.
    GroupCombo(const QStringList& items, bool onlyIcons, QWidget* parent);
    ~GroupCombo() override;
    Q_DISABLE_COPY(GroupCombo)

    // Replaces all items. The current index stays where it is if there is still such an item.
    void setItems(const QStringList& items);

    // Selects the item, as the user would; nothing for an index that there is none for.
    void setCurrentIndex(int index);

    // Puts the flag of layouts[i] on item i, adding items as needed. The ":2" that a keymap's
    // symbols name puts after a second group's layout does not count.
    void setGroupLayouts(const QStringList& layouts);

    // What activatedData and currentDataChanged report for each item.
    void setData(const QStringList& data);

    // For caption and combo box together; the caption stays hidden in icon-only mode.
    void show() { setVisible(true); }
    void hide() { setVisible(false); }
    void setVisible(bool visible);

signals:
    // The user chose the item, were it the same, or another item is the current one (-1: none), by
    // whomever. With its data where setData gave any for it.
    void activated(int index);
    void activatedData(const QString& data);
    void currentIndexChanged(int index);
    void currentDataChanged(const QString& data);

private slots:
    void internalActivated(int index);
    void internalCurrentIndexChanged(int index);

private:
    void readFlagMap();
    QString flagPath(const QString& layout) const;
    void ensureItem(int index);

    bool iconOnly;
    // The widget that the layout is installed on owns these and may delete them first.
    QPointer<QLabel> label;
    QPointer<QComboBox> combo;
    std::unique_ptr<QStringList> dataList; // null until setData
    QMap<QString, QString> flagMap; // layout name to icon file name
};
