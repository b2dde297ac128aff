#include "SettingsStore.h"

#include "AtomicFile.h"
#include "IniEscaping.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>

#include <QStringDecoder>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace {

// Far more than the longest line a player's name makes (at most 32767 characters, each escaped
// to at most six bytes) and than the largest file (fifteen such names and their times).
constexpr qint64 MaxLineBytes = 1 << 20;
constexpr qint64 MaxReadBytes = 64 << 20;
// A key or a value takes at most half a line once escaped, with room for " #n", '=' and the
// line end, so that whatever is written is read back.
constexpr qsizetype MaxTextBytes = MaxLineBytes / 2 - 16;
// ".damaged", then ".damaged.2" to ".damaged.9".
constexpr int MaxDamagedCopies = 9;

bool isBlank(QChar c)
{
    return c == u' ' || c == u'\t' || c == u'\r';
}

QStringView trimmed(QStringView text)
{
    while (!text.isEmpty() && isBlank(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && isBlank(text.back()))
        text.chop(1);
    return text;
}

bool isDigits(QStringView text)
{
    return !text.isEmpty() &&
           std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

// The escaped key without the " #n" ending that marks a repeated key.
QStringView withoutRepeatMark(QStringView rawKey)
{
    const qsizetype mark = LastIndexOfRaw(rawKey, u'#');
    if (mark < 0 || !isDigits(rawKey.sliced(mark + 1)))
        return rawKey;
    return trimmed(rawKey.first(mark));
}

// Bytes the game never writes: invalid UTF-8, and control characters but tab and CR.
bool isForeignText(QByteArrayView line)
{
    return !line.isValidUtf8() || std::any_of(line.begin(), line.end(), [](char c) {
        return (uchar(c) < 0x20 && c != '\t' && c != '\r') || c == 0x7f;
    });
}

// Reads on to just past the next line end, or as far as reading goes.
void skipRestOfLine(QFile &file, QByteArray &buffer)
{
    while (!file.atEnd() && file.pos() < MaxReadBytes) {
        const qint64 length = file.readLine(buffer.data(), buffer.size());
        if (length <= 0 || buffer[length - 1] == '\n')
            return;
    }
}

// The text cut at its end until its escaped form fits in MaxTextBytes.
QString fitted(QString text, QString (*escape)(QStringView))
{
    for (qsizetype bytes; (bytes = escape(text).toUtf8().size()) > MaxTextBytes;)
        text.chop((bytes - MaxTextBytes) * text.size() / bytes + 1); // in proportion to the excess
    return text;
}

SettingsStore::Entry fittedEntry(const SettingsStore::Entry &entry)
{
    return {fitted(entry.Key, EscapedIniKey), fitted(entry.Value, EscapedIniValue)};
}

// UTF-8 as it is: unlike QString::fromUtf8, a byte-order mark that starts the line is kept.
QString decodedLine(QByteArrayView line)
{
    QStringDecoder decoder(QStringConverter::Utf8, QStringConverter::Flag::ConvertInitialBom);
    return decoder(line);
}

bool isSameFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return !QFileInfo(path).isSymLink() && file.size() == bytes.size() &&
           file.open(QIODevice::ReadOnly) && file.readAll() == bytes;
}

} // namespace

QString SettingsStore::DefaultFilePath()
{
    QString base = qEnvironmentVariable("XDG_CONFIG_HOME");
    if (base.isEmpty() || !QDir::isAbsolutePath(base))
        base = QDir::homePath() + QStringLiteral("/.config");
    return base + QStringLiteral("/Velkaro/Velkaro.ini");
}

SettingsStore::SettingsStore(QString filePath) : m_filePath(std::move(filePath))
{
    Load();
}

SettingsStore::FileState SettingsStore::State() const
{
    return m_state;
}

