#include "app/description/ServerSettings.h"
#include "harness/XTestMain.h"
#include "harness/XTools.h"

#include <array>

// The settings that a server's keyboard has, by the property in which the tools keep them.
class ServerSettingsTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void whatSetxkbmapHasSetIsRead();
    void thePropertyIsReadAsFarAsItGoes_data();
    void thePropertyIsReadAsFarAsItGoes();
    void withoutThePropertyThereAreNoSettings();
    void aPropertyOfAnotherKindIsNone();
    void whatIsNotSetIsTheServers_data();
    void whatIsNotSetIsTheServers();

private:
    Atom property() const;
    void setProperty(const QByteArray& contents) const;

    XConnection connection;
};

void ServerSettingsTest::initTestCase()
{
    connection = openDisplay(qgetenv("DISPLAY"));
    QVERIFY(connection);
}

Atom ServerSettingsTest::property() const
{
    return XInternAtom(connection.get(), "_XKB_RULES_NAMES", x11::xFalse);
}

void ServerSettingsTest::setProperty(const QByteArray& contents) const
{
    XChangeProperty(connection.get(), DefaultRootWindow(connection.get()), property(), XA_STRING, 8,
        PropModeReplace, reinterpret_cast<const unsigned char*>(contents.constData()),
        int(contents.size()));
}

void ServerSettingsTest::whatSetxkbmapHasSetIsRead()
{
    QVERIFY(setKeyboard(qgetenv("DISPLAY"),
        {QStringLiteral("-model"), QStringLiteral("pc104"), QStringLiteral("-layout"),
            QStringLiteral("us,de"), QStringLiteral("-variant"), QStringLiteral("dvorak,neo"),
            QStringLiteral("-option"), QStringLiteral("compose:ralt")}));
    const KeyboardSettings settings = serverSettings(connection.get());
    QCOMPARE(settings.model, QStringLiteral("pc104"));
    QCOMPARE(settings.layout, QStringLiteral("us,de"));
    QCOMPARE(settings.variant, QStringLiteral("dvorak,neo"));
    QCOMPARE(settings.options, QStringLiteral("compose:ralt"));
}

void ServerSettingsTest::thePropertyIsReadAsFarAsItGoes_data()
{
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<QStringList>("expected"); // model, layout, variant
    const QString none;
    QTest::newRow("empty") << QByteArray() << QStringList{none, none, none};
    QTest::newRow("rules alone") << QByteArray("evdev") << QStringList{none, none, none};
    QTest::newRow("without an end")
        << QByteArray("evdev\0pc105\0us", 14) << QStringList{"pc105", "us", none};
    QTest::newRow("lone commas") << QByteArray("evdev\0pc105\0us,ru\0,\0", 20)
                                 << QStringList{"pc105", "us,ru", none};
    QTest::newRow("the second has a variant")
        << QByteArray("evdev\0pc105\0us,ru\0,mac\0\0", 24) << QStringList{"pc105", "us,ru", ",mac"};
    QTest::newRow("not UTF-8") << QByteArray("evdev\0\xff\xfe\0us\0\0\0", 14)
                               << QStringList{QStringLiteral("\ufffd\ufffd"), "us", none};
}

void ServerSettingsTest::thePropertyIsReadAsFarAsItGoes()
{
    QFETCH(QByteArray, contents);
    setProperty(contents);
    const KeyboardSettings settings = serverSettings(connection.get());
    QTEST((QStringList{settings.model, settings.layout, settings.variant}), "expected");
}

void ServerSettingsTest::withoutThePropertyThereAreNoSettings()
{
    XDeleteProperty(connection.get(), DefaultRootWindow(connection.get()), property());
    const KeyboardSettings settings = serverSettings(connection.get());
    QCOMPARE(settings.model + settings.layout + settings.variant + settings.options, QString());
}

void ServerSettingsTest::aPropertyOfAnotherKindIsNone()
{
    const std::array<long, 3> numbers{1, 2, 3};
    XChangeProperty(connection.get(), DefaultRootWindow(connection.get()), property(), XA_CARDINAL,
        32, PropModeReplace, reinterpret_cast<const unsigned char*>(numbers.data()),
        int(numbers.size()));
    QCOMPARE(serverSettings(connection.get()).layout, QString());
}

void ServerSettingsTest::whatIsNotSetIsTheServers_data()
{
    QTest::addColumn<QStringList>("given"); // model, layout, variant
    QTest::addColumn<QStringList>("expected");
    const QString none;
    QTest::newRow("nothing") << QStringList{none, none, none} << QStringList{"pc105", "de", "neo"};
    QTest::newRow("a model") << QStringList{"pc104", none, none}
                             << QStringList{"pc104", "de", "neo"};
    QTest::newRow("a layout: the server's variant is of another")
        << QStringList{none, "us", none} << QStringList{"pc105", "us", none};
    QTest::newRow("a variant of the server's layout")
        << QStringList{none, none, "T3"} << QStringList{"pc105", "de", "T3"};
    QTest::newRow("all") << QStringList{"pc104", "us", "intl"}
                         << QStringList{"pc104", "us", "intl"};
}

void ServerSettingsTest::whatIsNotSetIsTheServers()
{
    QFETCH(QStringList, given);
    setProperty(QByteArray("evdev\0pc105\0de\0neo\0\0", 20));
    const KeyboardSettings settings =
        withServerSettings({given.at(0), given.at(1), given.at(2), QString()}, connection.get());
    QTEST((QStringList{settings.model, settings.layout, settings.variant}), "expected");
}

KBD_X11_TEST_MAIN(ServerSettingsTest)

#include "tst_serversettings.moc"
