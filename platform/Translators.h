#pragma once

#include <QTranslator>

#include <memory>

// The translations that every application of the platform has beside its own: those of Qt's
// dialogs. That it is a virtual base is given: it is made before the application and destroyed
// after it.
class Translators {
public:
    Translators();
    ~Translators();
    Translators(const Translators&) = delete;
    Translators& operator=(const Translators&) = delete;

protected:
    // Loads Qt's translation for the system locale and installs it. Needs the application object.
    // Does nothing when there is no translation for the locale.
    void installQtTranslation();

private:
    std::unique_ptr<QTranslator> qtTexts;
};
