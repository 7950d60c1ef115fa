#pragma once

#include <QHash>
#include <QString>

// The short texts that key caps carry for keysyms, in the language of the layout that the key
// belongs to. Built once, then only read.
class KbdLabelTable {
public:
    KbdLabelTable();

    // The label of a keysym (X protocol, appendix "Keysym Encoding"). The names are those of XKB,
    // such as "latam"; one that is empty or has no language here changes nothing, and where both
    // name a language, the layout's is spoken. A keysym without a row yields the character that it
    // stands for or, failing that, "Key" and its number.
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

    void fillLanguages();
    void fillLabels();

    QHash<QString, Key> languages; // by layout or variant name; the keysym word is always 0
    QHash<Key, QString> labels;
};