void SettingsStore::Load()
{
    const QFileInfo info(m_filePath);
    if (!info.exists())
        return;
    // Only a regular file is opened: a folder or a pipe at this path would fail or block.
    if (!info.isFile())
        return RefuseSaving(QStringLiteral("not a regular file"));
    QFile file(m_filePath);
    if (!file.open(QIODevice::ReadOnly))
        return RefuseSaving(file.errorString());

    m_state = FileState::Whole;
    if (file.peek(3) == "\xEF\xBB\xBF")
        file.skip(3);
    QByteArray buffer(MaxLineBytes + 1, Qt::Uninitialized); // readLine keeps one byte for a NUL
    Section *current = nullptr;
    while (!file.atEnd()) {
        if (file.pos() >= MaxReadBytes) {
            m_state = FileState::Damaged;
            return;
        }
        const qint64 length = file.readLine(buffer.data(), buffer.size());
        if (length < 0)
            return RefuseSaving(file.errorString());
        QByteArrayView line(buffer.constData(), length);
        bool understood = line.endsWith('\n'); // otherwise too long or cut off
        if (understood) {
            line.chop(1);
        } else if (!file.atEnd()) {
            skipRestOfLine(file, buffer);
            m_state = FileState::Damaged;
            continue;
        }
        understood = AddLine(trimmed(decodedLine(line)), current) && understood;
        if (!understood || isForeignText(line))
            m_state = FileState::Damaged;
    }
}

void SettingsStore::RefuseSaving(const QString &reason)
{
    m_state = FileState::Unreadable;
    m_sections.clear();
    m_sectionIndex.clear();
    qWarning("Velkaro: the settings file %s cannot be read (%s), so it is left untouched and "
             "nothing of this game will be saved.",
             qUtf8Printable(m_filePath), qUtf8Printable(reason));
}

bool SettingsStore::AddLine(QStringView line, Section *&current)
{
    if (line.isEmpty() || line.front() == u';')
        return true;
    if (line.front() == u'[') {
        const qsizetype close = line.lastIndexOf(u']');
        const QStringView name = close > 0 ? line.sliced(1, close - 1) : line.sliced(1);
        current = &FindOrAdd(UnescapedIni(trimmed(name)));
        return close == line.size() - 1;
    }
    const qsizetype equals = IndexOfRaw(line, u'=');
    if (equals < 0 || current == nullptr)
        return false;
    const QStringView rawKey = withoutRepeatMark(trimmed(line.first(equals)));
    const Entry entry{UnescapedIni(rawKey), UnescapedIni(trimmed(line.sliced(equals + 1)))};
    current->Entries.append(fittedEntry(entry));
    return current->Entries.back() == entry; // a text too long to be written back is damage
}

const SettingsStore::Section *SettingsStore::Find(QStringView name) const
{
    const qsizetype found = m_sectionIndex.value(name.toString(), -1);
    return found < 0 ? nullptr : &m_sections[found];
}

SettingsStore::Section &SettingsStore::FindOrAdd(const QString &name)
{
    // Looked up by hash: a damaged file may hold a great many section headers.
    if (const auto found = m_sectionIndex.constFind(name); found != m_sectionIndex.cend())
        return m_sections[*found];
    m_sectionIndex.insert(name, m_sections.size());
    return m_sections.emplaceBack(Section{name, {}});
}

QString SettingsStore::Read(QStringView section, QStringView key, const QString &defaultText) const
{
    for (const Entry &entry : List(section)) {
        if (entry.Key == key)
            return entry.Value;
    }
    return defaultText;
}

QList<SettingsStore::Entry> SettingsStore::List(QStringView section) const
{
    const Section *found = Find(section);
    return found ? found->Entries : QList<Entry>();
}

