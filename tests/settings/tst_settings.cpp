#include "Common.h"
#include "GameSettings.h"
#include "RecordInsertion.h"
#include "SettingsStore.h"

#include <QtTest>

#include <csignal>
#include <linux/capability.h>
#include <sys/resource.h>
#include <sys/syscall.h>

namespace {

const QByteArray Easy = "[Easy]\nA=1\nA=2\nC=3\nD=4\nE=5\n";
const QString Unwon = "Player1=999\nPlayer2=999\nPlayer3=999\nPlayer4=999\nPlayer5=999\n";

// Lines "Name=Time" of every row: Easy, then Medium, then Hard.
QString tablesText()
{
    QString text;
    for (int level = 0; level < 3; ++level) {
        for (const RecordRow &row : RecordsOfLevel(level))
            text += row.Name + u'=' + row.Time + u'\n';
    }
    return text;
}

// Root reads every file through its capabilities; without them file modes bind root too.
void setCapabilities(bool held)
{
    __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct caps[2]{};
    syscall(SYS_capget, &header, caps);
    caps[0].effective = held ? caps[0].permitted : 0;
    syscall(SYS_capset, &header, caps);
}

} // namespace

class SettingsTest : public QObject
{
    Q_OBJECT

    QTemporaryDir config;
    QString filePath;

    void writeFile(const QByteArray &bytes) const
    {
        QDir().mkpath(QFileInfo(filePath).path());
        QFile file(filePath);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }

    QByteArray readFile(const char *suffix = "") const
    {
        QFile file(filePath + suffix);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

private slots:
    // Every test starts on an empty settings folder of its own, never the player's real one,
    // and fails on any warning it does not expect.
    void init()
    {
        qputenv("XDG_CONFIG_HOME", config.filePath(QTest::currentTestFunction()).toUtf8());
        filePath = SettingsStore::DefaultFilePath();
        QTest::failOnWarning(QRegularExpression("."));
    }

    // The first run writes placeholder rows. Then each list of fifteen names, separated by '|',
    // fills Easy, Medium and Hard in order, and sound is written in the words of a locale.
    void recordsAndSoundRoundTrip()
    {
        Common::Level = Common::LevelMedium;
        QVERIFY(!ReadSettings());
        QCOMPARE(Common::Level, Common::LevelEasy);
        QCOMPARE(readFile(), "[Easy]\n" + Unwon + "\n[Medium]\n" + Unwon + "\n[Hard]\n" + Unwon);
        const QString names[] = {
            QString::fromUtf16(u"Zoe|Adam|Mia|Bob|Al|Ann|Bo|Ann|Bo|Ann|||X|X|X #2"),
            QString::fromUtf16(u"|   |  lead|trail  |=a=b|;semi|#x|[box|box]|back\\n\\slash\\|"
                               u"\"q\"'|x #2|line\nnext|Niccolò 東京|tab\t")};
        const std::tuple<QLocale::Language, bool, QByteArray> words[] = {
            {QLocale::Italian, true, "Vero"},
            {QLocale::Italian, false, "Falso"},
            {QLocale::English, true, "True"},
            {QLocale::English, false, "False"}};
        for (int i = 0; i < 4; ++i) {
            const auto &[language, soundOn, word] = words[i];
            for (int cell = 0; cell < 15; ++cell)
                RecordsOfLevel(cell / 5)[cell % 5] = {names[i % 2].split(u'|')[cell],
                                                      QString::number(cell)};
            const QString written = tablesText();
            WriteSettings(soundOn, QLocale(language));
            QVERIFY(readFile().contains("\nSound=" + word + "\n"));
            Common::EasyRecords = Common::MediumRecords = Common::HardRecords = {};
            QCOMPARE(ReadSettings(), soundOn);
            QCOMPARE(tablesText(), written);
        }
    }

    // A stored file is read as far as it can be, quickly however long: records after damage
    // are kept, Medium and Hard fitted to five rows, and a file read whole keeps sections of
    // its own. A damaged file is first kept byte for byte (the last one only), then written
    // with the game's sections only.
    void storedFileIsReadAsFarAsItCan()
    {
        QByteArray junk(64 * 1024, Qt::Uninitialized);
        QRandomGenerator(7).fillRange(reinterpret_cast<quint32 *>(junk.data()), junk.size() / 4);
        const QString utf16 = "\uFEFF[Game]\nLevel=2\n" + Easy;
        QByteArray huge = QByteArray(20 << 20, 'x') + "\n[Game]\nLevel=2\n";
        for (int n = 0; n < 50000; ++n)
            huge += "[s" + QByteArray::number(n) + "]\nk=v\n";
        huge += Easy + QByteArray(80 << 20, '\0') + "\n[Easy]\nF=6\n"; // the last past 64 MiB
        const QString kept = Easy.sliced(7) + Unwon + Unwon, reset = Unwon + Unwon + Unwon;
        const std::tuple<QByteArray, int, bool, QString, bool> cases[] = {
            {"[Game]\nSound=vERO\nLevel=3\nnonsense\n" + Easy, 0, true, kept, true},
            {"[Game]\nSound=TRUE\nLevel=2\n" + Easy.chopped(1), 2, true, kept, true},
            {QByteArray("[Game]\nSound=falso\nLevel=1.5\n\n" + Easy).replace("\n", "\r\n"), 2,
             false, kept, false},
            {"[Easy]\nA=1\nA=2\n[Game]\nSound=yes\nLevel=2.5\nLevel=1\n[Easy]\nC=3\nD=4\nE=5\n", 2,
             false, kept, false},
            {"[Game]\nSound=1\nLevel=1\xff\n[Easy]\n\xc3\x28=1\n" + Easy.sliced(11), 1, false,
             "\uFFFD(=1\n" + kept.sliced(4), true},
            {"[Game]\nSound=\nLevel=x\n[Easy]\nA=1\nB=2\nC=3\nD=4\n[Medium]\n" + Easy, 0, false,
             reset, false},
            {"[Game]\nSound=Vero!\nLevel=-1\n" + Easy + "F=6\n", 0, false, reset, false},
            {"[Game]\nLevel=99999999999\n" + Easy + "[Medium]\nM=7\nN=8\n" +
                 QByteArray(Easy).replace("Easy", "Hard") + "F=6\n",
             0, false, kept.first(20) + "M=7\nN=8\n" + Unwon.sliced(24) + kept.first(20), false},
            {junk, 0, false, reset, true},
            {QByteArray(reinterpret_cast<const char *>(utf16.utf16()), utf16.size() * 2), 0, false,
             reset, true},
            {huge, 2, false, kept, true}};
        QByteArray keptAside;
        for (const auto &[stored, level, soundOn, tables, damaged] : cases) {
            const QByteArray bytes = "[Other]\nx=1\n" + stored;
            writeFile(bytes);
            if (damaged)
                QTest::ignoreMessage(QtWarningMsg,
                                     QRegularExpression("damaged; it is kept as it was"));
            keptAside = damaged ? bytes : keptAside;
            const QDeadlineTimer deadline(3000);
            QCOMPARE(ReadSettings(), soundOn);
            QVERIFY(!deadline.hasExpired());
            QCOMPARE(Common::Level, level);
            QCOMPARE(tablesText(), tables);
            WriteSettings(soundOn);
            QVERIFY(readFile(".damaged") == keptAside);
            const QStringList sections =
                QString(readFile()).split(u'\n').filter(QRegularExpression("^\\["));
            QCOMPARE(sections.filter(QRegularExpression("^\\[(Game|Easy|Medium|Hard|Other)]$")),
                     sections);
            QCOMPARE(sections.contains("[Other]"), !damaged);
            QCOMPARE(SettingsStore(filePath).State(), SettingsStore::FileState::Whole);
        }
    }

    // A folder at the file's place, or a file this user may write but not read, is never
    // written over, even when it can be read again by the end of the game.
    void unreadableFileIsNeverWrittenOver()
    {
        const QRegularExpression refusal("cannot be read.*nothing of this game will be saved");
        QVERIFY(QDir().mkpath(filePath));
        QTest::ignoreMessage(QtWarningMsg, refusal);
        QVERIFY(!ReadSettings());
        WriteSettings(true);
        QVERIFY(QDir().rmdir(filePath));

        const QByteArray stored = "[Game]\nLevel=2\n" + Easy;
        writeFile(stored);
        QVERIFY(QFile::setPermissions(filePath, QFile::WriteOwner));
        setCapabilities(false);
        const auto restore = qScopeGuard([] { setCapabilities(true); });
        QTest::ignoreMessage(QtWarningMsg, refusal); // once at start-up, not again at the end
        QVERIFY(!ReadSettings());
        QCOMPARE(tablesText(), Unwon + Unwon + Unwon);
        setCapabilities(true);
        WriteSettings(true);
        QCOMPARE(ReadSettings(), false); // readable here, but not at the end
        setCapabilities(false);
        QTest::ignoreMessage(QtWarningMsg, refusal);
        WriteSettings(true);
        setCapabilities(true);
        QCOMPARE(readFile(), stored);
    }

    // A full disk is simulated with a file size limit, which binds every user, root included.
    // The temporary files of saves cut short by a kill go at the next save, the player's own not.
    void saveIsAtomicAndClearsLeftovers()
    {
        writeFile("[Game]\nLevel=2\n");
        SettingsStore store(filePath);
        rlimit normal{};
        getrlimit(RLIMIT_FSIZE, &normal);
        const rlimit tiny{8, normal.rlim_max};
        std::signal(SIGXFSZ, SIG_IGN);
        QVERIFY(setrlimit(RLIMIT_FSIZE, &tiny) == 0);
        const bool saved = store.Save();
        setrlimit(RLIMIT_FSIZE, &normal);
        QVERIFY(!saved);
        QCOMPARE(readFile(), QByteArray("[Game]\nLevel=2\n"));
        const char *names[] = {".AbcDef", ".damaged.xYzabc", ".backup"};
        for (const char *name : names)
            QFile(filePath + name).open(QIODevice::WriteOnly);
        QVERIFY(store.Save());
        for (const char *name : names)
            QCOMPARE(QFile::exists(filePath + name), name == names[2]);
    }
};

QTEST_GUILESS_MAIN(SettingsTest)
#include "tst_settings.moc"
