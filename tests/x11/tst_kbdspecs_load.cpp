#include "app/description/ComponentNames.h"
#include "harness/XTestMain.h"
#include "harness/XTools.h"
#include "model/GroupLayouts.h"
#include "ui/specs/SpecTable.h"
#include "x11/X11.h"
#include "x11/XkbDescription.h"

namespace {

// A full-size keyboard; the ANSI shape has the fewest.
constexpr int fewestKeys = 104;

int keyCount(const XkbGeometryRec& geometry)
{
    int count = 0;
    for (int i = 0; i < geometry.num_sections; ++i)
        for (int j = 0; j < geometry.sections[i].num_rows; ++j)
            count += geometry.sections[i].rows[j].num_keys;
    return count;
}

// Whether any key has a symbol in the group, counted from 0.
bool hasSymbols(XkbDescRec* xkb, int group)
{
    for (int code = xkb->min_key_code; code <= xkb->max_key_code; ++code) {
        if (group >= XkbKeyNumGroups(xkb, code))
            continue;
        for (int level = 0; level < XkbKeyGroupWidth(xkb, code, group); ++level)
            if (XkbKeySymEntry(xkb, code, level, group) != x11::none)
                return true;
    }
    return false;
}

} // namespace

// Every keyboard of the shipped spec table, compiled by a real X server.
class KbdSpecsLoadTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void everyEntryGivesAKeyboardWithAPictureAndItsGroups_data();
    void everyEntryGivesAKeyboardWithAPictureAndItsGroups();
    void anUnknownLayoutGivesNone();

private:
    XConnection connection;
};

void KbdSpecsLoadTest::initTestCase()
{
    connection = openDisplay(qgetenv("DISPLAY"));
    QVERIFY(connection);
}

void KbdSpecsLoadTest::everyEntryGivesAKeyboardWithAPictureAndItsGroups_data()
{
    QTest::addColumn<QString>("model");
    QTest::addColumn<QString>("layout");
    QTest::addColumn<QString>("variant");

    const auto rows = SpecTable::rowsOf(QStringLiteral(KBD_SPECS_FILE));
    QVERIFY(rows && rows->size() > 0);
    for (const SpecRow& row : rows->all()) {
        const QString english = row.name.section(QLatin1String(" ["), 0, 0);
        QTest::newRow(qUtf8Printable(english)) << row.model << row.layout << row.variant;
    }
}

void KbdSpecsLoadTest::everyEntryGivesAKeyboardWithAPictureAndItsGroups()
{
    QFETCH(QString, model);
    QFETCH(QString, layout);
    QFETCH(QString, variant);

    XkbComponentNamesRec names{};
    const ComponentNamesGuard guard(&names);
    QVERIFY(queryComponentNames(&names, connection.get(), model, layout, variant, QString()));
    const QStringList layouts = layout.split(QLatin1Char(','));
    QCOMPARE(groupLayoutsOf(QString::fromLatin1(names.symbols)).size(), layouts.size());

    const XkbDescription xkb = compileKeyboard(connection.get(), names);
    QVERIFY(xkb);
    QVERIFY(keyCount(*xkb->geom) >= fewestKeys);
    for (int group = 0; group < layouts.size(); ++group) {
        QVERIFY(hasSymbols(xkb.get(), group));
        QVERIFY(xkb->names->groups[group] != x11::none);
    }
}

void KbdSpecsLoadTest::anUnknownLayoutGivesNone()
{
    XkbComponentNamesRec names{};
    const ComponentNamesGuard guard(&names);
    QVERIFY(queryComponentNames(&names, connection.get(), QStringLiteral("pc105"),
        QStringLiteral("nowhere"), QString(), QString()));
    QVERIFY(!compileKeyboard(connection.get(), names));
}

KBD_X11_TEST_MAIN(KbdSpecsLoadTest)

#include "tst_kbdspecs_load.moc"