void SettingsStore::Write(const QString &section, const QString &key, const QString &value)
{
    QList<Entry> &entries = FindOrAdd(section).Entries;
    const auto first = std::find_if(entries.begin(), entries.end(),
                                    [&key](const Entry &entry) { return entry.Key == key; });
    if (first == entries.end()) {
        entries.append({key, value});
        return;
    }
    first->Value = value;
    entries.erase(std::remove_if(first + 1, entries.end(),
                                 [&key](const Entry &entry) { return entry.Key == key; }),
                  entries.end());
}

void SettingsStore::Append(const QString &section, const QString &key, const QString &value)
{
    FindOrAdd(section).Entries.append({key, value});
}

void SettingsStore::DeleteSection(QStringView section)
{
    m_sections.removeIf([section](const Section &candidate) { return candidate.Name == section; });
    IndexSections();
}

void SettingsStore::KeepOnlySections(const QStringList &names)
{
    m_sections.removeIf(
        [&names](const Section &candidate) { return !names.contains(candidate.Name); });
    IndexSections();
}

void SettingsStore::IndexSections()
{
    m_sectionIndex.clear();
    for (qsizetype i = 0; i < m_sections.size(); ++i)
        m_sectionIndex.insert(m_sections[i].Name, i);
}

QString SettingsStore::Text() const
{
    QString text;
    for (const Section &section : m_sections) {
        if (section.Entries.isEmpty())
            continue;
        if (!text.isEmpty())
            text += u'\n';
        text += u'[' + EscapedIniValue(section.Name) + QStringLiteral("]\n");
        QHash<QString, int> seen;
        for (const Entry &entry : section.Entries) {
            const Entry written = fittedEntry(entry);
            text += EscapedIniKey(written.Key);
            if (const int occurrence = ++seen[written.Key]; occurrence > 1)
                text += QStringLiteral(" #") + QString::number(occurrence);
            text += u'=' + EscapedIniValue(written.Value) + u'\n';
        }
    }
    return text;
}

void SettingsStore::MarkDamaged()
{
    if (m_state == FileState::Whole)
        m_state = FileState::Damaged;
}

QString SettingsStore::SaveError() const
{
    return m_saveError;
}

bool SettingsStore::Save()
{
    m_saveError.clear();
    const QString folder = QFileInfo(m_filePath).absolutePath();
    if (m_state == FileState::Unreadable)
        m_saveError = QStringLiteral("the file could not be read when the game started");
    else if (!QDir().mkpath(folder))
        m_saveError = QStringLiteral("cannot create the folder %1: %2")
                          .arg(folder, QString::fromLocal8Bit(std::strerror(errno)));
    if (!m_saveError.isEmpty())
        return false;
    RemoveWriteLeftovers(m_filePath);
    if (m_state == FileState::Damaged && !KeepDamagedOriginal())
        return false;
    m_saveError = WriteFileAtomically(m_filePath, Text().toUtf8());
    if (!m_saveError.isEmpty())
        return false;
    m_state = FileState::Whole;
    return true;
}

bool SettingsStore::KeepDamagedOriginal()
{
    QFile file(m_filePath);
    if (!file.open(QIODevice::ReadOnly)) {
        m_saveError = file.errorString();
        return false;
    }
    const QByteArray original = file.readAll();
    for (int number = 1; number <= MaxDamagedCopies; ++number) {
        QString copy = m_filePath + QStringLiteral(".damaged");
        if (number > 1)
            copy += u'.' + QString::number(number);
        if (isSameFile(copy, original))
            return true;
        bool taken = false;
        m_saveError = CreateFileAtomically(copy, original, m_filePath, taken);
        if (m_saveError.isEmpty()) {
            qWarning("Velkaro: the settings file %s was damaged; it is kept as it was in %s and "
                     "written anew with the game's own settings.",
                     qUtf8Printable(m_filePath), qUtf8Printable(copy));
            return true;
        }
        if (!taken)
            return false;
    }
    m_saveError = QStringLiteral("the copies of earlier damaged files take every name up to ") +
                  m_filePath + QStringLiteral(".damaged.") + QString::number(MaxDamagedCopies);
    return false;
}
