#include "app/KbdApp.h"
#include "app/description/XDisplayClass.h"
#include "keys/KbdDoodad.h"
#include "keys/KbdKey.h"
#include "model/KbdGeometry.h"
#include "ui/CKbdSpecSelector.h"
#include "ui/GroupCombo.h"
#include "ui/KeycapCombo.h"
#include "ui/MainWindow.h"
#include "ui/TypingArea.h"

#include <QMetaMethod>
#include <QMetaProperty>
#include <QTest>

namespace {

const char* kindOf(const QMetaMethod& method)
{
    switch (method.methodType()) {
    case QMetaMethod::Signal:
        return "signal";
    case QMetaMethod::Slot:
        return method.access() == QMetaMethod::Private ? "private slot" : "slot";
    default:
        return "neither signal nor slot";
    }
}

// "slot void setActive(bool) isActive". Qt says double for qreal.
QString describe(const QMetaMethod& method)
{
    return QString("%1 %2 %3 %4")
        .arg(kindOf(method), method.typeName(), QString::fromLatin1(method.methodSignature()),
            QString::fromLatin1(method.parameterNames().join(',')))
        .trimmed();
}

QStringList ownMethods(const QMetaObject& metaObject)
{
    QStringList result;
    for (int i = metaObject.methodOffset(); i < metaObject.methodCount(); ++i)
        result.append(describe(metaObject.method(i)));
    return result;
}

QStringList ownProperties(const QMetaObject& metaObject)
{
    QStringList result;
    for (int i = metaObject.propertyOffset(); i < metaObject.propertyCount(); ++i)
        result.append(metaObject.property(i).name());
    return result;
}

} // namespace

// Signals and slots are found by their text, and by their index: both are as they are documented,
// with the names of their arguments.
class MetaObjectsTest : public QObject {
    Q_OBJECT

private slots:
    void aClassHasItsMethodsInOrder_data();
    void aClassHasItsMethodsInOrder();
    void onlyADoodadHasProperties_data();
    void onlyADoodadHasProperties();
    void aDoodadsPropertiesCanBeReadAndWritten_data();
    void aDoodadsPropertiesCanBeReadAndWritten();
};

void MetaObjectsTest::aClassHasItsMethodsInOrder_data()
{
    QTest::addColumn<const QMetaObject*>("metaObject");
    QTest::addColumn<QStringList>("methods");
    QTest::newRow("KbdApp") << &KbdApp::staticMetaObject
                            << QStringList{
                                   "signal void x11KeyPressEventOut(XKeyEvent*) event",
                                   "signal void x11KeyReleaseEventOut(XKeyEvent*) event",
                                   "signal void x11NewKbdEventOut()",
                                   "signal void x11LockStateChangedOut()",
                                   "private slot void newKeyboard(XkbComponentNamesRec&) names",
                                   "private slot bool x11EventFilter(XEvent*) event",
                               };
    QTest::newRow("XDisplayClass") << &XDisplayClass::staticMetaObject << QStringList();
    QTest::newRow("KbdGeometry")
        << &KbdGeometry::staticMetaObject
        << QStringList{
               "signal void virtualKeyPress(QString&,QString&) symbol,desc",
               "signal void virtualKeyRelease(QString&,QString&) symbol,desc",
               "signal void newFlagFilename(QString) filename",
               "signal void newScale(double) scale",
               "slot void setMultishiftDisplay(bool) isMulti",
               "slot void setGroupNum(KeyGroup_t) groupNum",
               "slot void synthesizeKeyPress(KeyCode) x11Keycode",
               "slot void synthesizeKeyRelease(KeyCode) x11Keycode",
               "slot void x11KeyPressEventIn(XKeyEvent*) event",
               "slot void x11KeyReleaseEventIn(XKeyEvent*) event",
               "slot void x11NewKbdEventIn()",
               "slot void x11LockStateChangedIn()",
               "slot void setFlagFilename(QString) filename",
               "slot void adjustModifierState(KeyType_t,ShiftMask_t) type,mask",
               "slot void modifierPressed(KeyCode,KeyType_t,ShiftMask_t) keycode,type,mask",
               "slot void modifierReleased(KeyCode,KeyType_t,ShiftMask_t) keycode,type,mask",
               "slot void gotVirtualKeyPress(QString&,QString&) symbol,desc",
               "slot void gotVirtualKeyRelease(QString&,QString&) symbol,desc",
           };
    QTest::newRow("KbdKey")
        << &KbdKey::staticMetaObject
        << QStringList{
               "signal void modifierPressed(KeyCode,KeyType_t,ShiftMask_t) keycode,type,mask",
               "signal void modifierReleased(KeyCode,KeyType_t,ShiftMask_t) keycode,type,mask",
               "signal void virtualKeyPress(QString&,QString&) symbol,desc",
               "signal void virtualKeyRelease(QString&,QString&) symbol,desc",
               "signal void mouseKeyPressOut(KeyCode) x11Keycode",
               "signal void mouseKeyReleaseOut(KeyCode) x11Keycode",
               "slot void keyPressEventIn(ShiftMask_t) modifiers",
               "slot void keyPressEventIn()",
               "slot void keyReleaseEventIn(ShiftMask_t) modifiers",
               "slot void keyReleaseEventIn()",
           };
    QTest::newRow("KbdDoodad") << &KbdDoodad::staticMetaObject
                               << QStringList{
                                      "slot void setActive(bool) isActive",
                                      "slot void setFlagFilename(QString) name",
                                      "slot void setScale(double) newScale",
                                  };
    QTest::newRow("MainWindow") << &MainWindow::staticMetaObject
                                << QStringList{
                                       "signal void x11KeyPressEventOut(XKeyEvent*) event",
                                       "signal void x11KeyReleaseEventOut(XKeyEvent*) event",
                                       "signal void x11NewKbdEventOut()",
                                       "signal void x11LockStateChangedOut()",
                                       "signal void qKeyPressEventOut(QKeyEvent*) event",
                                       "signal void qKeyReleaseEventOut(QKeyEvent*) event",
                                       "signal void newKeyboard(XkbComponentNamesRec&) names",
                                       "slot void modeChanged(int) which",
                                       "slot void levelChanged(int) which",
                                       "slot void printButtonClicked(bool) checked",
                                       "slot void newKbdSelected(kbdSpec_t*) spec",
                                       "slot void x11KeyPressEventIn(XKeyEvent*) event",
                                       "slot void x11KeyReleaseEventIn(XKeyEvent*) event",
                                       "slot void x11NewKbdEventIn()",
                                       "slot void x11LockStateChangedIn()",
                                       "slot void keyPressEvent(QKeyEvent*) event",
                                       "slot void keyReleaseEvent(QKeyEvent*) event",
                                   };
    QTest::newRow("CKbdSpecSelector")
        << &CKbdSpecSelector::staticMetaObject
        << QStringList{
               "signal void currentChanged(kbdSpec_t*) values",
               "signal void activated(kbdSpec_t*) values",
               "signal void primaryModelChanged(QString) model",
               "signal void primaryLayoutChanged(QString) layout",
               "signal void primaryVariantChanged(QString) variant",
               "signal void secondaryModelChanged(QString) model",
               "signal void secondaryLayoutChanged(QString) layout",
               "signal void secondaryVariantChanged(QString) variant",
               "slot void setCurrent(QString) specName",
               "slot void setCurrent(QString,QString,QString) model,layout,variantList",
               "slot void selectionChanged(int) newSelection",
               "slot void userSelectionChanged(int) newSelection",
           };
    QTest::newRow("GroupCombo") << &GroupCombo::staticMetaObject
                                << QStringList{
                                       "signal void activated(int) index",
                                       "signal void activatedData(QString) data",
                                       "signal void currentIndexChanged(int) index",
                                       "signal void currentDataChanged(QString) data",
                                       "private slot void internalActivated(int) index",
                                       "private slot void internalCurrentIndexChanged(int) index",
                                   };
    QTest::newRow("KeycapCombo") << &KeycapCombo::staticMetaObject
                                 << QStringList{
                                        "signal void activated(int) index",
                                        "signal void currentIndexChanged(int) index",
                                        "private slot void internalActivated(int) index",
                                        "private slot void internalCurrentIndexChanged(int) index",
                                    };
    QTest::newRow("TypingArea") << &TypingArea::staticMetaObject
                                << QStringList{
                                       "slot void keyPressEvent(QKeyEvent*) event",
                                       "slot void keyReleaseEvent(QKeyEvent*) event",
                                   };
}

