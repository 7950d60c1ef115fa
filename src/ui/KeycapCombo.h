#pragma once

#include <QBoxLayout>
#include <QPointer>

class QComboBox;
class QLabel;

// The choice of what key caps show, the active character only (index 0) or all characters (1):
// a caption and a combo box in a row.
class KeycapCombo : public QBoxLayout {
    Q_OBJECT

public:
    // Becomes the layout of parent unless that has one already; then it is to be added to another
    // layout. Icon-only mode hides the caption and the items' texts.
    KeycapCombo(bool onlyIcons, QWidget* parent);
    ~KeycapCombo() override;
    Q_DISABLE_COPY(KeycapCombo)

    // What is chosen: 0 or 1, as above.
    int currentIndex() const;

    // For caption and combo box together; the caption stays hidden in icon-only mode.
    void show() { setVisible(true); }
    void hide() { setVisible(false); }
    void setVisible(bool visible);

signals:
    // The user chose the item, were it the same, or another item is the current one, by whomever.
    void activated(int index);
    void currentIndexChanged(int index);

private slots:
    void internalActivated(int index);
    void internalCurrentIndexChanged(int index);

private:
    bool iconOnly;
    // The widget that the layout is installed on owns these and may delete them first.
    QPointer<QLabel> label;
    QPointer<QComboBox> combo;
};
