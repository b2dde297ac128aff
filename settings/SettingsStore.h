#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
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
// Reading is forgiving and keeps whatever it can: a section that appears twice is merged into
// the first, CRLF line ends and ';' comment lines are accepted, and anything else that the
// game does not write makes the file Damaged but stops nothing: lines with neither a section
// header nor '=' and values before the first header are skipped, as are lines longer than
// 1 MiB (line end included); invalid UTF-8 becomes replacement characters, and so do other
// text encodings; a cut-off last line is read; reading stops after 64 MiB. A key or a value
// whose escaped form would take more than half a line is cut to fit, and that too is damage:
// whatever the store writes, it reads back whole.
//
// The file is never lost by saving over it: a file that exists but cannot be read is never
// written over, and the first save over a damaged file first keeps it, byte for byte, as
// "<file>.damaged", created as a new file. A copy made from another original is never
// replaced: the next free name of ".damaged.2" to ".damaged.9" is taken, and when none is
// free the save fails. An original already kept under one of these names is not kept again.
class SettingsStore
{
public:
    struct Entry
    {
        QString Key;
        QString Value;

        bool operator==(const Entry &) const = default;
    };

    enum class FileState
    {
        Missing,    // nothing at the path: Save creates the file
        Whole,      // every line read and understood
        Damaged,    // read as far as it could be; Save keeps the original aside first
        Unreadable, // something at the path that cannot be read: Save refuses
    };

    // $XDG_CONFIG_HOME/Velkaro/Velkaro.ini, with $HOME/.config when the variable is unset, empty
    // or not an absolute path. Read from the environment at every call.
    static QString DefaultFilePath();

    // Loads what can be read of the file at filePath; never fails. An unreadable file, or
    // something other than a regular file at that path, gives an empty store and a warning.
    explicit SettingsStore(QString filePath);

    FileState State() const;

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
    // Removes every section whose name is not one of names.
    void KeepOnlySections(const QStringList &names);

    // The next save keeps the file as it was read, as for a damaged file, before it drops
    // anything of it. A missing or unreadable file stays as it is.
    void MarkDamaged();

    // Writes the whole store to the file in one atomic step, creating its folder when missing,
    // and removes the temporary files that an earlier save cut short by a kill left beside it.
    // Returns false, leaving any old file untouched and SaveError saying why, when the file
    // cannot be written, was Unreadable, or was Damaged and its copy could not be kept. After
    // a save the file is Whole.
    bool Save();
    QString SaveError() const;

    // The file content that Save writes.
    QString Text() const;

private:
    struct Section
    {
        QString Name;
        QList<Entry> Entries;
    };

    void Load();
    void RefuseSaving(const QString &reason);
    bool KeepDamagedOriginal();
    bool AddLine(QStringView line, Section *&current);
    const Section *Find(QStringView name) const;
    Section &FindOrAdd(const QString &name);
    void IndexSections();

    QString m_filePath;
    FileState m_state = FileState::Missing;
    QString m_saveError;
    QList<Section> m_sections;
    QHash<QString, qsizetype> m_sectionIndex; // position of each section in m_sections
};
