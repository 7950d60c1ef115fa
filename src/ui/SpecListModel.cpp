#include "ui/SpecListModel.h"

#include "ui/specs/FileIconEngine.h"
#include "ui/specs/KbdConstants.h"
#include "ui/specs/PackageTest.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <numeric>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

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

QStringList fontPackages(QByteArrayView country)
{
    QStringList packages;
    for (const NativeFont& font : nativeFonts) {
        if (country == font.country)
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
    explicit SpecName(QByteArrayView name)
    {
        const qsizetype bracket = name.indexOf('[');
        QByteArrayView english = bracket < 0 ? name : name.first(bracket);
        while (english.endsWith(' '))
            english.chop(1);
        base = english.toByteArray();
        if (bracket >= 0)
            native = name.sliced(bracket + 1);
    }

    // The English name is translated, the native one stays as it is.
    QString translated() const
    {
        return QCoreApplication::translate("CKbdSpecSelector", base.constData());
    }
    QString translatedWithNative() const
    {
        return translated() + " ["_L1 + QString::fromUtf8(native);
    }

    // Whether the native name is shown only where a font is installed for it.
    bool needsFont() const { return !native.isEmpty() && !fontPackages(base).isEmpty(); }

    QByteArray base;
    QByteArrayView native; // empty when there is none
};

kbdSpec_t specOf(const SpecRow& row, const QString& text)
{
    return {row.name, text, row.icon, {row.model}, {row.layout}, {row.variant}};
}

// Whether this is one of the entry's keyboards, whatever its options.
bool hasKeyboard(const kbdSpec_t& spec, const KeyboardSettings& keyboard)
{
    for (qsizetype i = 0; i < spec.models.size(); ++i)
        if (spec.models.at(i) == keyboard.model && spec.layouts.at(i) == keyboard.layout
            && spec.variants.at(i) == keyboard.variant)
            return true;
    return false;
}

} // namespace

SpecListModel::SpecListModel(
    SpecRows tableRows, const QString& customText, bool withCustom, QObject* parent)
    : QAbstractListModel(parent)
    , rows(std::move(tableRows))
    , order(static_cast<std::size_t>(rows.size()))
    , custom{u"<Custom>"_s, customText, {}, {u"<NoChange>"_s}, {u"<NoChange>"_s}, {u"<NoChange>"_s}}
    , hasCustomItem(withCustom)
{
    std::iota(order.begin(), order.end(), 0);
}

SpecListModel::~SpecListModel() = default;

int SpecListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : customIndex() + (hasCustomItem ? 1 : 0);
}

QVariant SpecListModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    if (role == Qt::DisplayRole)
        return textAt(index.row());
    if (role == Qt::DecorationRole && index.row() != customIndex())
        return iconAt(index.row());
    return {};
}

bool SpecListModel::removeRows(int first, int count, const QModelIndex& parent)
{
    if (parent.isValid() || first != customIndex() || count != 1 || !hasCustomItem)
        return false;
    beginRemoveRows(parent, first, first);
    hasCustomItem = false;
    endRemoveRows();
    return true;
}

kbdSpec_t* SpecListModel::specAt(int index)
{
    if (index == customIndex())
        return &custom;
    if (index < 0 || index > customIndex())
        return nullptr;
    const qsizetype row = rowAt(index);
    std::unique_ptr<kbdSpec_t>& spec = specs[row];
    if (!spec)
        spec = std::make_unique<kbdSpec_t>(specOf(rows.at(row), textAt(index)));
    return spec.get();
}

// The settings with what a table's line is compared with.
struct SpecListModel::Utf8Settings {
    explicit Utf8Settings(const KeyboardSettings& keyboard)
        : settings(keyboard)
        , model(keyboard.model.toUtf8())
        , layout(keyboard.layout.toUtf8())
        , variant(keyboard.variant.toUtf8())
        , mark(SpecRows::markOf(model, layout))
    {
    }

    const KeyboardSettings& settings;
    QByteArray model;
    QByteArray layout;
    QByteArray variant;
    quint32 mark;
};

