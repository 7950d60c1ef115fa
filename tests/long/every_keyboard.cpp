// All of XKB: every layout with every variant, every model, every option and combinations of
// layouts, each loaded into a server and drawn, and each cap compared with the keymap that the
// server has compiled.

#include "app/description/ComponentNames.h"
#include "harness/PrivateServer.h"
#include "harness/XErrors.h"
#include "harness/XTools.h"
#include "keys/KbdKey.h"
#include "model/KbdGeometry.h"
#include "tests/long/CapJudge.h"
#include "tests/long/LongRun.h"
#include "tests/long/ServerKeymap.h"
#include "tests/long/XkbRules.h"
#include "x11/X11.h"
#include "x11/qt/ToolkitDisplay.h"

#include <QApplication>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <array>
#include <memory>
#include <random>

namespace {

constexpr double enoughToDraw = 0.1; // pixels for each unit
constexpr int combinations = 120;
constexpr int mostGroups = 4;

// The corners of a cap with several labels, in the order in which they are drawn.
constexpr std::array<ShiftMask_t, 4> corners{
    0, x11::shiftMask, x11::mod5Mask, static_cast<ShiftMask_t>(x11::shiftMask | x11::mod5Mask)};

void drawWhole(const KbdGeometry& picture)
{
    QImage image((picture.sceneRect().size() * enoughToDraw).toSize(), QImage::Format_RGB32);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    picture.scene()->render(&painter, image.rect(), picture.sceneRect());
}

KeyboardSettings combinationOf(const QList<KeyboardSettings>& layouts, std::mt19937& chance)
{
    KeyboardSettings all{QStringLiteral("pc105"), {}, {}, QStringLiteral("grp:toggle")};
    const int groups = 2 + static_cast<int>(chance() % (mostGroups - 1));
    for (int group = 0; group < groups; ++group) {
        const KeyboardSettings& one = layouts.at(chance() % layouts.size());
        const QLatin1StringView comma(group > 0 ? "," : "");
        all.layout += comma + one.layout;
        all.variant += comma + one.variant;
    }
    return all;
}

// What is to be drawn, in an order by chance where the time is limited.
QList<KeyboardSettings> allKeyboards(const XkbRules& rules, const LongRun& run)
{
    std::mt19937 chance(run.seed());
    QList<KeyboardSettings> all = rules.layouts;
    for (const QString& model : rules.models)
        all.append({model, QStringLiteral("us"), {}, {}});
    for (const QString& option : rules.options)
        all.append({QStringLiteral("pc105"), QStringLiteral("de,ru"), {}, option});
    for (int i = 0; i < combinations && !rules.layouts.isEmpty(); ++i)
        all << combinationOf(rules.layouts, chance);
    if (run.hasTimeLimit())
        std::shuffle(all.begin(), all.end(), chance);
    return all;
}

// The pictures of one run, and what was found.
class Comparison {
public:
    explicit Comparison(LongRun& longRun)
        : run(longRun)
        , judge(longRun)
    {
    }

    void compare(const KeyboardSettings& keyboard);
    QStringList finish();

private:
    std::unique_ptr<KbdGeometry> load(const KeyboardSettings& keyboard);
    static std::unique_ptr<KbdGeometry> draw(const KeyboardSettings& keyboard);
    void compareGroup(KbdGeometry& picture, int group);
    void compareKey(const CapJudge::Place& place, const QString& drawn);
    quint32 shownKeysym(const KbdKey& key, int group, ShiftMask_t modifiers) const;
    QList<quint32> cornerKeysyms(const KbdKey& key, int group) const;

