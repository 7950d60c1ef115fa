// The program with a user who picks one entry of the list, whose number stands in the environment
// variable KBD_CHOICE, looks at the picture for a moment and closes the window. Ends with status 3
// when the list has no such entry.

#include "app/KbdApp.h"
#include "harness/TopLevelWindow.h"
#include "ui/CKbdSpecSelector.h"
#include "ui/MainWindow.h"

#include <QTimer>

#include <cstdlib>

namespace {

constexpr int lookMs = 200;
constexpr int noSuchEntry = 3;

void choose()
{
    auto* selector = topLevelWindow<MainWindow>()->findChild<CKbdSpecSelector*>();
    const int entry = qEnvironmentVariableIntValue("KBD_CHOICE");
    if (!selector || entry >= selector->count())
        std::exit(noSuchEntry);
    selector->setCurrentIndex(entry);
    emit selector->QComboBox::activated(entry);
    QTimer::singleShot(lookMs, qApp, &QCoreApplication::quit);
}

} // namespace

int main(int argc, char** argv)
{
    try {
        KbdApp application(argc, argv);
        QTimer::singleShot(0, &application, choose);
        return QApplication::exec();
    } catch (KbdApp::ExceptionType exception) {
        KbdApp::report(exception);
        return EXIT_FAILURE;
    }
}
