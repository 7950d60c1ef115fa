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
    comboBox()->addItem(
        iconOf(u"/singlekey.png"_s), isIconOnly() ? QString() : tr("Active Character Only"));
    comboBox()->addItem(
        iconOf(u"/fullkey.png"_s), isIconOnly() ? QString() : tr("Multiple Characters"));
    comboBox()->setToolTip(tr("Keycap display mode"));
    connect(comboBox(), &QComboBox::activated, this, &KeycapCombo::internalActivated);
    connect(comboBox(), &QComboBox::currentIndexChanged, this,
        &KeycapCombo::internalCurrentIndexChanged);
}

void KeycapCombo::internalActivated(int index)
{
    emit activated(index);
}

void KeycapCombo::internalCurrentIndexChanged(int index)
{
    emit currentIndexChanged(index);
}