    LongRun& run;
    CapJudge judge;
    std::unique_ptr<ServerKeymap> keymap;
    int drawnKeyboards = 0;
    QStringList refused;
    qint64 keys = 0;
    qint64 caps = 0;
};

// What the server refuses, the program has to refuse as well, and nothing else.
std::unique_ptr<KbdGeometry> Comparison::load(const KeyboardSettings& keyboard)
{
    const bool isLoaded = setKeyboard(qgetenv("DISPLAY"), setxkbmapArguments(keyboard));
    std::unique_ptr<KbdGeometry> picture = draw(keyboard);
    if (!isLoaded)
        refused << textOf(keyboard);
    if (isLoaded == (picture != nullptr))
        return picture;
    run.broken(textOf(keyboard)
        + (isLoaded ? QStringLiteral(": refused, but the server has loaded it")
                    : QStringLiteral(": drawn, but the server has refused it")));
    return nullptr;
}

// Null when the program refuses it.
std::unique_ptr<KbdGeometry> Comparison::draw(const KeyboardSettings& keyboard)
{
    XkbComponentNamesRec names{};
    const ComponentNamesGuard guard(&names);
    if (!queryComponentNames(&names, toolkitDisplay(), keyboard))
        return nullptr;
    try {
        return std::make_unique<KbdGeometry>(keyboard, names, false, nullptr);
    } catch (KbdGeometry::ExceptionType) {
        return nullptr;
    }
}

void Comparison::compare(const KeyboardSettings& keyboard)
{
    const std::unique_ptr<KbdGeometry> picture = load(keyboard);
    if (!picture)
        return;
    QCoreApplication::processEvents();
    keymap = std::make_unique<ServerKeymap>(toolkitDisplay(), toolkitConnection());
    if (!keymap->isValid())
        return run.broken(textOf(keyboard) + QStringLiteral(": xkbcommon cannot read the keymap"));
    judge.setKeyboard(keyboard, keymap.get());
    if (picture->groupNames().size() != keymap->groupCount())
        run.broken(textOf(keyboard) + QStringLiteral(": not every group is offered"));
    ++drawnKeyboards;
    keys += picture->keyItems().size();
    for (int group = 0; group < keymap->groupCount(); ++group)
        compareGroup(*picture, group);
    picture->setPrintMode(1);
    drawWhole(*picture);
}

void Comparison::compareGroup(KbdGeometry& picture, int group)
{
    picture.setGroupNum(static_cast<KeyGroup_t>(group));
    const QList<ShiftMask_t> sets = keymap->modifierSets();
    for (const bool several : {false, true}) {
        picture.setMultishiftDisplay(several);
        drawWhole(picture);
        for (KbdKey* key : picture.keyItems()) {
            for (const ShiftMask_t modifiers : sets) {
                key->setCurrentModifiers(modifiers);
                compareKey({*key, group, modifiers}, drawnOn(*key));
            }
            key->setCurrentModifiers(0);
        }
    }
}

void Comparison::compareKey(const CapJudge::Place& place, const QString& drawn)
{
    ++caps;
    const auto& [key, group, modifiers] = place;
    const quint32 keysym = shownKeysym(key, group, modifiers);
    if (key.state().multipleCharacters)
        return judge.judgeCorners(place, drawn, cornerKeysyms(key, group), keysym);
    const quint32 typed = keymap->keysym(key.x11Keycode(), group, modifiers);
    if (keysym != typed)
        judge.differs(place, QStringLiteral("group"), drawn, keysymName(typed));
    judge.judge(place, drawn, keysym);
}

// The groups are shown in their order: a key with fewer has its last one then.
quint32 Comparison::shownKeysym(const KbdKey& key, int group, ShiftMask_t modifiers) const
{
    const KeyCode keycode = key.x11Keycode();
    return keymap->keysym(keycode, keymap->keptGroup(keycode, group), modifiers);
}

// A corner stands for its modifiers where the key type takes notice of them.
QList<quint32> Comparison::cornerKeysyms(const KbdKey& key, int group) const
{
    const ShiftMask_t noticed =
        keymap->typeModifiers(key.x11Keycode(), keymap->keptGroup(key.x11Keycode(), group));
    QList<quint32> keysyms;
    for (const ShiftMask_t corner : corners) {
        if ((noticed & corner) == corner)
            keysyms << shownKeysym(key, group, corner);
    }
    if (keysyms.size() == 2 && keysyms.first() == keysyms.last())
        keysyms.removeLast();
    return keysyms;
}

QStringList Comparison::finish()
{
    judge.report();
    if (drawnKeyboards == 0)
        run.broken(QStringLiteral("no keyboard was drawn"));
    const QString names =
        refused.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(refused.join(u' '));
    return QStringList{QStringLiteral("%1 keyboards").arg(drawnKeyboards),
               QStringLiteral("%1 refused by the server").arg(refused.size()) + names,
               QStringLiteral("%1 keys").arg(keys), QStringLiteral("%1 caps compared").arg(caps)}
    + judge.counts();
}

} // namespace

int main(int argc, char** argv)
{
    LongRun run("every keyboard", argc, argv);
    const PrivateServer server;
    server.useForThisProcess();
    int none = 1;
    const QApplication application(none, argv);
    const ExpectedXErrors errors;

    const XkbRules rules = XkbRules::read(QStringLiteral(KBD_RULES_DIR));
    if (rules.layouts.isEmpty() || rules.models.isEmpty() || rules.options.isEmpty())
        run.broken(QStringLiteral("no lists of layouts, models and options"));
    const QList<KeyboardSettings> keyboards = allKeyboards(rules, run);
    Comparison comparison(run);
    for (qsizetype i = 0; i < keyboards.size() && run.goesOn(); ++i) {
        if (run.isOurs(i))
            comparison.compare(keyboards.at(i));
    }
    const QStringList figures = comparison.finish();
    for (const QString& error : ExpectedXErrors::seen())
        run.broken(error);
    const QString offered =
        QStringLiteral("%1 layouts and variants, %2 models, %3 options offered");
    return run.finish(
        QStringList{
            offered.arg(rules.layouts.size()).arg(rules.models.size()).arg(rules.options.size())}
        + figures);
}
