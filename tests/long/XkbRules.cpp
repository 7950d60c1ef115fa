#include "tests/long/XkbRules.h"

#include <QFile>
#include <QXmlStreamReader>

namespace {

// Takes the lists as they come; a variant belongs to the layout before it.
class ListReader {
public:
    explicit ListReader(XkbRules& rules)
        : lists(rules)
    {
    }

    void read(QIODevice* file)
    {
        xml.setDevice(file);
        while (!xml.atEnd()) {
            if (xml.readNext() != QXmlStreamReader::StartElement)
                continue;
            const QString element = xml.name().toString();
            if (element == QLatin1StringView("name"))
                enter(xml.readElementText());
            else if (kinds.contains(element))
                kind = element;
        }
    }

private:
    void enter(const QString& name)
    {
        if (kind == QLatin1StringView("model"))
            lists.models << name;
        else if (kind == QLatin1StringView("layout"))
            lists.layouts.append({QStringLiteral("pc105"), layout = name, {}, {}});
        else if (kind == QLatin1StringView("variant"))
            lists.layouts.append({QStringLiteral("pc105"), layout, name, {}});
        else if (kind == QLatin1StringView("option"))
            lists.options << name;
    }

    // What a name may be of; a group's own name is of no use here.
    const QStringList kinds{"model", "layout", "variant", "group", "option"};

    XkbRules& lists;
    QXmlStreamReader xml;
    QString kind;
    QString layout;
};

} // namespace

XkbRules XkbRules::read(const QString& directory)
{
    XkbRules rules;
    for (const char* list : {"evdev.xml", "evdev.extras.xml"}) {
        QFile file(directory + QLatin1Char('/') + QLatin1StringView(list));
        if (file.open(QIODevice::ReadOnly))
            ListReader(rules).read(&file);
    }
    return rules;
}

QStringList setxkbmapArguments(const KeyboardSettings& settings)
{
    return {"-model", settings.model, "-layout", settings.layout, "-variant", settings.variant,
        "-option", "", "-option", settings.options};
}

QString textOf(const KeyboardSettings& settings)
{
    return QStringList{settings.model, settings.layout, settings.variant, settings.options}.join(
        QLatin1Char('/'));
}