void MetaObjectsTest::aClassHasItsMethodsInOrder()
{
    QFETCH(const QMetaObject*, metaObject);
    QFETCH(QStringList, methods);
    QCOMPARE(metaObject->className(), QTest::currentDataTag());
    QCOMPARE(ownMethods(*metaObject), methods);
}

void MetaObjectsTest::onlyADoodadHasProperties_data()
{
    QTest::addColumn<const QMetaObject*>("metaObject");
    QTest::addColumn<QStringList>("properties");
    QTest::newRow("KbdDoodad") << &KbdDoodad::staticMetaObject
                               << QStringList{"active", "filename", "scale"};
    for (const QMetaObject* each : {&KbdApp::staticMetaObject, &XDisplayClass::staticMetaObject,
             &KbdGeometry::staticMetaObject, &KbdKey::staticMetaObject,
             &MainWindow::staticMetaObject, &CKbdSpecSelector::staticMetaObject,
             &GroupCombo::staticMetaObject, &KeycapCombo::staticMetaObject,
             &TypingArea::staticMetaObject})
        QTest::newRow(each->className()) << each << QStringList();
}

void MetaObjectsTest::onlyADoodadHasProperties()
{
    QFETCH(const QMetaObject*, metaObject);
    QFETCH(QStringList, properties);
    QCOMPARE(ownProperties(*metaObject), properties);
}

void MetaObjectsTest::aDoodadsPropertiesCanBeReadAndWritten_data()
{
    QTest::addColumn<QMetaType>("type");
    QTest::newRow("active") << QMetaType::fromType<bool>();
    QTest::newRow("filename") << QMetaType::fromType<QString>();
    QTest::newRow("scale") << QMetaType::fromType<qreal>();
}

void MetaObjectsTest::aDoodadsPropertiesCanBeReadAndWritten()
{
    QFETCH(QMetaType, type);
    const QMetaObject& metaObject = KbdDoodad::staticMetaObject;
    const QMetaProperty property =
        metaObject.property(metaObject.indexOfProperty(QTest::currentDataTag()));
    QVERIFY(property.isReadable());
    QVERIFY(property.isWritable());
    QCOMPARE(property.metaType(), type);
}

QTEST_GUILESS_MAIN(MetaObjectsTest)

#include "tst_metaobjects.moc"
