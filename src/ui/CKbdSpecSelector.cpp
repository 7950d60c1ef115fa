#include "ui/CKbdSpecSelector.h"

#include "ui/specs/FileIconEngine.h"
#include "ui/specs/KbdConstants.h"
#include "ui/specs/PackageTest.h"
#include "ui/specs/SpecTable.h"

#include <QCoreApplication>
#include <QHash>
#include <QSignalBlocker>
#include <QTimer>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView customName = "<Custom>"_L1;

// The usual width of the control, in letters. Measuring all entries instead would load a font for
// each of their scripts before the window opens.
constexpr int usualNameLength = 30;

// The native names that only a font of these packages can draw; one of them is enough.
struct NativeFont {
    const char* country;
    const char* package;
};
constexpr std::array<NativeFont, 3> nativeFonts{{
    {"Korea", "ttf-baekmuk"},
    {"Japan", "ttf-kochi-gothic"},
    {"Japan", "ttf-sazanami-gothic"},
}};

QStringList fontPackages(const QString& country)
{
    QStringList packages;
    for (const NativeFont& font : nativeFonts) {
        if (country == QLatin1StringView(font.country))
            packages << QString::fromLatin1(font.package);
    }
    return packages;
}

bool isAnyInstalled(const QStringList& fonts, PackageTest& packages)
{
    return std::any_of(fonts.begin(), fonts.end(),
        [&packages](const QString& font) { return packages.isPackageInstalled(font); });
}

// A spec name taken apart: the English name, and the native one with its closing bracket.
struct SpecName {
    explicit SpecName(const QString& name)
    {
        const qsizetype bracket = name.indexOf(u'[');
        base = name.left(bracket);
        while (base.endsWith(u' '))
            base.chop(1);
        if (bracket >= 0)
            native = name.mid(bracket + 1);
    }

    // The English name is translated, the native one stays as it is.
    QString translated() const
    {
        return QCoreApplication::translate("CKbdSpecSelector", base.toUtf8().constData());
    }
    QString translatedWithNative() const { return translated() + " ["_L1 + native; }

    // The packages of which one must be there for the native name to be shown; empty when the name
    // needs none.
    QStringList neededFonts() const
    {
        return native.isEmpty() ? QStringList() : fontPackages(base);
    }

    QString base;
    QString native; // empty when there is none
};

QString displayNameUntilFontsAreKnown(const SpecName& name)
{
    return name.native.isEmpty() || !name.neededFonts().isEmpty() ? name.translated()
                                                                  : name.translatedWithNative();
}

// Whether one of the entry's keyboards is this one, whatever its options.
bool describes(const kbdSpec_t& spec, const KeyboardSettings& keyboard)
{
    for (qsizetype i = 0; i < spec.models.size(); ++i)
        if (spec.models.at(i) == keyboard.model && spec.layouts.at(i) == keyboard.layout
            && spec.variants.at(i) == keyboard.variant)
            return true;
    return false;
}

} // namespace

CKbdSpecSelector::CKbdSpecSelector(bool withCustom, QWidget* parent, const SpecTable& table)
    : ControlCombo(parent)
{
    build(withCustom, table);
}

CKbdSpecSelector::CKbdSpecSelector(bool withCustom, QWidget* parent)
    : CKbdSpecSelector(withCustom, parent, SpecTable::find())
{
    addNativeNames();
}

void CKbdSpecSelector::build(bool withCustom, const SpecTable& table)
{
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(usualNameLength);
    addEntries(table);
    sortEntries();
    addEntryItems();
    addCustomEntry();
    if (withCustom)
        addItem(specs.last()->displayName);
    connect(this, &QComboBox::currentIndexChanged, this, &CKbdSpecSelector::selectionChanged);
    connect(this, &QComboBox::activated, this, &CKbdSpecSelector::userSelectionChanged);
}

CKbdSpecSelector::~CKbdSpecSelector()
{
    qDeleteAll(specs);
}

QSize CKbdSpecSelector::sizeHint() const
{
    const QSize usual = ControlCombo::sizeHint();
    const int wanted = std::max(usual.width(), widthOf(currentText()));
    return {std::min(wanted, maximumWidth()), usual.height()};
}

QSize CKbdSpecSelector::minimumSizeHint() const
{
    return {leastWidth(), ControlCombo::sizeHint().height()};
}

void CKbdSpecSelector::showPopup()
{
    addNativeNames();
    ControlCombo::showPopup();
}

void CKbdSpecSelector::paintEvent(QPaintEvent* event)
{
    ControlCombo::paintEvent(event);
    if (fontsUnknown.contains(specs.value(currentIndex())))
        QTimer::singleShot(0, this, &CKbdSpecSelector::addNativeNames);
}

