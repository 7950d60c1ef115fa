#include "ui/CaptionedCombo.h"

#include "ui/ControlCombo.h"

#include <QLabel>

CaptionedCombo::CaptionedCombo(const QString& caption, bool onlyIcons, QWidget* parent)
    // Qt complains of a second layout for one widget.
    : QBoxLayout(LeftToRight, parent && !parent->layout() ? parent : nullptr)
    , iconOnly(onlyIcons)
    , label(new QLabel(caption))
    , combo(new ControlCombo)
{
    label->setFocusPolicy(Qt::NoFocus);
    addWidget(label);
    if (iconOnly)
        label->hide();

    label->setBuddy(combo); // a screen reader calls the combo box by its caption
    addWidget(combo);
}

CaptionedCombo::~CaptionedCombo()
{
    delete label;
    delete combo;
}

int CaptionedCombo::currentIndex() const
{
    return combo->currentIndex();
}

void CaptionedCombo::setVisible(bool visible)
{
    label->setVisible(visible && !iconOnly);
    combo->setVisible(visible);
}
