#pragma once

#include <QComboBox>

// What the combo boxes of the control row have in common: no keyboard focus, room for 4 : 3 flags,
// and bounds for the width. Their texts come from files and from the server, and a long one must
// not stretch the window off the screen; what is cut there ends in an ellipsis.
class ControlCombo : public QComboBox {
    Q_OBJECT

public:
    explicit ControlCombo(QWidget* parent = nullptr);

    // Wide enough for the longest text of the list, and follows the list when it changes, unless
    // the size adjust policy is another one than AdjustToContents.
    QSize sizeHint() const override;

    // A sixth of the screen at the most, and less than that for a shorter text.
    QSize minimumSizeHint() const override;

protected:
    // In the combo's font, with its icon and its frame; pixels.
    int widthOf(const QString& text) const;
    int leastWidth() const;

    void paintEvent(QPaintEvent* event) override;
};
