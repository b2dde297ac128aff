#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringView>

// The per-user settings file: named sections of text values, each addressed by a key.
//
// This is our own small INI store rather than QSettings because QSettings lists a section's
// keys sorted, while the hall of fame is a section whose values must come back in the order
// they were written. A section may also hold several values under one key (Append), so that
// one player's several records are all kept.
//
// The file is UTF-8 text, written through the escaping of IniEscaping.h:
//   [Section]
//   Key=Value
//   Key #2=Value      (second value under the same key; #3 for the third, and so on)
// Escaped keys never contain a raw '#', so the " #n" ending cannot be part of any key.
// Reading is forgiving: the first 8 MiB of the file are read, lines with neither a section header
// nor '=' are skipped, as are ';' comment lines and values before the first header; a section
// that appears twice is merged into the first; CRLF line ends are accepted; invalid UTF-8
// becomes replacement characters. Whatever cannot be read is simply missing from the store,
// and the next Save writes a clean file.
class SettingsStore
{
public:
    struct Entry
    {
        QString Key;
        QString Value;

        bool operator==(const Entry &) const = default;
    };

    // $XDG_CONFIG_HOME/Velkaro/Velkaro.ini, with $HOME/.config when the variable is unset, empty
    // or not an absolute path. Read from the environment at every call.
    static QString DefaultFilePath();

    // Loads what can be read of the file at filePath. A missing, unreadable or damaged file,
    // or something other than a regular file at that path, never fails: it gives an empty
    // store or whatever parts of the file could be read.
    explicit SettingsStore(QString filePath);

    // The first value stored under key, or defaultText when the key or its section is missing.
    QString Read(QStringView section, QStringView key, const QString &defaultText) const;
    // The section's values in stored order; empty when the section is missing.
    QList<Entry> List(QStringView section) const;
    // Creates the section as needed; replaces the value of an existing key, which keeps its
    // place (and loses any further values under the same key), or adds the key at the end.
    void Write(const QString &section, const QString &key, const QString &value);
    // Adds a value at the end of the section, even when the key is already there.
    void Append(const QString &section, const QString &key, const QString &value);
    // Removes the section and its values; a missing section is no error.
    void DeleteSection(QStringView section);

    // Writes the whole store to the file in one atomic step, creating its folder when missing.
    // Returns false, leaving any old file untouched, when the file cannot be written.
    bool Save() const;

    // The file content that Save writes.
    QString Text() const;

private:
    struct Section
    {
        QString Name;
        QList<Entry> Entries;
    };

    void Load();
    void AddLine(QStringView line, Section *&current);
    const Section *Find(QStringView name) const;
    Section &FindOrAdd(const QString &name);

    QString m_filePath;
    QList<Section> m_sections;
    QHash<QString, qsizetype> m_sectionIndex; // position of each section in m_sections
};
