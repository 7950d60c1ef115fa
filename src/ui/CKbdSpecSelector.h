#pragma once

#include "ui/KbdSpec.h"

#include <QComboBox>
#include <QVector>

class PackageTest;

// The choice of keyboards that the keyboard table lists, sorted by their display names, and a
// "<Custom>" entry for a keyboard that matches none of them.
class CKbdSpecSelector : public QComboBox {
    Q_OBJECT

public:
    enum SpecTableError {
        TableNotFound = 1,
        TableNotOpened = 2,
    };

    // Reads the table, so may block for a package test (1.1 seconds for each font package that it
    // asks for). Throws a SpecTableError by value. The "<Custom>" record is there in any case, its
    // combo item only with withCustom.
    // `packages` is asked where it is given; it is borrowed during the construction only.
    CKbdSpecSelector(bool withCustom, QWidget* parent, PackageTest* packages = nullptr);
    ~CKbdSpecSelector() override;

    // Begins the package tests that reading the table will ask for, so that they run while
    // something else is done. None where the table does not ask.
    static void startPackageTests(PackageTest& packages);

    // Whether the entry is "<Custom>"; false for an index that no entry has.
    bool isCustom(int index) const;

    // The icon file name of the current entry; empty when there is none.
    QString currentIconFile() const;

    // The primary keyboard of the current entry. Without one, and for "<Custom>", these are
    // "pc104", "us" and "wincompat".
    QString currentModel() const;
    QString currentLayout() const;
    QString currentVariant() const;

signals:
    // The records belong to the selector and live as long as it does.
    void currentChanged(kbdSpec_t* values);
    void activated(kbdSpec_t* values);
    void primaryModelChanged(const QString& model);
    void primaryLayoutChanged(const QString& layout);
    void primaryVariantChanged(const QString& variant);
    void secondaryModelChanged(const QString& model);
    void secondaryLayoutChanged(const QString& layout);
    void secondaryVariantChanged(const QString& variant);

public slots:
    // Passes over every entry of that name and ends on the last entry, whatever matched.
    void setCurrent(const QString& specName);

    // Selects the first entry with a keyboard of exactly this description, else the last entry.
    void setCurrent(const QString& model, const QString& layout, const QString& variantList);

    void selectionChanged(int newSelection);
    void userSelectionChanged(int newSelection);

private:
    void readSpecTable(bool withCustom, PackageTest& packages);
    void readEntries(const QString& path, PackageTest& packages);
    void sortEntries();
    void addEntryItems();
    void addCustomEntry();
    QString makeDisplayName(const QString& name, PackageTest& packages) const;
    const kbdSpec_t* currentEntry() const;

    QVector<kbdSpec_t*> specs; // owned; in combo order, "<Custom>" last
};
