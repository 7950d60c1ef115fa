#pragma once

#include <QTranslator>

#include <memory>

// The translations that every application of the platform has beside its own: those of Qt's
// dialogs. A virtual base: constructed before the application and destroyed after it, which keeps a
// pointer to the translator.
class Translators {
public:
    Translators();
    ~Translators();
    Translators(const Translators&) = delete;
    Translators& operator=(const Translators&) = delete;

protected:
    // Loads Qt's translation for the system locale and installs it. To be called once the
    // application object exists. Does nothing when there is no translation for the locale.
    void installToolkitTranslation();

private:
    std::unique_ptr<QTranslator> toolkit;
};
