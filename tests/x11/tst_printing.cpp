#include "app/description/ComponentNames.h"
#include "harness/XTestMain.h"
#include "harness/XTools.h"
#include "keys/KbdKey.h"
#include "model/KbdGeometry.h"
#include "ui/MainWindow.h"
#include "x11/X11.h"
#include "x11/qt/ToolkitDisplay.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>

#include <functional>
#include <memory>

namespace {

// The colours of the two schemes that only one of them has.
constexpr QRgb screenTop = qRgb(68, 68, 68);
constexpr QRgb paperModifierTop = qRgb(204, 204, 204);
constexpr QRgb paperDeadTop = qRgb(204, 255, 255);

int countOf(const QImage& image, QRgb colour)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += (image.pixel(x, y) & RGB_MASK) == (colour & RGB_MASK);
    }
    return count;
}

// The first page of a PDF file at 150 dots per inch; null when there is none.
QImage pageOf(const QString& file)
{
    QProcess renderer;
    renderer.start(QStringLiteral("pdftoppm"),
        {QStringLiteral("-png"), QStringLiteral("-r"), QStringLiteral("150"),
            QStringLiteral("-singlefile"), file, file});
    renderer.waitForFinished();
    return QImage(file + QStringLiteral(".png"));
}

// The part of a page that is not blank.
QRect inkOf(const QImage& page)
{
    QRect ink;
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x) {
            if ((page.pixel(x, y) & RGB_MASK) != RGB_MASK)
                ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

} // namespace

class PrintingTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { window.reset(); }

    void thePageShowsThePictureInTheColoursForPaper();
    void thePictureFillsThePagesWidthAndKeepsItsProportions();
    void theScreenPictureIsAsBeforeAfterwards();
    void cancellingPrintsNothingAndChangesNothing();
    void aPlaceThatCannotBeWrittenPrintsNothingAndChangesNothing();

private:
    // Clicks the window's Print button and hands the dialog that opens to the visitor.
    void printWith(const std::function<void(QPrintDialog*)>& visitor);
    void printTo(const QString& file);
    QImage picture() const { return window->picture()->grab().toImage(); }

    QTemporaryDir directory;
    std::unique_ptr<MainWindow> window;
};

void PrintingTest::init()
{
    const QString model = QStringLiteral("pc105");
    const QString layout = QStringLiteral("de");
    XkbComponentNamesRec names{};
    const ComponentNamesGuard guard(&names);
    QVERIFY(queryComponentNames(&names, toolkitDisplay(), model, layout, QString(), QString()));
    window = std::make_unique<MainWindow>(
        model, layout, QString(), QString(), &names, false, nullptr, Qt::WindowFlags());
    window->placeOnScreen(false);
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
}

void PrintingTest::printWith(const std::function<void(QPrintDialog*)>& visitor)
{
    QTimer poll;
    connect(&poll, &QTimer::timeout, &poll, [&] {
        auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible())
            return;
        poll.stop();
        visitor(dialog);
    });
    poll.start(5);
    const QList<QPushButton*> buttons = window->findChildren<QPushButton*>();
    for (QPushButton* button : buttons) {
        if (button->text() == QLatin1String("Print"))
            button->click();
    }
    QVERIFY(!poll.isActive());
}

void PrintingTest::printTo(const QString& file)
{
    printWith([&file](QPrintDialog* dialog) {
        // Where no printer is set up the dialog offers a file, in this field.
        auto* fileName = dialog->findChild<QLineEdit*>(QStringLiteral("filename"));
        fileName->setText(file);
        // A refusal is a message box over the dialog.
        QTimer::singleShot(0, dialog, [dialog] {
            if (auto* refusal = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                refusal->accept();
                dialog->reject();
            }
        });
        dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
        if (dialog->isVisible())
            dialog->reject();
    });
}

void PrintingTest::thePageShowsThePictureInTheColoursForPaper()
{
    const QString file = directory.filePath(QStringLiteral("colours.pdf"));
    printTo(file);
    const QImage page = pageOf(file);
    QVERIFY(!page.isNull());
    QVERIFY(countOf(page, paperModifierTop) > 200);
    QVERIFY(countOf(page, paperDeadTop) > 50);
    // The edges of black letters come in every grey, but no key is of this one.
    QVERIFY(countOf(page, screenTop) < 500);
}

void PrintingTest::thePictureFillsThePagesWidthAndKeepsItsProportions()
{
    const QString file = directory.filePath(QStringLiteral("size.pdf"));
    printTo(file);
    const QImage page = pageOf(file);
    const QRect ink = inkOf(page);
    QVERIFY(ink.width() > page.width() * 8 / 10);
    const QRectF ground = window->picture()->sceneRect().adjusted(0, 0, 0, -80);
    const double proportions = double(ink.width()) / ink.height();
    // The captions below the ground are ink as well.
    QVERIFY(proportions <= ground.width() / ground.height() + 0.05);
    QVERIFY(proportions >= ground.width() / (ground.height() + 80) - 0.05);
}

void PrintingTest::theScreenPictureIsAsBeforeAfterwards()
{
    const QImage before = picture();
    printTo(directory.filePath(QStringLiteral("after.pdf")));
    QCOMPARE(picture(), before);
}

void PrintingTest::cancellingPrintsNothingAndChangesNothing()
{
    const QImage before = picture();
    QImage during;
    printWith([&](QPrintDialog* dialog) {
        during = picture();
        dialog->reject();
    });
    QCOMPARE(during, before);
    QCOMPARE(picture(), before);
}

void PrintingTest::aPlaceThatCannotBeWrittenPrintsNothingAndChangesNothing()
{
    const QImage before = picture();
    const QString file = QStringLiteral("/proc/no/such/place.pdf");
    printTo(file);
    QVERIFY(!QFile::exists(file));
    QCOMPARE(picture(), before);
}

KBD_X11_TEST_MAIN(PrintingTest)
#include "tst_printing.moc"
