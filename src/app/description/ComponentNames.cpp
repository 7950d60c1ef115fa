#include "app/description/ComponentNames.h"

#include "x11/X11.h"
#include "x11/qt/ToolkitDisplay.h"

#include <QByteArrayView>
#include <QCursor>
#include <QGuiApplication>
#include <QRegularExpression>
#include <QStringList>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>

using namespace Qt::StringLiterals;

namespace {

using Component = char* XkbComponentNamesRec::*;

// A line is searched for the sections in this order.
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

// Geometries that the platform draws itself, with indicators, captions and a flag holder.
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

// Our geometry in place of the rules' default, which they also give for a model that they do not
// know.
constexpr char fallbackGeometry[] = "pc-arvane(pc104)";
constexpr std::array<const char*, 3> largerBoards{"jp106", "kr106", "abnt2"};

// In characters. An X server takes no names as long as that, and a line made to slow a regular
// expression down could block the program.
constexpr qsizetype longestLine = 8192;

constexpr int toolTimeout = 30000; // milliseconds

void replace(char*& target, const char* text)
{
    std::free(target);
    target = text ? strdup(text) : nullptr;
}

using Patterns = std::array<QRegularExpression, sections.size()>;

// Of the sections' include lines; compiled at the first call.
const Patterns& includePatterns()
{
    static const Patterns patterns = [] {
        Patterns made;
        for (std::size_t i = 0; i < sections.size(); ++i) {
            made[i].setPattern(QLatin1StringView(sections[i].keyword)
                + u"\\s*\\{\\s*include\\s+\"(.*)\"\\s*\\}"_s);
            made[i].optimize();
        }
        return made;
    }();
    return patterns;
}

void preferPlatformGeometry(XkbComponentNamesRec* names)
{
    for (const GeometryReplacement& row : platformGeometries) {
        if (QByteArrayView(names->geometry) == row.printed)
            return replace(names->geometry, row.used);
    }
}

// The rules of many systems do not know the boards with more keys than the default one, and give
// the default for them: keys that the user has would be missing from the picture.
void preferGeometryOfModel(XkbComponentNamesRec* names, const QString& model)
{
    if (QByteArrayView(names->geometry) != fallbackGeometry)
        return;
    for (const char* board : largerBoards) {
        if (model == QLatin1StringView(board))
            return replace(names->geometry, (std::string("pc-arvane(") + board + ")").c_str());
    }
}

QStringList setxkbmapArguments(Display* display, const KeyboardSettings& settings)
{
    QStringList arguments{u"-display"_s, QString::fromLocal8Bit(XDisplayString(display))};
    appendOption(arguments, "-model", settings.model);
    appendOption(arguments, "-layout", settings.layout);
    appendOption(arguments, "-variant", settings.variant);
    appendOption(arguments, "-option", settings.options);
    arguments << u"-print"_s;
    return arguments;
}

// While it lives the user sees a busy pointer, and from its making on a line on standard error.
class BusySign {
public:
    BusySign()
    {
        std::fputs("Waiting for setxkbmap to name the components of the keyboard\n", stderr);
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
        // No event loop runs while the program waits, so nothing else would send the new pointer.
        if (Display* display = toolkitDisplay())
            XFlush(display);
    }
    ~BusySign() { QGuiApplication::restoreOverrideCursor(); }
    BusySign(const BusySign&) = delete;
    BusySign& operator=(const BusySign&) = delete;
};

} // namespace

ComponentQuery::ComponentQuery(Display* display, const KeyboardSettings& settings)
    : model(settings.model)
    , setxkbmap(u"setxkbmap"_s, setxkbmapArguments(display, settings))
{
    includePatterns(); // compiled while setxkbmap runs
}

bool ComponentQuery::answer(XkbComponentNamesRec* names)
{
    *names = {};
    std::optional<BusySign> busy;
    const auto keymap = setxkbmap.output(toolTimeout, [&busy] { busy.emplace(); });
    if (!keymap || !readComponentNames(names, *keymap))
        return false;
    preferGeometryOfModel(names, model);
    return true;
}

bool queryComponentNames(
    XkbComponentNamesRec* names, Display* display, const KeyboardSettings& settings)
{
    return ComponentQuery(display, settings).answer(names);
}

bool readComponentNames(XkbComponentNamesRec* names, const QByteArray& keymap)
{
    const Patterns& patterns = includePatterns();
    const QStringList lines = QString::fromUtf8(keymap).split(u'\n');
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
