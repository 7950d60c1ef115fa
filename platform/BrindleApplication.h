#pragma once

#include "platform/InstanceGuard.h"
#include "platform/Translators.h"

#include <QApplication>

#include <memory>

// The platform's application class.
class BrindleApplication : public QApplication, protected virtual Translators {
    Q_OBJECT

public:
    // argc and argv are kept by reference and must outlive the application; Qt removes its own
    // options from them. The three flags mean something to the platform's own class only: they are
    // ignored here.
    BrindleApplication(int& argc, char** argv, bool flag1, bool flag2, bool flag3);
    ~BrindleApplication() override;
    Q_DISABLE_COPY(BrindleApplication)

    // Ends the process with status 0 when another instance runs under this name on the same X
    // display. Otherwise this process is that instance until it ends, however it ends.
    void exitIfRunning(const QString& name);

signals:
    // The keyboard focus has left every window of the application.
    void focusLost();

public slots:
    // The application's focusChanged signal: the widget that had the focus and the one that has it
    // now; null when no widget of this application had or has it.
    void gotFocusChange(QWidget* old, QWidget* now);

private:
    std::unique_ptr<InstanceGuard> guard;
};
