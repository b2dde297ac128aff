#include "GameSettings.h"

#include "Common.h"
#include "NumericText.h"
#include "RecordInsertion.h"
#include "SettingsStore.h"

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

} // namespace

bool ReadSettings()
{
    SettingsStore store(SettingsStore::DefaultFilePath());
    mayWriteFile = store.State() != SettingsStore::FileState::Unreadable;
    listTables(store);
    const bool soundOn = booleanValue(store.Read(GameSection, SoundKey, QStringLiteral("Falso")));
    Common::Level = storedLevel(store.Read(GameSection, LevelKey, QStringLiteral("0")));
    if (store.List(RecordSections[0]).size() != int(RecordTable().size())) {
        dropForeignSections(store);
        resetRecords(store);
        store.Save();
        listTables(store);
    }
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
    dropForeignSections(store);
    deleteRecordSections(store);
    // Rows go in by Append, not Write: a player holding several rows of one table keeps them all.
    for (std::size_t row = 0; row < RecordTable().size(); ++row) {
        for (std::size_t level = 0; level < RecordSections.size(); ++level) {
            const RecordRow &record = RecordsOfLevel(int(level))[row];
            store.Append(RecordSections[level], record.Name, record.Time);
        }
    }
    store.Write(GameSection, SoundKey, booleanText(soundOn, locale));
    store.Write(GameSection, LevelKey, QString::number(Common::Level));
    store.Save();
}
