#include "app/description/ComponentNames.h"

#include "app/description/ToolRun.h"
#include "x11/X11.h"

#include <QByteArrayView>
#include <QRegularExpression>
#include <QStringList>

#include <array>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

using Component = char* XkbComponentNamesRec::*;

// In the order in which a line is searched for them.
struct ComponentSection {
    Component component;
    const char* keyword;
    bool required;
};

constexpr std::array<ComponentSection, 6> sections{{
    {&XkbComponentNamesRec::keymap, "xkb_keymap", false},
    {&XkbComponentNamesRec::keycodes, "xkb_keycodes", true},
    {&XkbComponentNamesRec::types, "xkb_types", true},
    {&XkbComponentNamesRec::compat, "xkb_compat", true},
    {&XkbComponentNamesRec::symbols, "xkb_symbols", true},
    {&XkbComponentNamesRec::geometry, "xkb_geometry", true},
}};

// Geometries that the platform draws itself, with lamps, captions and a flag holder.
struct GeometryReplacement {
    const char* printed;
    const char* used;
};

constexpr std::array<GeometryReplacement, 5> platformGeometries{{
    {"pc(pc104)", "pc-arvane(pc104)"},
    {"pc(pc105)", "pc-arvane(pc105)"},
    {"pc(jp106)", "pc-arvane(jp106)"},
    {"pc(kr106)", "pc-arvane(kr106)"},
    {"pc(abnt2)", "pc-arvane(abnt2)"},
}};

// What the rules give for a model that they do not know, as the program draws it.
constexpr char fallbackGeometry[] = "pc-arvane(pc104)";
constexpr std::array<const char*, 3> largerBoards{"jp106", "kr106", "abnt2"};

// No names that an X server takes make a line of this length (characters); a search through one
// that is made to be slow would take its time.
constexpr qsizetype longestLine = 8192;

constexpr int toolTimeout = 30000; // milliseconds

void replace(char*& target, const char* text)
{
    std::free(target);
    target = text ? strdup(text) : nullptr;
}

QRegularExpression includePattern(const char* keyword)
{
    return QRegularExpression(
        QLatin1StringView(keyword) + QStringLiteral("\\s*\\{\\s*include\\s+\"(.*)\"\\s*\\}"));
}

void preferPlatformGeometry(XkbComponentNamesRec* names)
{
    for (const GeometryReplacement& row : platformGeometries) {
        if (QByteArrayView(names->geometry) == row.printed)
            return replace(names->geometry, row.used);
    }
}

// The rules of many systems do not know the boards that have more keys than a plain one, and
// answer with that. Keys that the user has would be missing from the picture.
void preferGeometryOfModel(XkbComponentNamesRec* names, const QString& model)
{
    if (QByteArrayView(names->geometry) != fallbackGeometry)
        return;
    for (const char* board : largerBoards) {
        if (model == QLatin1String(board))
            return replace(names->geometry, (std::string("pc-arvane(") + board + ")").c_str());
    }
}

} // namespace

bool queryComponentNames( // NOLINT(readability-function-size): the settings stand side by side
    XkbComponentNamesRec* names, Display* display, const QString& model, const QString& layout,
    const QString& variant, const QString& options)
{
    *names = {};
    QStringList arguments{
        QStringLiteral("-display"), QString::fromLocal8Bit(XDisplayString(display))};
    appendOption(arguments, "-model", model);
    appendOption(arguments, "-layout", layout);
    appendOption(arguments, "-variant", variant);
    appendOption(arguments, "-option", options);
    arguments << QStringLiteral("-print");

    const auto keymap = toolOutput(QStringLiteral("setxkbmap"), arguments, toolTimeout);
    if (!keymap || !readComponentNames(names, *keymap))
        return false;
    preferGeometryOfModel(names, model);
    return true;
}

bool readComponentNames(XkbComponentNamesRec* names, const QByteArray& keymap)
{
    std::array<QRegularExpression, sections.size()> patterns;
    for (std::size_t i = 0; i < sections.size(); ++i)
        patterns[i] = includePattern(sections[i].keyword);

    const QStringList lines = QString::fromUtf8(keymap).split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        if (line.size() > longestLine)
            continue;
        for (std::size_t i = 0; i < sections.size(); ++i) {
            const QRegularExpressionMatch match = patterns[i].match(line);
            if (!match.hasMatch())
                continue;
            replace(names->*sections[i].component, match.captured(1).toUtf8().constData());
            break;
        }
    }
    for (const ComponentSection& section : sections) {
        if (section.required && !(names->*section.component))
            return false;
    }
    preferPlatformGeometry(names);
    return true;
}

void freeComponentNames(XkbComponentNamesRec* names)
{
    for (const ComponentSection& section : sections)
        replace(names->*section.component, nullptr);
}

void copyComponentNames(XkbComponentNamesRec* target, const XkbComponentNamesRec& source)
{
    if (target == &source)
        return;
    for (const ComponentSection& section : sections)
        replace(target->*section.component, source.*section.component);
}
