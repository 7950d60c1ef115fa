#pragma once

#include <QApplication>

// The application's window of this class, such as MainWindow; null when there is none. The
// application owns it. Where there are several, any of them.
template <typename Window>
Window* topLevelWindow()
{
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWidget* widget : widgets) {
        if (auto* window = qobject_cast<Window*>(widget))
            return window;
    }
    return nullptr;
}
