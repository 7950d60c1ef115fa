#include "ui/KeycapCombo.h"

#include "ui/specs/FileIconEngine.h"
#include "ui/specs/KbdConstants.h"

#include <QComboBox>
#include <QIcon>

using namespace Qt::StringLiterals;

namespace {

QIcon iconOf(const QString& fileName)
{
    return FileIconEngine::iconOf(KbdConstants::iconPath(fileName));
}

} // namespace

KeycapCombo::KeycapCombo(bool onlyIcons, QWidget* parent)
    : CaptionedCombo(tr("Keycap Display: "), onlyIcons, parent)
{
    combo->addItem(iconOf(u"/singlekey.png"_s), iconOnly ? QString() : tr("Active Character Only"));
    combo->addItem(iconOf(u"/fullkey.png"_s), iconOnly ? QString() : tr("Multiple Characters"));
    combo->setToolTip(tr("Keycap display mode"));
    connect(combo, &QComboBox::activated, this, &KeycapCombo::internalActivated);
    connect(
        combo, &QComboBox::currentIndexChanged, this, &KeycapCombo::internalCurrentIndexChanged);
}

void KeycapCombo::internalActivated(int index)
{
    emit activated(index);
}

void KeycapCombo::internalCurrentIndexChanged(int index)
{
    emit currentIndexChanged(index);
}
