#pragma once

#include "ui/CaptionedCombo.h"

// The choice of what key caps show: the active character only (index 0) or all characters (1).
class KeycapCombo : public CaptionedCombo {
    Q_OBJECT

public:
    // Icon-only mode hides the caption and the items' texts.
    KeycapCombo(bool onlyIcons, QWidget* parent);

signals:
    // activated: the user picked the item, even the current one. currentIndexChanged: the selection
    // changed.
    void activated(int index);
    void currentIndexChanged(int index);

private slots:
    void internalActivated(int index);
    void internalCurrentIndexChanged(int index);
};