void CKbdSpecSelector::addNativeNames()
{
    const QList<kbdSpec_t*> asked = std::exchange(fontsUnknown, {});
    PackageTest packages;
    for (const kbdSpec_t* spec : asked)
        packages.start(SpecName(spec->name).neededFonts().first());
    bool isAnyNew = false;
    for (kbdSpec_t* spec : asked) {
        const SpecName name(spec->name);
        if (!isAnyInstalled(name.neededFonts(), packages))
            continue;
        spec->displayName = name.translatedWithNative();
        isAnyNew = true;
    }
    if (isAnyNew)
        showNewNames();
}

// The order follows the names. What is selected stays so: that is no choice of the user's.
void CKbdSpecSelector::showNewNames()
{
    const QSignalBlocker silent(this);
    const kbdSpec_t* current = currentEntry();
    const bool withCustom = count() == specs.size();
    kbdSpec_t* custom = specs.takeLast();
    sortEntries();
    clear();
    addEntryItems();
    specs.append(custom);
    if (withCustom)
        addItem(custom->displayName);
    setCurrentIndex(int(specs.indexOf(current)));
    updateGeometry();
}

void CKbdSpecSelector::addEntries(const SpecTable& table)
{
    if (table.place == SpecTable::Place::None)
        throw TableNotFound;
    if (!table.rows)
        throw TableNotOpened;

    for (const SpecRow& row : *table.rows)
        if (!row.name.isEmpty())
            addEntry(row);
}

void CKbdSpecSelector::addEntry(const SpecRow& row)
{
    const SpecName name(row.name);
    specs.append(new kbdSpec_t{row.name, displayNameUntilFontsAreKnown(name), row.icon, {row.model},
        {row.layout}, {row.variant}});
    if (!name.neededFonts().isEmpty())
        fontsUnknown.append(specs.last());
}

void CKbdSpecSelector::sortEntries()
{
    // Sorting needs a strict weak order: with <= it may run past the end of the list.
    std::stable_sort(specs.begin(), specs.end(), [](const kbdSpec_t* a, const kbdSpec_t* b) {
        return QString::localeAwareCompare(a->displayName, b->displayName) < 0;
    });
}

void CKbdSpecSelector::addEntryItems()
{
    QHash<QString, QIcon> icons; // many entries share a flag
    for (const kbdSpec_t* spec : std::as_const(specs)) {
        auto icon = icons.constFind(spec->icon);
        if (icon == icons.cend())
            icon = icons.insert(
                spec->icon, FileIconEngine::iconOf(KbdConstants::iconPath(spec->icon)));
        addItem(*icon, spec->displayName);
    }
}

void CKbdSpecSelector::addCustomEntry()
{
    const QStringList noChange{u"<NoChange>"_s};
    specs.append(
        new kbdSpec_t{customName, tr("<Custom>"), QString(), noChange, noChange, noChange});
}

const kbdSpec_t* CKbdSpecSelector::currentEntry() const
{
    return specs.value(currentIndex());
}

bool CKbdSpecSelector::isCustom(int index) const
{
    const kbdSpec_t* spec = specs.value(index);
    return spec && spec->name == customName;
}

QString CKbdSpecSelector::currentIconFile() const
{
    const kbdSpec_t* spec = currentEntry();
    return spec ? spec->icon : QString();
}

QString CKbdSpecSelector::currentModel() const
{
    const kbdSpec_t* spec = currentEntry();
    return spec && spec != specs.last() ? spec->models.first() : u"pc104"_s;
}

QString CKbdSpecSelector::currentLayout() const
{
    const kbdSpec_t* spec = currentEntry();
    return spec && spec != specs.last() ? spec->layouts.first() : u"us"_s;
}

QString CKbdSpecSelector::currentVariant() const
{
    const kbdSpec_t* spec = currentEntry();
    return spec && spec != specs.last() ? spec->variants.first() : u"wincompat"_s;
}

void CKbdSpecSelector::setCurrent(const QString& specName)
{
    for (int i = 0; i < specs.size(); ++i)
        if (specs.at(i)->name == specName)
            setCurrentIndex(i);
    setCurrentIndex(int(specs.size()) - 1);
}

void CKbdSpecSelector::setCurrent(
    const QString& model, const QString& layout, const QString& variantList)
{
    select({model, layout, variantList, {}});
}

void CKbdSpecSelector::select(const KeyboardSettings& keyboard)
{
    const auto match = std::find_if(specs.cbegin(), specs.cend(),
        [&](const kbdSpec_t* spec) { return describes(*spec, keyboard); });
    const auto entry = match == specs.cend() ? specs.cend() - 1 : match;
    setCurrentIndex(int(entry - specs.cbegin()));
}

void CKbdSpecSelector::selectionChanged(int newSelection)
{
    updateGeometry(); // the new name may need more room
    if (kbdSpec_t* spec = specs.value(newSelection))
        emit currentChanged(spec);
}

void CKbdSpecSelector::userSelectionChanged(int newSelection)
{
    kbdSpec_t* spec = specs.value(newSelection);
    if (!spec)
        return;
    emit activated(spec);
    if (spec->name == customName)
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
