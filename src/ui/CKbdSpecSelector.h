#pragma once

#include "app/description/KeyboardSettings.h"
#include "ui/ControlCombo.h"
#include "ui/specs/KbdSpec.h"

class SpecListModel;
struct SpecTable;

// A combo box with the keyboards of the table, sorted by their display names, and a "<Custom>"
// entry for a keyboard that the table does not have.
class CKbdSpecSelector : public ControlCombo {
    Q_OBJECT

public:
    enum SpecTableError {
        TableNotFound = 1,
        TableNotOpened = 2,
    };

    // Shows the table's entries. Their order, and the few native names that only the font of a
    // certain package can draw, come when somebody can see them: before the list is opened or the
    // user steps to another entry, and after such a name is painted. Until then the entries are in
    // the table's order; currentIndex() follows its entry.
    // The "<Custom>" record is there in any case, its combo item only with withCustom. table is
    // borrowed during the construction only; its text is shared.
    // Throws a SpecTableError by value (that errors are integers is given).
    CKbdSpecSelector(bool withCustom, QWidget* parent, const SpecTable& table);

    // The same with a table that it reads itself, in order and with all native names.
    CKbdSpecSelector(bool withCustom, QWidget* parent);

    // Selects the first entry, in the order of the names, with a keyboard of exactly this model,
    // layout and variant, else the last entry.
    void select(const KeyboardSettings& keyboard);

    // Whether the entry is "<Custom>"; false for an index that no entry has.
    bool isCustom(int index) const;

    // The icon file name of the current entry; empty when there is none.
    QString currentIconFile() const;

    // The primary keyboard of the current entry. Without one, and for "<Custom>", these are
    // "pc104", "us" and "wincompat".
    QString currentModel() const;
    QString currentLayout() const;
    QString currentVariant() const;

    // Wide enough for the current name and for names of usual length. In a narrow window this combo
    // shrinks before the others.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    // Completes the list first, which may block for package tests: 1.1 seconds for each font
    // package that the entries need, the first time only.
    void showPopup() override;

signals:
    // currentChanged: the selection changed. activated: the user picked an entry, even the current
    // one. The selector owns the records; they live as long as it does.
    void currentChanged(kbdSpec_t* values);
    void activated(kbdSpec_t* values);

    // The keyboards of the entry that the user picked, unless it is "<Custom>". An empty variant is
    // not reported, nor a secondary keyboard that the entry does not have.
    void primaryModelChanged(const QString& model);
    void primaryLayoutChanged(const QString& layout);
    void primaryVariantChanged(const QString& variant);
    void secondaryModelChanged(const QString& model);
    void secondaryLayoutChanged(const QString& layout);
    void secondaryVariantChanged(const QString& variant);

public slots:
    // Selects each entry of that name in turn, and then the last entry in any case.
    void setCurrent(const QString& specName);

    // select() with the settings side by side.
    void setCurrent(const QString& model, const QString& layout, const QString& variantList);

    // The selection changed; the user picked this entry. Ignored when no entry has this index.
    void selectionChanged(int newSelection);
    void userSelectionChanged(int newSelection);

protected:
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void build(bool withCustom, const SpecTable& table);
    void completeList();
    const kbdSpec_t* currentEntry() const;

    SpecListModel* specs = nullptr; // a child of this
};
