// A Qt program with a line to type into; says when it has the focus, and what was typed.

#include <QApplication>
#include <QLineEdit>

#include <cstdio>

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QLineEdit line;
    qsizetype printed = 0;
    QObject::connect(&line, &QLineEdit::textEdited, &line, [&printed](const QString& text) {
        std::fputs(qPrintable(text.mid(printed)), stdout);
        std::fflush(stdout);
        printed = text.size();
    });
    QObject::connect(&application, &QApplication::focusChanged, &line, [](QWidget*, QWidget* now) {
        if (now)
            std::fputs("ready\n", stdout);
        std::fflush(stdout);
    });
    line.setGeometry(0, 0, 200, 60);
    line.show();
    return QApplication::exec();
}
