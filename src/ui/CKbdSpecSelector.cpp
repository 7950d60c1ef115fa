#include "ui/CKbdSpecSelector.h"

#include "ui/specs/FileIconEngine.h"
#include "ui/specs/KbdConstants.h"
#include "ui/specs/PackageTest.h"
#include "ui/specs/SpecTable.h"

#include <QCoreApplication>
#include <QHash>

#include <algorithm>
#include <array>

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

bool canDrawNativeName(const QString& country, PackageTest& packages)
{
    const QStringList fonts = fontPackages(country);
    return fonts.isEmpty()
        || std::any_of(fonts.begin(), fonts.end(),
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

    QString base;
    QString native; // empty when there is none
};

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

CKbdSpecSelector::CKbdSpecSelector(
    bool withCustom, QWidget* parent, const SpecTable& table, PackageTest& packages)
    : ControlCombo(parent)
{
    build(withCustom, table, packages);
}

CKbdSpecSelector::CKbdSpecSelector(bool withCustom, QWidget* parent)
    : ControlCombo(parent)
{
    PackageTest packages;
    build(withCustom, SpecTable::find(), packages);
}

void CKbdSpecSelector::build(bool withCustom, const SpecTable& table, PackageTest& packages)
{
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(usualNameLength);
    addEntries(table, packages);
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

void CKbdSpecSelector::startPackageTests(const SpecTable& table, PackageTest& packages)
{
    if (!table.rows)
        return;
    for (const SpecRow& row : *table.rows) {
        const SpecName name(row.name);
        if (name.native.isEmpty())
            continue;
        for (const QString& package : fontPackages(name.base))
            packages.start(package);
    }
}

void CKbdSpecSelector::addEntries(const SpecTable& table, PackageTest& packages)
{
    if (table.place == SpecTable::Place::None)
        throw TableNotFound;
    if (!table.rows)
        throw TableNotOpened;

    for (const SpecRow& row : *table.rows)
        if (!row.name.isEmpty())
            specs.append(new kbdSpec_t{row.name, makeDisplayName(row.name, packages), row.icon,
                {row.model}, {row.layout}, {row.variant}});
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

// The native name stays as it is; the other is translated.
QString CKbdSpecSelector::makeDisplayName(const QString& name, PackageTest& packages)
{
    const SpecName parts(name);
    QString display =
        QCoreApplication::translate("CKbdSpecSelector", parts.base.toUtf8().constData());
    if (parts.native.isEmpty() || !canDrawNativeName(parts.base, packages))
        return display;
    return display + " ["_L1 + parts.native;
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
