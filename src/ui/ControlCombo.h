#pragma once

#include <QComboBox>

// What the combo boxes of the control row have in common: no keyboard focus, room for 4 : 3 flags,
// and bounds for the width. Their texts come from files and from the server: a long one must not
// stretch the window off the screen. A text that does not fit ends in an ellipsis.
class ControlCombo : public QComboBox {
    Q_OBJECT

public:
    explicit ControlCombo(QWidget* parent = nullptr);

    // Wide enough for the longest text of the list, and follows the list when it changes.
    QSize sizeHint() const override;

    // At most a sixth of the screen's width; less when the texts are shorter.
    QSize minimumSizeHint() const override;

    void showPopup() override;

protected:
    // The size of a control that has room for an icon and a text this wide, and the width below
    // which it is of no use; in pixels.
    QSize sizeFor(int textWidth) const;
    int leastWidth() const;

    void initStyleOption(QStyleOptionComboBox* option) const override;
    void paintEvent(QPaintEvent* event) override;
};
