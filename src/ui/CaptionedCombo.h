#pragma once

#include <QBoxLayout>
#include <QPointer>

class QComboBox;
class QLabel;

// A caption and a combo box in a row. A control that derives from this passes the combo box's
// signals on as its own: this class has no meta-object, so that the derived classes' meta-objects
// contain only the given members.
class CaptionedCombo : public QBoxLayout {
public:
    ~CaptionedCombo() override;
    Q_DISABLE_COPY(CaptionedCombo)

    // Of the item that is selected; -1 when none is.
    int currentIndex() const;

    // For caption and combo box together; the caption stays hidden in icon-only mode.
    void show() { setVisible(true); }
    void hide() { setVisible(false); }
    void setVisible(bool visible);

protected:
    // Becomes the layout of parent unless parent has one already; then the caller has to add it to
    // another layout. Icon-only mode hides the caption.
    CaptionedCombo(const QString& caption, bool onlyIcons, QWidget* parent);

    bool isIconOnly() const { return iconOnly; }
    QComboBox* comboBox() const { return combo; }

private:
    bool iconOnly;
    // The widget that the layout is installed on owns these and may delete them first.
    QPointer<QLabel> label;
    QPointer<QComboBox> combo;
};
