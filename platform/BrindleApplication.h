#pragma once

#include "platform/InstanceGuard.h"
#include "platform/Translators.h"

#include <QApplication>

#include <memory>

// The platform's application class.
class BrindleApplication : public QApplication, protected virtual Translators {
    Q_OBJECT

public:
    // argc and argv are kept by reference and must outlive the application; Qt takes its own
    // options out of them. The three flags are there for the platform's own class; this one ignores
    // them.
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
    // Connected to focusChanged: the widget that had the focus and the widget that has it now, each
    // null when no widget of this program does.
    void gotFocusChange(QWidget* old, QWidget* now);

private:
    std::unique_ptr<InstanceGuard> guard;
};
