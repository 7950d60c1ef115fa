#pragma once

#include <QAccessibleWidget>
#include <QCoreApplication>
#include <QList>

class KbdGeometry;
class KbdKey;

// The keyboard picture as assistive technology sees it: a group of keys, row by row from the top
// and each row from the left. Keys without symbols, which draw nothing, are left out.
class KbdAccessible : public QAccessibleWidget {
    Q_DECLARE_TR_FUNCTIONS(KbdAccessible)

public:
    explicit KbdAccessible(KbdGeometry* geometry);

    // Makes Qt create this class, and KeyAccessible, when assistive technology first asks for a
    // picture or a key. Another call changes nothing.
    static void install();

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;

    // The key that a click at this pixel of the screen hits; null where there is none.
    QAccessibleInterface* childAt(int x, int y) const override;

private:
    KbdGeometry* view() const;
    QList<KbdKey*> keys() const;
};
