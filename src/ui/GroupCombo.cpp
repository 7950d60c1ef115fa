#include "ui/GroupCombo.h"

#include "ui/specs/FileIconEngine.h"
#include "ui/specs/KbdConstants.h"
#include "ui/specs/SpecTable.h"

#include <QComboBox>
#include <QIcon>
#include <QSignalBlocker>

namespace {

void cutFrom(QString& text, QChar mark)
{
    const qsizetype position = text.indexOf(mark);
    if (position > 0)
        text.truncate(position);
}

// The name of the first layout in a spec table's layout field.
QString firstLayout(QString field)
{
    cutFrom(field, u'[');
    cutFrom(field, u',');
    return field.simplified();
}

} // namespace

GroupCombo::GroupCombo(const QStringList& items, bool onlyIcons, QWidget* parent)
    : GroupCombo(items, onlyIcons, parent, SpecTable::find())
{
}

GroupCombo::GroupCombo(
    const QStringList& items, bool onlyIcons, QWidget* parent, const SpecTable& table)
    : CaptionedCombo(tr("Group: "), onlyIcons, parent)
{
    connect(comboBox(), &QComboBox::activated, this, &GroupCombo::internalActivated);
    connect(comboBox(), &QComboBox::currentIndexChanged, this,
        &GroupCombo::internalCurrentIndexChanged);
    readFlagMap(table);
    if (!items.isEmpty())
        setItems(items);
}

void GroupCombo::setItems(const QStringList& items)
{
    const bool wasEmpty = comboBox()->count() == 0;
    {
        // The window locks every group that is reported: not those on the way to the last.
        const QSignalBlocker filling(comboBox());
        refill(items);
    }
    if (!wasEmpty || !items.isEmpty())
        internalCurrentIndexChanged(comboBox()->currentIndex());
}

// Keeps the index where there still is one. The combo box itself selects the first of new items.
void GroupCombo::refill(const QStringList& items)
{
    const int remembered = comboBox()->currentIndex();
    comboBox()->clear();
    comboBox()->addItems(items);
    if (remembered >= 0 && remembered < comboBox()->count())
        comboBox()->setCurrentIndex(remembered);
}

void GroupCombo::setCurrentIndex(int index)
{
    if (index >= 0 && index < comboBox()->count())
        comboBox()->setCurrentIndex(index);
}

void GroupCombo::setGroupLayouts(const QStringList& layouts)
{
    for (int i = 0; i < layouts.size(); ++i) {
        const QString path = flagPath(layouts.at(i));
        ensureItem(i);
        comboBox()->setItemIcon(i, FileIconEngine::iconOf(path));
        if (isIconOnly())
            comboBox()->setItemText(i, path.isEmpty() ? QString::number(i + 1) : QString());
    }
}

void GroupCombo::setData(const QStringList& data)
{
    dataList = std::make_unique<QStringList>(data);
    while (isIconOnly() && comboBox()->count() < data.size())
        comboBox()->addItem(QString::number(comboBox()->count() + 1));
}

void GroupCombo::internalActivated(int index)
{
    emit activated(index);
    if (dataList && index >= 0 && index < dataList->size())
        emit activatedData(dataList->at(index));
}

void GroupCombo::internalCurrentIndexChanged(int index)
{
    emit currentIndexChanged(index);
    if (dataList && index >= 0 && index < dataList->size())
        emit currentDataChanged(dataList->at(index));
}

void GroupCombo::readFlagMap(const SpecTable& table)
{
    if (table.place == SpecTable::Place::SourceTree || !table.rows)
        return;
    for (const SpecRow& row : *table.rows)
        if (!row.icon.isEmpty() && !row.layout.isEmpty())
            flagMap.insert(firstLayout(row.layout), row.icon);
}

// Empty when the layout has no flag or its file cannot be read.
QString GroupCombo::flagPath(const QString& layout) const
{
    const QString fileName = flagMap.value(layout.section(u':', 0, 0));
    return fileName.isEmpty() ? QString() : KbdConstants::iconPath(u'/' + fileName);
}

void GroupCombo::ensureItem(int index)
{
    while (comboBox()->count() <= index)
        comboBox()->addItem(QString());
}
