#pragma once

#include <QAccessibleObject>
#include <QCoreApplication>

class KbdGeometry;
class KbdKey;

// One key of the picture as assistive technology sees it: a button, or a check box where it holds
// or locks a modifier. Qt deletes it with its key.
class KeyAccessible : public QAccessibleObject, public QAccessibleActionInterface {
    Q_DECLARE_TR_FUNCTIONS(KeyAccessible)

public:
    // The key's parent is a KbdGeometry.
    explicit KeyAccessible(KbdKey* accessibleKey);

    QAccessibleInterface* parent() const override;
    int childCount() const override { return 0; }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QWindow* window() const override;

    // The name is what the key types now; the description what Shift would make of it or, where
    // that is the same, which key it is.
    QString text(QAccessible::Text kind) const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    QRect rect() const override;

    void* interface_cast(QAccessible::InterfaceType type) override;
    QStringList actionNames() const override;
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

    // Clicks the key, as the mouse does.
    void doAction(const QString& actionName) override;

private:
    KbdKey* key() const;
    KbdGeometry* view() const;
    QString description() const;
};