int SpecListModel::find(const KeyboardSettings& settings) const
{
    const Utf8Settings keyboard(settings);
    int found = customIndex();
    QString foundText;
    for (int index = 0; index < customIndex(); ++index) {
        if (!describes(index, keyboard))
            continue;
        if (isComplete)
            return index;
        const QString text = textAt(index);
        if (found != customIndex() && QString::localeAwareCompare(text, foundText) >= 0)
            continue;
        found = index;
        foundText = text;
    }
    return found;
}

bool SpecListModel::waitsForFonts(int index) const
{
    if (index < 0 || index >= customIndex())
        return false;
    const SpecName name(rows.fieldsAt(rowAt(index)).name);
    return name.needsFont() && !hasFont.contains(name.base);
}

void SpecListModel::complete()
{
    if (std::exchange(isComplete, true))
        return;
    askForFonts();
    sortByText();
}

void SpecListModel::askForFonts()
{
    for (qsizetype row = 0; row < rows.size(); ++row) {
        const SpecName name(rows.fieldsAt(row).name);
        if (name.needsFont())
            hasFont.insert(name.base, false);
    }
    PackageTest packages;
    for (auto each = hasFont.cbegin(); each != hasFont.cend(); ++each)
        packages.start(fontPackages(each.key()).first());
    for (auto each = hasFont.begin(); each != hasFont.end(); ++each)
        *each = isAnyInstalled(fontPackages(each.key()), packages);
}

void SpecListModel::sortByText()
{
    std::vector<std::pair<QString, qsizetype>> texts; // and their rows
    texts.reserve(order.size());
    for (int index = 0; index < customIndex(); ++index)
        texts.emplace_back(textAt(index), rowAt(index));
    // Sorting needs a strict weak order: with <= it may run past the end of the list.
    std::stable_sort(texts.begin(), texts.end(), [](const auto& a, const auto& b) {
        return QString::localeAwareCompare(a.first, b.first) < 0;
    });

    emit layoutAboutToBeChanged();
    const std::vector<qsizetype> before = std::move(order);
    order.clear();
    for (const auto& [text, row] : texts) {
        order.push_back(row);
        if (const auto spec = specs.find(row); spec != specs.end())
            spec->second->displayName = text;
    }
    const QModelIndexList kept = persistentIndexList();
    for (const QModelIndex& each : kept) {
        if (each.row() == customIndex())
            continue;
        const auto now =
            std::find(order.cbegin(), order.cend(), before[static_cast<std::size_t>(each.row())]);
        changePersistentIndex(each, index(static_cast<int>(now - order.cbegin())));
    }
    emit layoutChanged();
}

qsizetype SpecListModel::rowAt(int index) const
{
    return order[static_cast<std::size_t>(index)];
}

QString SpecListModel::textAt(int index) const
{
    if (index == customIndex())
        return custom.displayName;
    const SpecName name(rows.fieldsAt(rowAt(index)).name);
    const bool isDrawable = !name.needsFont() || hasFont.value(name.base);
    return name.native.isEmpty() || !isDrawable ? name.translated() : name.translatedWithNative();
}

QIcon SpecListModel::iconAt(int index) const
{
    const QString file = QString::fromUtf8(rows.fieldsAt(rowAt(index)).icon);
    auto icon = icons.constFind(file);
    if (icon == icons.cend())
        icon = icons.insert(file, FileIconEngine::iconOf(KbdConstants::iconPath(file)));
    return *icon;
}

// A record that has been handed out may have been changed since, so it is compared instead of the
// table's line.
bool SpecListModel::describes(int index, const Utf8Settings& keyboard) const
{
    const qsizetype row = rowAt(index);
    if (const auto spec = specs.find(row); spec != specs.end())
        return hasKeyboard(*spec->second, keyboard.settings);
    if (rows.markAt(row) != keyboard.mark)
        return false;
    const SpecFields fields = rows.fieldsAt(row);
    return fields.layout == keyboard.layout && fields.variant == keyboard.variant
        && fields.model == keyboard.model;
}
