#include "platform/BrindleApplication.h"

#include <cstdio>
#include <cstdlib>

BrindleApplication::BrindleApplication( // NOLINT(readability-function-size): the signature is given
    int& argc, char** argv, bool, bool, bool)
    : QApplication(argc, argv)
{
    installQtTranslation();
    // By text, as in the platform's own class: disconnecting takes the same form.
    connect(this, SIGNAL(focusChanged(QWidget*, QWidget*)), this,
        SLOT(gotFocusChange(QWidget*, QWidget*)));
}

BrindleApplication::~BrindleApplication() = default;

void BrindleApplication::exitIfRunning(const QString& name)
{
    const auto* x11Application = nativeInterface<QNativeInterface::QX11Application>();
    if (!x11Application || !x11Application->display())
        return; // no X display on which another instance could be found

    guard = std::make_unique<InstanceGuard>(x11Application->display(), name.toUtf8());
    if (guard->isOwner())
        return;
    std::fprintf(stderr, "%s is running on this display already.\n", name.toUtf8().constData());
    std::exit(EXIT_SUCCESS);
}

void BrindleApplication::gotFocusChange(QWidget*, QWidget* now)
{
    if (!now)
        emit focusLost();
}
