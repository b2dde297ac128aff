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

const QByteArray Rows = "A=1\nA=2\nC=3\nD=4\nE=5\n", Easy = "[Easy]\n" + Rows;
const QString Unwon = "Player1=999\nPlayer2=999\nPlayer3=999\nPlayer4=999\nPlayer5=999\n";

// Lines "Name=Time" of every row: Easy, then Medium, then Hard.
QString tablesText()
{
    QString text;
    for (int c = 0; c < 15; ++c)
        text += RecordsOfLevel(c / 5)[c % 5].Name + '=' + RecordsOfLevel(c / 5)[c % 5].Time + '\n';
    return text;
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
    // Root reads and writes any file through its capabilities; without them file modes bind
    // root as they bind a player.
    void initTestCase()
    {
        __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
        __user_cap_data_struct none[2]{};
        QCOMPARE(syscall(SYS_capset, &header, none), 0);
    }

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
    void storedFilesAreReadBack()
    {
        QVERIFY(!ReadSettings());
        QCOMPARE(readFile(), "[Easy]\n" + Unwon + "\n[Medium]\n" + Unwon + "\n[Hard]\n" + Unwon);
        const QString names[] = {
            QString::fromUtf16(u"Zoe|Adam|Mia|Bob|Al|Ann|Bo|Ann|Bo|Ann|||X|X|X #2"),
            QString::fromUtf16(u"|   |  lead|trail  |=a=b|;semi|#x|[box|box]|back\\n\\slash\\|"
                               u"\"q\"'|x #2|line\nnext|Niccolò 東京|tab\t")};
        const QLocale it(QLocale::Italian), en(QLocale::English);
        const std::tuple<QLocale, bool, QByteArray> words[] = {
            {it, true, "Vero"}, {it, false, "Falso"}, {en, true, "True"}, {en, false, "False"}};
        for (int i = 0; i < 4; ++i) {
            const auto &[locale, soundOn, word] = words[i];
            for (int c = 0; c < 15; ++c)
                RecordsOfLevel(c / 5)[c % 5] = {names[i % 2].split(u'|')[c], QString::number(c)};
            const QString written = tablesText();
            WriteSettings(soundOn, locale);
            QVERIFY(readFile().contains("\nSound=" + word + "\n"));
            Common::EasyRecords = Common::MediumRecords = Common::HardRecords = {};
            QCOMPARE(ReadSettings(), soundOn);
            QCOMPARE(tablesText(), written);
        }

        // A stored file is read as far as it can be, quickly however long: records after damage
        // are kept, Medium and Hard fitted to five rows, and a file read whole keeps sections of
        // its own. A damaged file is first kept byte for byte (the last one only), then written
        // with the game's sections only.
        QByteArray huge(64 * 1024, Qt::Uninitialized);
        QRandomGenerator(7).fillRange(reinterpret_cast<quint32 *>(huge.data()), huge.size() / 4);
        const QByteArray utf16 = QStringEncoder(QStringConverter::Utf16)("Level=2\n" + Easy);
        // Records split around 50,000 sections are kept; the last Easy row lies past 64 MiB.
        huge += '\n' + QByteArray(20 << 20, 'x') + "\n[Game]\nLevel=2\n[Easy]\nA=1\nA=2\n";
        for (int n = 0; n < 50000; ++n)
            huge += "[s" + QByteArray::number(n) + "]\nk=v\n";
        huge += "[Easy]\nC=3\nD=4\nE=5\n" + QByteArray(80 << 20, '\0') + "\n[Easy]\nF=6\n";
        const QByteArray crlf =
            QByteArray("Sound=yes\nLevel=2.5\nLevel=1\n" + Easy).replace("\n", "\r\n");
        const QString kept = Rows + Unwon + Unwon, reset = Unwon + Unwon + Unwon;
        const std::tuple<QByteArray, int, bool, QString, bool> cases[] = {
            {"Sound=vERO\nLevel=3\nnonsense\n" + Easy, 0, true, kept, true},
            {"Sound=TRUE\nLevel=1.5\n" + Easy.chopped(1), 2, true, kept, true},
            {crlf, 2, false, kept, false},
            {"Sound=1\nLevel=1\xff\n[Easy]\n\xc3\x28=1\n" + Rows.sliced(4), 1, false,
             "\uFFFD(=1\n" + kept.sliced(4), true},
            {"Sound=\nLevel=x\n" + Easy.chopped(4) + "[Medium]\n" + Rows, 0, false, reset, false},
            {"Sound=Vero!\nLevel=99999999999\n" + Easy + "F=6\n", 0, false, reset, false},
            {"Sound=falso\nLevel=-1\n" + Easy + "[Medium]\nM=7\nN=8\n[Hard]\n" + Rows + "F=6\n", 0,
             false, Rows + "M=7\nN=8\n" + Unwon.sliced(24) + Rows, false},
            {utf16, 0, false, reset, true},
            {huge, 2, false, kept, true}};
        QByteArray keptAside;
        for (const auto &[stored, level, soundOn, tables, damaged] : cases) {
            writeFile("[Other]\nx=1\n[Game]\n" + stored);
            if (damaged)
                QTest::ignoreMessage(QtWarningMsg, QRegularExpression("damaged; it is kept"));
            keptAside = damaged ? readFile() : keptAside;
            const QDeadlineTimer deadline(3000);
            QCOMPARE(ReadSettings(), soundOn);
            QVERIFY(!deadline.hasExpired());
            QCOMPARE(Common::Level, level);
            QCOMPARE(tablesText(), tables);
            WriteSettings(soundOn);
            QVERIFY(readFile(".damaged") == keptAside);
            const QRegularExpression foreign("(?m)^\\[(?!(Game|Easy|Medium|Hard)]$)"); // [Other]
            QCOMPARE(QString(readFile()).contains(foreign), !damaged);
            QCOMPARE(SettingsStore(filePath).State(), SettingsStore::FileState::Whole);
        }
    }

    // A folder at the file's place, or a file this user may write but not read, is never
    // written over, even when it can be read again by the end of the game.
    void fileIsNeverLostBySaving()
    {
        const QRegularExpression refusal("cannot be read.*nothing of this game will be saved");
        QTest::ignoreMessage(QtWarningMsg, refusal);
        QVERIFY(QDir().mkpath(filePath) && !SettingsStore(filePath).Save() &&
                QDir().rmdir(filePath));

        const QByteArray stored = "[Game]\nLevel=2\n" + Easy;
        writeFile(stored);
        QVERIFY(QFile::setPermissions(filePath, QFile::WriteOwner));
        QTest::ignoreMessage(QtWarningMsg, refusal); // once at start-up, not again at the end
        QVERIFY(!ReadSettings());
        QCOMPARE(tablesText(), Unwon + Unwon + Unwon);
        QVERIFY(QFile::setPermissions(filePath, QFile::ReadOwner | QFile::WriteOwner));
        WriteSettings(true);
        QCOMPARE(ReadSettings(), false); // readable now, but not at the end
        QVERIFY(QFile::setPermissions(filePath, QFile::WriteOwner));
        QTest::ignoreMessage(QtWarningMsg, refusal);
        WriteSettings(true);
        QVERIFY(QFile::setPermissions(filePath, QFile::ReadOwner | QFile::WriteOwner));

        // A full disk is simulated with a file size limit, which binds every user. The temporary
        // files of saves cut short by a kill go at the next save, the player's own copies not.
        SettingsStore store(filePath);
        rlimit normal{};
        getrlimit(RLIMIT_FSIZE, &normal);
        const rlimit tiny{8, normal.rlim_max};
        std::signal(SIGXFSZ, SIG_IGN);
        QVERIFY(setrlimit(RLIMIT_FSIZE, &tiny) == 0);
        QVERIFY(!store.Save());
        setrlimit(RLIMIT_FSIZE, &normal);
        QCOMPARE(readFile(), stored);
        for (const char *name : {".AbcDef", ".damaged.xYzabc", ".backup"})
            QFile(filePath + name).open(QIODevice::WriteOnly);
        QVERIFY(store.Save());
        QCOMPARE(QFileInfo(filePath).dir().entryList(QDir::Files),
                 QStringList({"Velkaro.ini", "Velkaro.ini.backup"}));
    }
};

QTEST_GUILESS_MAIN(SettingsTest)
#include "tst_settings.moc"
