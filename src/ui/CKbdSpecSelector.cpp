#include "ui/CKbdSpecSelector.h"

#include "ui/SpecListModel.h"

#include <QTimer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// The usual width of the control, in letters. Measuring all entries instead would load a font for
// each of their scripts before the window opens.
constexpr int usualNameLength = 30;

} // namespace

CKbdSpecSelector::CKbdSpecSelector(bool withCustom, QWidget* parent, const SpecTable& table)
    : ControlCombo(parent)
{
    build(withCustom, table);
}

CKbdSpecSelector::CKbdSpecSelector(bool withCustom, QWidget* parent)
    : CKbdSpecSelector(withCustom, parent, SpecTable::find())
{
    completeList();
}

void CKbdSpecSelector::build(bool withCustom, const SpecTable& table)
{
    if (table.place == SpecTable::Place::None)
        throw TableNotFound;
    if (!table.rows)
        throw TableNotOpened;

    specs = new SpecListModel(*table.rows, tr("<Custom>"), withCustom, this);
    setModel(specs);
    connect(this, &QComboBox::currentIndexChanged, this, &CKbdSpecSelector::selectionChanged);
    connect(this, &QComboBox::activated, this, &CKbdSpecSelector::userSelectionChanged);
}

QSize CKbdSpecSelector::sizeHint() const
{
    const int usual = usualNameLength * fontMetrics().horizontalAdvance(u'X');
    const QSize wanted = sizeFor(std::max(usual, fontMetrics().horizontalAdvance(currentText())));
    return {std::min(wanted.width(), maximumWidth()), wanted.height()};
}

QSize CKbdSpecSelector::minimumSizeHint() const
{
    return {leastWidth(), sizeFor(0).height()};
}

void CKbdSpecSelector::showPopup()
{
    completeList();
    ControlCombo::showPopup();
}

// The wheel goes from entry to entry without the list.
void CKbdSpecSelector::wheelEvent(QWheelEvent* event)
{
    completeList();
    ControlCombo::wheelEvent(event);
}

void CKbdSpecSelector::keyPressEvent(QKeyEvent* event)
{
    completeList();
    ControlCombo::keyPressEvent(event);
}

void CKbdSpecSelector::paintEvent(QPaintEvent* event)
{
    ControlCombo::paintEvent(event);
    if (specs->waitsForFonts(currentIndex()))
        QTimer::singleShot(0, this, &CKbdSpecSelector::completeList);
}

void CKbdSpecSelector::completeList()
{
    specs->complete();
    // The current name may be longer now.
    updateGeometry();
    update();
}

const kbdSpec_t* CKbdSpecSelector::currentEntry() const
{
    return specs->specAt(currentIndex());
}

bool CKbdSpecSelector::isCustom(int index) const
{
    const kbdSpec_t* spec = specs->specAt(index);
    return spec && spec->name == "<Custom>"_L1;
}

QString CKbdSpecSelector::currentIconFile() const
{
    const kbdSpec_t* spec = currentEntry();
    return spec ? spec->icon : QString();
}

QString CKbdSpecSelector::currentModel() const
{
    const kbdSpec_t* spec = currentEntry();
    return spec && currentIndex() != specs->customIndex() ? spec->models.first() : u"pc104"_s;
}

QString CKbdSpecSelector::currentLayout() const
{
    const kbdSpec_t* spec = currentEntry();
    return spec && currentIndex() != specs->customIndex() ? spec->layouts.first() : u"us"_s;
}

QString CKbdSpecSelector::currentVariant() const
{
    const kbdSpec_t* spec = currentEntry();
    return spec && currentIndex() != specs->customIndex() ? spec->variants.first() : u"wincompat"_s;
}

void CKbdSpecSelector::setCurrent(const QString& specName)
{
    completeList();
    for (int i = 0; i < specs->customIndex(); ++i)
        if (specs->specAt(i)->name == specName)
            setCurrentIndex(i);
    setCurrentIndex(specs->customIndex());
}

void CKbdSpecSelector::setCurrent(
    const QString& model, const QString& layout, const QString& variantList)
{
    select({model, layout, variantList, {}});
}

void CKbdSpecSelector::select(const KeyboardSettings& keyboard)
{
    setCurrentIndex(specs->find(keyboard));
}

void CKbdSpecSelector::selectionChanged(int newSelection)
{
    updateGeometry(); // the new name may need more room
    if (kbdSpec_t* spec = specs->specAt(newSelection))
        emit currentChanged(spec);
}

void CKbdSpecSelector::userSelectionChanged(int newSelection)
{
    kbdSpec_t* spec = specs->specAt(newSelection);
    if (!spec)
        return;
    emit activated(spec);
    if (isCustom(newSelection))
        return;

    emit primaryModelChanged(spec->models.at(0));
    emit primaryLayoutChanged(spec->layouts.at(0));
    if (!spec->variants.at(0).isEmpty())
        emit primaryVariantChanged(spec->variants.at(0));
    if (spec->models.size() < 2)
        return;

    emit secondaryModelChanged(spec->models.at(1));
    emit secondaryLayoutChanged(spec->layouts.at(1));
    if (!spec->variants.at(1).isEmpty())
        emit secondaryVariantChanged(spec->variants.at(1));
}
