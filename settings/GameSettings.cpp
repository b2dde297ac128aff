#include "GameSettings.h"

#include "Common.h"
#include "NumericText.h"
#include "RecordInsertion.h"
#include "SettingsStore.h"

#include <algorithm>
#include <array>

namespace {

const QString GameSection = QStringLiteral("Game");
const QString SoundKey = QStringLiteral("Sound");
const QString LevelKey = QStringLiteral("Level");

// Section names in level order: Easy, Medium, Hard.
const std::array<QString, 3> RecordSections = {QStringLiteral("Easy"), QStringLiteral("Medium"),
                                               QStringLiteral("Hard")};

// False once start-up found a file it could not read: what that file holds is never written over.
bool mayWriteFile = true;

// What the file held when this run started, to tell what another instance saved since.
std::array<QList<SettingsStore::Entry>, 3> rowsAtStart;
bool soundAtStart = false;
int levelAtStart = Common::LevelEasy;

QString placeholderName(int row)
{
    return QStringLiteral("Player") + QString::number(row + 1);
}

QString booleanText(bool value, const QLocale &locale)
{
    if (locale.language() == QLocale::Italian)
        return value ? QStringLiteral("Vero") : QStringLiteral("Falso");
    return value ? QStringLiteral("True") : QStringLiteral("False");
}

// Either language's words are accepted, so a change of locale between runs keeps the switch;
// a text that is not a Boolean word leaves sound off.
bool booleanValue(const QString &text)
{
    return text.compare(u"True", Qt::CaseInsensitive) == 0 ||
           text.compare(u"Vero", Qt::CaseInsensitive) == 0;
}

int storedLevel(const QString &text)
{
    const int level = WholeValue(NumericValue(text));
    return level >= Common::LevelEasy && level <= Common::LevelHard ? level : Common::LevelEasy;
}

// The listed rows in order, filled up with placeholder rows or cut to five.
RecordTable fittedTable(const QList<SettingsStore::Entry> &entries)
{
    RecordTable table;
    for (int row = 0; row < int(table.size()); ++row) {
        table[row] = row < entries.size() ? RecordRow{entries[row].Key, entries[row].Value}
                                          : RecordRow{placeholderName(row), UnwonTime};
    }
    return table;
}

void listTables(const SettingsStore &store)
{
    for (std::size_t level = 0; level < RecordSections.size(); ++level)
        RecordsOfLevel(int(level)) = fittedTable(store.List(RecordSections[level]));
}

void deleteRecordSections(SettingsStore &store)
{
    for (const QString &section : RecordSections)
        store.DeleteSection(section);
}

// A file that was not read whole is saved with the game's own sections only; the save keeps
// its original aside.
void dropForeignSections(SettingsStore &store)
{
    if (store.State() == SettingsStore::FileState::Damaged)
        store.KeepOnlySections(
            {GameSection, RecordSections[0], RecordSections[1], RecordSections[2]});
}

void resetRecords(SettingsStore &store)
{
    deleteRecordSections(store);
    for (int row = 0; row < int(RecordTable().size()); ++row) {
        for (const QString &section : RecordSections)
            store.Write(section, placeholderName(row), UnwonTime);
    }
}

bool holdsRecords(const SettingsStore &store)
{
    return std::any_of(RecordSections.begin(), RecordSections.end(),
                       [&store](const QString &section) { return !store.List(section).isEmpty(); });
}

bool holdsOption(const SettingsStore &store, const QString &key)
{
    const QList<SettingsStore::Entry> options = store.List(GameSection);
    return std::any_of(options.begin(), options.end(),
                       [&key](const SettingsStore::Entry &option) { return option.Key == key; });
}

// The rows stored now that were not stored when this run started, each counted once.
QList<SettingsStore::Entry> rowsAddedSinceStart(const SettingsStore &store, int level)
{
    QList<SettingsStore::Entry> added = store.List(RecordSections[level]);
    for (const SettingsStore::Entry &row : rowsAtStart[level]) {
        if (const qsizetype found = added.indexOf(row); found >= 0)
            added.remove(found);
    }
    return added;
}

// Each row goes where a win of its time would go, behind the rows of an equal time.
void insertRows(RecordTable &table, const QList<SettingsStore::Entry> &rows)
{
    for (const SettingsStore::Entry &row : rows) {
        const int at = RecordRowFor(table, WholeValue(NumericValue(row.Value)));
        if (at < 0)
            continue;
        MakeRoomAt(table, at);
        table[at] = {row.Key, row.Value};
    }
}

void saveSayingWhyNot(SettingsStore &store)
{
    // An unreadable file has already said so, when it was read.
    if (!store.Save() && store.State() != SettingsStore::FileState::Unreadable)
        qWarning("Velkaro: the settings could not be saved to %s (%s); the records and options "
                 "of this game are lost.",
                 qUtf8Printable(SettingsStore::DefaultFilePath()),
                 qUtf8Printable(store.SaveError()));
}

} // namespace

bool ReadSettings()
{
    SettingsStore store(SettingsStore::DefaultFilePath());
    mayWriteFile = store.State() != SettingsStore::FileState::Unreadable;
    listTables(store);
    const bool soundOn = booleanValue(store.Read(GameSection, SoundKey, QStringLiteral("Falso")));
    Common::Level = storedLevel(store.Read(GameSection, LevelKey, QStringLiteral("0")));
    if (store.List(RecordSections[0]).size() != int(RecordTable().size())) {
        if (holdsRecords(store))
            store.MarkDamaged();
        dropForeignSections(store);
        resetRecords(store);
        saveSayingWhyNot(store);
        listTables(store);
    }
    for (std::size_t level = 0; level < RecordSections.size(); ++level)
        rowsAtStart[level] = store.List(RecordSections[level]);
    soundAtStart = soundOn;
    levelAtStart = Common::Level;
    return soundOn;
}

void WriteSettings(bool soundOn)
{
    WriteSettings(soundOn, QLocale::system());
}

void WriteSettings(bool soundOn, const QLocale &locale)
{
    if (!mayWriteFile)
        return;
    SettingsStore store(SettingsStore::DefaultFilePath());
    std::array<RecordTable, 3> tables;
    for (std::size_t level = 0; level < RecordSections.size(); ++level) {
        tables[level] = RecordsOfLevel(int(level));
        insertRows(tables[level], rowsAddedSinceStart(store, int(level)));
        if (store.List(RecordSections[level]).size() > int(RecordTable().size()))
            store.MarkDamaged(); // rows beyond five would be dropped
    }
    dropForeignSections(store);
    deleteRecordSections(store);
    // Rows go in by Append, not Write: a player holding several rows of one table keeps them all.
    for (std::size_t row = 0; row < RecordTable().size(); ++row) {
        for (std::size_t level = 0; level < RecordSections.size(); ++level)
            store.Append(RecordSections[level], tables[level][row].Name, tables[level][row].Time);
    }
    // An option this run left as it found it keeps what another instance stored since.
    if (soundOn != soundAtStart || !holdsOption(store, SoundKey))
        store.Write(GameSection, SoundKey, booleanText(soundOn, locale));
    if (Common::Level != levelAtStart || !holdsOption(store, LevelKey))
        store.Write(GameSection, LevelKey, QString::number(Common::Level));
    saveSayingWhyNot(store);
}
