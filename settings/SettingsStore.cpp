#include "SettingsStore.h"

#include "IniEscaping.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QSaveFile>

#include <algorithm>

namespace {

// Far more than the largest file the game writes (fifteen names of at most 32767 characters,
// however escaped, stay under 4 MiB); a larger file is damaged and only its start is read.
constexpr qint64 MaxReadBytes = 8 << 20;

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

void SettingsStore::Load()
{
    // Only a regular file is opened: a folder or a pipe at this path would fail or block.
    if (!QFileInfo(m_filePath).isFile())
        return;
    QFile file(m_filePath);
    if (!file.open(QIODevice::ReadOnly))
        return;
    QByteArray bytes = file.read(MaxReadBytes);
    if (!file.atEnd())
        bytes.truncate(bytes.lastIndexOf('\n') + 1); // the cap may cut a line in two

    QString text = QString::fromUtf8(bytes);
    if (text.startsWith(QChar(0xFEFF)))
        text.remove(0, 1);
    Section *current = nullptr;
    for (qsizetype start = 0; start < text.size();) {
        qsizetype end = text.indexOf(u'\n', start);
        if (end < 0)
            end = text.size();
        AddLine(trimmed(QStringView(text).sliced(start, end - start)), current);
        start = end + 1;
    }
}

void SettingsStore::AddLine(QStringView line, Section *&current)
{
    if (line.isEmpty() || line.front() == u';')
        return;
    if (line.front() == u'[') {
        const qsizetype close = line.lastIndexOf(u']');
        const QStringView name = close > 0 ? line.sliced(1, close - 1) : line.sliced(1);
        current = &FindOrAdd(UnescapedIni(trimmed(name)));
        return;
    }
    const qsizetype equals = IndexOfRaw(line, u'=');
    if (equals < 0 || current == nullptr)
        return;
    const QStringView rawKey = withoutRepeatMark(trimmed(line.first(equals)));
    current->Entries.append({UnescapedIni(rawKey), UnescapedIni(trimmed(line.sliced(equals + 1)))});
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
            text += EscapedIniKey(entry.Key);
            if (const int occurrence = ++seen[entry.Key]; occurrence > 1)
                text += QStringLiteral(" #") + QString::number(occurrence);
            text += u'=' + EscapedIniValue(entry.Value) + u'\n';
        }
    }
    return text;
}

bool SettingsStore::Save() const
{
    if (!QDir().mkpath(QFileInfo(m_filePath).absolutePath()))
        return false;
    // QSaveFile writes a temporary file beside the target and renames it over the target only
    // when everything was written, so a crash or a full disk leaves the old file whole.
    QSaveFile file(m_filePath);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    // Without the explicit flush, a write error in QSaveFile's buffer would go unnoticed.
    const QByteArray bytes = Text().toUtf8();
    if (file.write(bytes) != bytes.size() || !file.flush()) {
        file.cancelWriting(); // the temporary file goes with the QSaveFile
        return false;
    }
    return file.commit();
}
