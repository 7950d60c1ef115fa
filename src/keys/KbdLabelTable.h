#pragma once

#include <QHash>
#include <QString>

// The short texts that key caps carry for keysyms, in the language of a layout. Only read once
// it is there; all tables share their rows, which the first one builds.
class KbdLabelTable {
public:
    KbdLabelTable();

    // The label of a keysym (X protocol, appendix "Keysym Encoding"). Layout and variant have XKB's
    // names, such as "latam"; a name that is empty, or that the table gives no language, changes
    // nothing; where both have a language, the layout's counts. A keysym without a row gets the
    // character that it stands for or, when there is none, "Key" and its number.
    QString label(quint32 keysym, const QString& layoutName, const QString& variantName) const;

private:
    struct Key {
        quint32 keysym = 0;
        quint32 languages = 0;

        friend bool operator==(const Key&, const Key&) = default;
        friend Key operator|(const Key& a, const Key& b)
        {
            return {a.keysym | b.keysym, a.languages | b.languages};
        }
        friend size_t qHash(const Key& key, size_t seed = 0)
        {
            return ::qHash(quint64{key.languages} << 32 | key.keysym, seed);
        }
    };

    static QHash<QString, Key> languagesOfRows();
    static QHash<Key, QString> labelsOfRows();

    QHash<QString, Key> languages; // by layout or variant name; the keysym word is always 0
    QHash<Key, QString> labels;
};
