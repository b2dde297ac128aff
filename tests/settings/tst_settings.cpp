#include "AtomicFile.h"
#include "Common.h"
#include "GameSettings.h"
#include "RecordInsertion.h"
#include "SettingsStore.h"

#include <QtTest>

#include <csignal>
#include <linux/capability.h>
#include <sys/inotify.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>

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

    // The first run writes placeholder rows. Sound is written in the words of the locale and
    // read back in either language.
    void storedFilesAreReadBack()
    {
        QVERIFY(!ReadSettings());
        QCOMPARE(readFile(), "[Easy]\n" + Unwon + "\n[Medium]\n" + Unwon + "\n[Hard]\n" + Unwon);
        const QLocale it(QLocale::Italian), en(QLocale::English);
        const std::tuple<QLocale, bool, QByteArray> words[] = {
            {it, true, "Vero"}, {it, false, "Falso"}, {en, true, "True"}, {en, false, "False"}};
        for (const auto &[locale, soundOn, word] : words) {
            WriteSettings(soundOn, locale);
            QVERIFY(readFile().contains("\nSound=" + word + "\n"));
            QCOMPARE(ReadSettings(), soundOn);
        }

        // A stored file is read as far as it can be, however long: records after damage
        // are kept, Medium and Hard fitted to five rows, and a file read whole keeps sections of
        // its own. A damaged file is first kept byte for byte (the last one only), then written
        // with the game's sections only.
        QByteArray huge(64 * 1024, Qt::Uninitialized);
        QRandomGenerator(7).fillRange(reinterpret_cast<quint32 *>(huge.data()), huge.size() / 4);
        const QByteArray utf16 = QStringEncoder(QStringConverter::Utf16)("Level=2\n" + Easy);
        // Records split around another section are kept; a sixth Easy row starting at 64 MiB
        // (with the 19 bytes written before each file) is past what is read.
        // How fast many sections are read is a benchmark's matter (bench/settings).
        huge += '\n' + QByteArray(20 << 20, 'x') + "\n[Game]\nLevel=2\n[Easy]\nA=1\nA=2\n[s]\n";
        huge += "[Easy]\nC=3\nD=4\nE=5\n";
        huge += QByteArray((64 << 20) - 19 - huge.size() - 1, '\0') + "\nF=6\n";
        const QByteArray crlf =
            QByteArray("Sound=yes\nLevel=2.5\nLevel=1\n" + Easy).replace("\n", "\r\n");
        const QString kept = Rows + Unwon + Unwon, reset = Unwon + Unwon + Unwon;
        // The last column: whether the original is kept aside before anything of it is dropped.
        const std::tuple<const char *, QByteArray, int, bool, QString, bool> cases[] = {
            {"junk line", "Sound=vERO\nLevel=3\nnonsense\n" + Easy, 0, true, kept, true},
            {"cut-off last line", "Sound=TRUE\nLevel=1.5\n" + Easy.chopped(1), 2, true, kept, true},
            {"CRLF line ends", crlf, 2, false, kept, false},
            {"invalid UTF-8", "Sound=1\nLevel=1\xff\n[Easy]\n\xc3\x28=1\n" + Rows.sliced(4), 1,
             false, "\uFFFD(=1\n" + kept.sliced(4), true},
            {"four Easy rows", "Sound=\nLevel=x\n" + Easy.chopped(4) + "[Medium]\n" + Rows, 0,
             false, reset, true},
            {"six Easy rows", "Sound=Vero!\nLevel=99999999999\n" + Easy + "F=6\n", 0, false, reset,
             true},
            {"six Hard rows",
             "Sound=falso\nLevel=-1\n" + Easy + "[Medium]\nM=7\nN=8\n[Hard]\n" + Rows + "F=6\n", 0,
             false, Rows + "M=7\nN=8\n" + Unwon.sliced(24) + Rows, true},
            {"UTF-16", utf16, 0, false, reset, true},
            {"huge", huge, 2, false, kept, true}};
        for (const auto &[name, stored, level, soundOn, tables, damaged] : cases) {
            writeFile("[Other]\nx=1\n[Game]\n" + stored);
            if (damaged)
                QTest::ignoreMessage(QtWarningMsg, QRegularExpression("damaged; it is kept"));
            const QByteArray original = readFile();
            QCOMPARE(ReadSettings(), soundOn);
            QCOMPARE(Common::Level, level);
            QCOMPARE(tablesText(), tables);
            WriteSettings(soundOn);
            QVERIFY2(readFile(".damaged") == (damaged ? original : QByteArray()), name);
            QFile::remove(filePath + ".damaged");
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

        writeFile("[Game]\nLevel=2\n" + Easy);
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
    }

    // A termination signal ends a running game as Exit does: it saves and ends normally.
    void signalsSaveLikeExit()
    {
        for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
            QFile::remove(filePath);
            QProcess game;
            // As from a terminal: a shell running a job in the background ignores SIGINT.
            game.setChildProcessModifier([] { std::signal(SIGINT, SIG_DFL); });
            game.start(VELKARO_PROGRAM);
            // Its handlers are in place before it saves fresh tables at its first start.
            QTRY_VERIFY_WITH_TIMEOUT(readFile().contains("[Medium]") || !game.processId(), 60000);
            QVERIFY(QFile::remove(filePath) && game.processId());
            kill(pid_t(game.processId()), signal);
            QVERIFY(game.waitForFinished(60000)); // a game deaf to it fails here, not in CTest
            QCOMPARE(std::pair(game.exitStatus(), game.exitCode()),
                     std::pair(QProcess::NormalExit, 0));
            QVERIFY2(QString(readFile()).contains("\n[Medium]\n" + Unwon), strsignal(signal));
        }
    }

    // Two games running at once: the one that ends last keeps what the other saved meanwhile,
    // the best five of each table, and the other's options unless it changed them itself.
    void twoGamesKeepBothRecords()
    {
        // The other game's options, whether this game changed its own, and the options saved.
        const std::tuple<const char *, QByteArray, bool, QByteArray> cases[] = {
            {"left alone: the other's, a missing one this game's", "Sound=Vero", false,
             "Sound=Vero\nLevel=0\n"},
            {"changed here: this game's, once", "Sound=Vero\nLevel=2\nSound=Falso\nx=1", true,
             "Sound=True\nLevel=1\nx=1\n"}};
        for (const auto &[name, otherOptions, changedHere, options] : cases) {
            writeFile("[Game]\nSound=Falso\n[Easy]\nA=100\nB=200\nC=300\nD=400\nE=500\n");
            QVERIFY(!ReadSettings());
            writeFile("[Game]\n" + otherOptions +
                      "\n[Easy]\nOther=50\nA=100\nB=200\nC=300\nD=400\n");
            Common::Level = changedHere ? 1 : 0;
            Common::EasyRecords = {
                {{"A", "100"}, {"B", "200"}, {"Mine", "250"}, {"C", "300"}, {"D", "400"}}};
            WriteSettings(changedHere, QLocale(QLocale::English));
            QVERIFY2(readFile().contains("[Game]\n" + options), name);
            QVERIFY(readFile().contains("[Easy]\nOther=50\nA=100\nB=200\nMine=250\nC=300\n\n"));
        }
    }

    // A stored name too long to be written back whole is cut to fit and its file kept aside,
    // so that the game's own save reads back whole. The rest of a line over 1 MiB is no line.
    void longStoredNamesAreCutToFit()
    {
        const QByteArray tooLong = QByteArray(1 << 20, 'y') + "Z=9\n";
        writeFile("[Easy]\nx" + QByteArray(600000, '\t') + "x=1\n" + tooLong + Rows.sliced(4));
        QVERIFY(!ReadSettings());
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("damaged; it is kept"));
        WriteSettings(false);
        const QString written = tablesText();
        QVERIFY(written.startsWith("x\t\t\t") && !written.contains("Z"));
        QVERIFY(!ReadSettings());
        QCOMPARE(tablesText(), written);
    }

    // A save that fails says why on stderr, once, and leaves the file as it was. A full disk is
    // simulated with a file size limit, which binds every user.
    void failedSavesSayWhy()
    {
        rlimit normal{};
        getrlimit(RLIMIT_FSIZE, &normal);
        const rlimit tiny{8, normal.rlim_max};
        std::signal(SIGXFSZ, SIG_IGN);
        const QString folder = QFileInfo(filePath).path();
        const std::tuple<const char *, std::function<void()>, QString> cases[] = {
            {"full disk", [&] { setrlimit(RLIMIT_FSIZE, &tiny); }, "File too large"},
            {"read-only folder", [&] { QFile::setPermissions(folder, QFile::ExeOwner); },
             "Permission denied"},
            {"read-only file", [&] { QFile::setPermissions(filePath, QFile::ReadOwner); },
             "Permission denied"},
            {"config home is a file", [&] { qputenv("XDG_CONFIG_HOME", filePath.toUtf8()); },
             "Not a directory"}};
        for (const auto &[name, breakSaving, reason] : cases) {
            writeFile("[Game]\nLevel=2\n" + Easy);
            QVERIFY(!ReadSettings());
            breakSaving();
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression("not be saved.*" + reason));
            WriteSettings(true);
            setrlimit(RLIMIT_FSIZE, &normal);
            QProcess::execute("chmod", {"-R", "u+rwx", folder});
            init();
            QVERIFY2(readFile() == "[Game]\nLevel=2\n" + Easy, name);
        }
    }

    // A damaged original is kept once, as a new file: never through a link, never over the copy
    // of another original. Temporary files go at the next save only when their process is gone,
    // beside the file a linked INI points to as well; names the game does not make stay.
    void copiesAndLeftovers()
    {
        const QString real = config.path(), other = real + "/players-own-file";
        QDir().mkpath(QFileInfo(filePath).path());
        QFile::link(other, filePath + ".damaged");
        QFile::link(real + "/target.ini", filePath);
        // A save killed after its temporary file was made, with the INI a link.
        const int watch = inotify_init1(IN_CLOEXEC);
        inotify_add_watch(watch, real.toUtf8(), IN_CREATE);
        const pid_t saver = fork();
        if (saver == 0)
            _exit(int(WriteFileAtomically(filePath, QByteArray(30 << 20, 'x')).size()));
        QVERIFY(read(watch, QByteArray(4096, 0).data(), 4096) > 0);
        kill(saver, SIGKILL);
        waitpid(saver, nullptr, 0);
        QCOMPARE(QDir(real).entryList(QDir::Files).size(), 1); // its temporary file
        const QByteArray own = "." + QByteArray::number(getpid()) + ".tmp";
        for (const QByteArray &name :
             QByteArrayList{own, ".AbcDef", ".backup", ".1.tmp", ".damaged.2.x.tmp"})
            QFile(filePath + name).open(QIODevice::WriteOnly);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("kept as it was in .*\\.2 "));
        for (int run = 0; run < 2; ++run) { // the second run finds its original kept already
            writeFile("junk\n" + Easy);     // through the link
            QVERIFY(SettingsStore(filePath).Save());
        }
        QVERIFY(!QFile::exists(other) && readFile(".damaged.2") == "junk\n" + Easy);
        QCOMPARE(QDir(real).entryList(QDir::Files), QStringList({"target.ini"}));
        QCOMPARE(QFileInfo(filePath).dir().entryList(QDir::Files),
                 QStringList({"Velkaro.ini", "Velkaro.ini.1.tmp", "Velkaro.ini.AbcDef",
                              "Velkaro.ini.backup", "Velkaro.ini.damaged.2",
                              "Velkaro.ini.damaged.2.x.tmp"}));
    }

    // A name is read back as it was written, whatever a player typed or pasted: a
    // deterministic run over names made of the pieces that need escaping, up to the name
    // box's 32767 characters.
    void namesReadBackWhole()
    {
        const QStringList pieces =
            QString::fromUtf16(
                u"\uFEFF|\xD800|\xDC00|\U0001F600|\x01\x7f|\t|\n|\r| |\\|\\n|=|#|;|[|]|"
                u"\"'|x #2|\uFFFE\uFFFF|é東")
                .split(u'|');
        QRandomGenerator random(17);
        for (int round = 0; round < 40; ++round) {
            for (int c = 0; c < 15; ++c) {
                RecordRow &row = RecordsOfLevel(c / 5)[c % 5] = {{}, QString::number(c)};
                while (random.bounded(8) != 0)
                    row.Name += pieces[random.bounded(pieces.size())];
            }
            Common::HardRecords[4].Name.fill(QChar(0xDC00), round * 840); // up to 32760
            const QString written = tablesText();
            WriteSettings(false);
            QVERIFY(!ReadSettings());
            QCOMPARE(tablesText(), written);
        }
    }
};

QTEST_GUILESS_MAIN(SettingsTest)
#include "tst_settings.moc"
