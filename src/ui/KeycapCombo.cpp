#include "ui/KeycapCombo.h"

#include "ui/ControlCombo.h"
#include "ui/specs/FileIconEngine.h"
#include "ui/specs/KbdConstants.h"

#include <QIcon>
#include <QLabel>

namespace {

QIcon iconOf(const QString& fileName)
{
    return FileIconEngine::iconOf(KbdConstants::iconPath(fileName));
}

} // namespace

KeycapCombo::KeycapCombo(bool onlyIcons, QWidget* parent)
    // The toolkit complains of a second layout for one widget.
    : QBoxLayout(LeftToRight, parent && !parent->layout() ? parent : nullptr)
    , iconOnly(onlyIcons)
    , label(new QLabel(tr("Keycap Display: ")))
    , combo(new ControlCombo)
{
    label->setFocusPolicy(Qt::NoFocus);
    addWidget(label);
    if (iconOnly)
        label->hide();

    combo->addItem(iconOf(QStringLiteral("/singlekey.png")),
        iconOnly ? QString() : tr("Active Character Only"));
    combo->addItem(
        iconOf(QStringLiteral("/fullkey.png")), iconOnly ? QString() : tr("Multiple Characters"));
    label->setBuddy(combo); // a screen reader calls it by its caption
    addWidget(combo);
    combo->setToolTip(tr("Keycap display mode"));
    connect(combo, SIGNAL(activated(int)), this, SLOT(internalActivated(int)));
    connect(combo, SIGNAL(currentIndexChanged(int)), this, SLOT(internalCurrentIndexChanged(int)));
}

KeycapCombo::~KeycapCombo()
{
    delete label;
    delete combo;
}

int KeycapCombo::currentIndex() const
{
    return combo->currentIndex();
}

void KeycapCombo::setVisible(bool visible)
{
    label->setVisible(visible && !iconOnly);
    combo->setVisible(visible);
}

void KeycapCombo::internalActivated(int index)
{
    emit activated(index);
}

void KeycapCombo::internalCurrentIndexChanged(int index)
{
    emit currentIndexChanged(index);
}
