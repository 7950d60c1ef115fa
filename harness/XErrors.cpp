#include "harness/XErrors.h"

#include "x11/X11.h"

#include <QtTest/qtestcase.h>

#include <array>

namespace {

QByteArray describe(Display* display, const XErrorEvent* error)
{
    std::array<char, 128> words{};
    XGetErrorText(display, error->error_code, words.data(), static_cast<int>(words.size()));
    return QByteArray("X error: ") + words.data() + ", request "
        + QByteArray::number(error->request_code) + '.' + QByteArray::number(error->minor_code)
        + ", resource 0x" + QByteArray::number(qulonglong(error->resourceid), 16);
}

int failTest(Display* display, XErrorEvent* error)
{
    QTest::qFail(describe(display, error).constData(), __FILE__, __LINE__);
    return 0;
}

QStringList& keptErrors()
{
    static QStringList errors;
    return errors;
}

int keepError(Display* display, XErrorEvent* error)
{
    keptErrors().append(QString::fromLatin1(describe(display, error)));
    return 0;
}

QtMessageHandler& usualMessageHandler()
{
    static QtMessageHandler handler = nullptr;
    return handler;
}

// Errors on Qt's own connection reach no handler of Xlib's: Qt warns of them.
void keepWarning(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (text.contains(QLatin1StringView("XCB error")))
        keptErrors().append(text);
    else
        usualMessageHandler()(type, context, text);
}

} // namespace

void failOnXErrors()
{
    XSetErrorHandler(failTest);
}

ExpectedXErrors::ExpectedXErrors()
    : previous(XSetErrorHandler(keepError))
    , previousOfQt(qInstallMessageHandler(keepWarning))
{
    if (previousOfQt != keepWarning)
        usualMessageHandler() = previousOfQt;
    keptErrors().clear();
}

ExpectedXErrors::~ExpectedXErrors()
{
    XSetErrorHandler(previous);
    qInstallMessageHandler(previousOfQt);
}

QStringList ExpectedXErrors::seen()
{
    return keptErrors();
}
