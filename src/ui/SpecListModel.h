#pragma once

#include "app/description/KeyboardSettings.h"
#include "ui/specs/KbdSpec.h"
#include "ui/specs/SpecTable.h"

#include <QAbstractListModel>
#include <QHash>
#include <QIcon>

#include <memory>
#include <unordered_map>
#include <vector>

// The keyboards of the table as the items of a combo box, and behind them a "<Custom>" entry for a
// keyboard that the table does not have. Nothing is made of a line before it is asked for: opening
// the window must not take longer for a long table. Until complete() is called the items stand in
// file order, and the native names that need the font of a certain package are left out.
class SpecListModel : public QAbstractListModel {
    Q_OBJECT

public:
    // customText is what the "<Custom>" entry shows. withCustom: there is an item for it, which
    // removeRows can take away; its record is there in any case.
    SpecListModel(SpecRows rows, const QString& customText, bool withCustom, QObject* parent);
    ~SpecListModel() override;
    Q_DISABLE_COPY_MOVE(SpecListModel)

    int rowCount(const QModelIndex& parent = {}) const override;

    // The text and the icon.
    QVariant data(const QModelIndex& index, int role) const override;

    // Only the item of "<Custom>" can be removed.
    bool removeRows(int first, int count, const QModelIndex& parent = {}) override;

    // The index of the "<Custom>" entry: the number of the others.
    int customIndex() const { return static_cast<int>(order.size()); }

    // The record of an entry, owned by the model and kept as long as it lives; null when no entry
    // has this index.
    kbdSpec_t* specAt(int index);

    // The first entry, by its text, with a keyboard of this model, layout and variant; else that of
    // "<Custom>".
    int find(const KeyboardSettings& settings) const;

    // Whether the text of this entry may change when complete() is called.
    bool waitsForFonts(int index) const;

    // Asks which fonts are installed for native names, once, which may block for 1.1 seconds for
    // each package, and sorts the entries by their texts. Persistent indices stay with their
    // entries.
    void complete();

private:
    struct Utf8Settings;

    void askForFonts();
    void sortByText();
    qsizetype rowAt(int index) const;
    QString textAt(int index) const;
    QIcon iconAt(int index) const;
    bool describes(int index, const Utf8Settings& keyboard) const;

    SpecRows rows;
    std::vector<qsizetype> order; // of the items: numbers of rows
    std::unordered_map<qsizetype, std::unique_ptr<kbdSpec_t>> specs; // by row; those asked for
    kbdSpec_t custom;
    bool hasCustomItem;
    bool isComplete = false;
    QHash<QByteArray, bool> hasFont; // by country; those asked for
    mutable QHash<QString, QIcon> icons; // by file name: many entries share a flag
};
