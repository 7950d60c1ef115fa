#pragma once

#include <QTranslator>

#include <memory>

// The translations that every application of the platform has beside its own: those of the
// toolkit's dialogs. A virtual base, so that it is there before the application and goes after it.
class Translators {
public:
    Translators();
    ~Translators();
    Translators(const Translators&) = delete;
    Translators& operator=(const Translators&) = delete;

protected:
    // Loads the toolkit's translation for the system locale and installs it. Needs the
    // application object; without a translation for the locale nothing happens.
    void installToolkitTranslation();

private:
    std::unique_ptr<QTranslator> toolkit;
};
