#include <QByteArray>
#include <QtGlobal>

namespace {

// Before main makes the application, also when the test is started by hand: these tests need no
// display, and open no windows on one.
[[maybe_unused]] const bool isOffscreen = qputenv("QT_QPA_PLATFORM", "offscreen");

} // namespace
