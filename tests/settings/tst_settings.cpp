#include "Common.h"
#include "GameSettings.h"
#include "SettingsStore.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <sys/resource.h>

using Tables = std::array<RecordTable, 3>; // Easy, Medium, Hard

namespace {

// Valid UTF-8 with no control character but the line ends.
bool isCleanFile(const QByteArray &bytes)
{
    return QString::fromUtf8(bytes).toUtf8() == bytes &&
           std::none_of(bytes.begin(), bytes.end(),
                        [](char c) { return uchar(c) < 32 && c != '\n'; });
}

Tables currentTables()
{
    return {Common::EasyRecords, Common::MediumRecords, Common::HardRecords};
}

Tables placeholders()
{
    RecordTable table;
    for (int row = 0; row < 5; ++row)
        table[row] = {"Player" + QString::number(row + 1), "999"};
    return {table, table, table};
}

} // namespace

class SettingsTest : public QObject
{
    Q_OBJECT

    QTemporaryDir config;
    QString filePath;

    void writeFile(const QByteArray &bytes) const
    {
        QDir().mkpath(QFileInfo(filePath).absolutePath());
        QFile file(filePath);
        if (file.open(QIODevice::WriteOnly))
            file.write(bytes);
    }

    QByteArray readFile() const
    {
        QFile file(filePath);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

private slots:
    // Every test starts on an empty settings folder of its own, never the player's real one.
    void init()
    {
        qputenv("XDG_CONFIG_HOME", config.filePath(QTest::currentTestFunction()).toUtf8());
        filePath = SettingsStore::DefaultFilePath();
    }

    // The first run finds no file; the others a damaged Easy table beside a good Medium and a
    // short Hard, which alone would only be filled up.
    void missingOrWronglySizedEasyResetsAllTables()
    {
        const QByteArray others = "[Medium]\nV=1\nW=2\nX=3\nY=4\nZ=5\n[Hard]\nV=1\n";
        const QByteArray rows = "Player1=999\nPlayer2=999\nPlayer3=999\nPlayer4=999\nPlayer5=999\n";
        for (const QByteArray &easy : {QByteArray(), QByteArray("[Easy]\nA=1\nB=2\nC=3\nD=4\n"),
                                       QByteArray("[Easy]\nA=1\nB=2\nC=3\nD=4\nE=5\nF=6\n")}) {
            if (!easy.isEmpty())
                writeFile(easy + others);
            Common::Level = Common::LevelMedium;
            QVERIFY(!ReadSettings());
            QCOMPARE(Common::Level, Common::LevelEasy);
            QCOMPARE(currentTables(), placeholders());
            QCOMPARE(readFile(), "[Easy]\n" + rows + "\n[Medium]\n" + rows + "\n[Hard]\n" + rows);
        }
    }

    void mediumAndHardAreFittedToFiveRows()
    {
        writeFile("[Easy]\nA=1\nB=2\nC=3\nD=4\nE=5\n[Medium]\nM=7\nN=8\n"
                  "[Hard]\nH1=1\nH2=2\nH3=3\nH4=4\nH5=5\nH6=6\n");
        ReadSettings();
        QCOMPARE(Common::MediumRecords[1], (RecordRow{"N", "8"}));
        QCOMPARE(Common::MediumRecords[4], (RecordRow{"Player5", "999"}));
        QCOMPARE(Common::HardRecords[4], (RecordRow{"H5", "5"}));
    }

    // Each list of fifteen names, separated by '|', fills Easy, Medium and Hard in order.
    void recordNamesRoundTrip()
    {
        for (const char16_t *names :
             {u"Zoe|Adam|Mia|Bob|Al|Ann|Bo|Ann|Bo|Ann|||X|X|X #2",
              u"|   |  lead|trail  |=a=b|;semi|#x|[box|box]|back\\n\\slash\\|"
              u"\"q\"'|x #2|line\nnext|Niccolò 東京|tab\t"}) {
            const QStringList split = QString::fromUtf16(names).split(u'|');
            Tables written;
            for (int i = 0; i < 15; ++i)
                written[i / 5][i % 5] = {split[i], QString::number(i)};
            std::tie(Common::EasyRecords, Common::MediumRecords, Common::HardRecords) =
                std::tie(written[0], written[1], written[2]);
            WriteSettings(false);
            Common::EasyRecords = Common::MediumRecords = Common::HardRecords = {};
            ReadSettings();
            QCOMPARE(currentTables(), written);
            QVERIFY(isCleanFile(readFile()));
        }
    }

    void gameSectionHoldsSoundAndStartLevel()
    {
        const QLocale it(QLocale::Italian), en(QLocale::English);
        const std::tuple<QLocale, bool, QByteArray> written[] = {
            {it, true, "Vero"}, {it, false, "Falso"}, {en, true, "True"}, {en, false, "False"}};
        for (const auto &[locale, soundOn, word] : written) {
            WriteSettings(soundOn, locale);
            QVERIFY2(readFile().contains("\nSound=" + word + "\n"), readFile().constData());
            QVERIFY2(ReadSettings() == soundOn, word.constData());
        }
        // Read back: either language in any case; a stored Custom level starts on Easy.
        const std::pair<const char *, bool> sounds[] = {
            {"vERO", true}, {"TRUE", true}, {"falso", false}, {"yes", false},
            {"1", false},   {"", false},    {"Vero!", false}};
        const std::pair<const char *, int> levels[] = {
            {"3", 0}, {"2", 2}, {"1.5", 2}, {"2.5", 2}, {"x", 0}, {"-1", 0}, {"99999999999", 0}};
        for (int i = 0; i < 7; ++i) {
            writeFile(QByteArray("[Game]\nSound=") + sounds[i].first +
                      "\nLevel=" + levels[i].first);
            Common::Level = Common::LevelMedium;
            QVERIFY2(ReadSettings() == sounds[i].second, sounds[i].first);
            QVERIFY2(Common::Level == levels[i].second, levels[i].first);
        }
    }

    // What can be read is kept; the reset that follows writes a clean file that reads back alike.
    void damagedFileLoadsAndIsRewrittenClean()
    {
        QByteArray junk(64 * 1024, Qt::Uninitialized);
        QRandomGenerator(7).fillRange(reinterpret_cast<quint32 *>(junk.data()), junk.size() / 4);
        const std::tuple<QByteArray, QString, QList<SettingsStore::Entry>> cases[] = {
            {junk, "0", {}},
            {"[Game]\nnonsense\nLevel=2\n[Easy]\njust text\nA=1\n", "2", {{"A", "1"}}},
            {"[Easy]\nA=1\n[Game]\nLevel=1\n[Easy]\nB=2\n", "1", {{"A", "1"}, {"B", "2"}}},
            {"[Game]\nLevel=2\nLevel=1\n[Easy]\nA=1\nA=2\n", "2", {{"A", "1"}, {"A", "2"}}},
            {"[Easy]\nA=1\n[Game]\nLevel=2", "2", {{"A", "1"}}},
            {"[Game]\r\nLevel=2\r\n\r\n[Easy]\r\nA=1\r\n", "2", {{"A", "1"}}},
            {"[Game]\nLevel=1\xff\n[Easy]\n\xc3\x28=1\n", "1\uFFFD", {{"\uFFFD(", "1"}}}};
        for (const auto &[bytes, level, easy] : cases) {
            writeFile(bytes);
            const SettingsStore store(filePath);
            QCOMPARE(store.Read(u"Game", u"Level", "0"), level);
            QCOMPARE(store.List(u"Easy"), easy);
            ReadSettings();
            QCOMPARE(currentTables(), placeholders());
            const QByteArray rewritten = readFile();
            QVERIFY(isCleanFile(rewritten));
            QVERIFY(SettingsStore(filePath).Save());
            QCOMPARE(readFile(), rewritten);
        }
    }

    void hugeFileLoadsQuickly()
    {
        QByteArray sections; // a great many headers must not slow the reading down
        for (int n = 0; n < 50000; ++n)
            sections += "[s" + QByteArray::number(n) + "]\nk=v\n";
        writeFile("[Game]\nLevel=2\n" + sections + "[Easy]\n" +
                  QByteArray("Junk=junk value\n").repeated(128 * 1024));
        QVERIFY(QFile::resize(filePath, 100 * 1024 * 1024));
        const QDeadlineTimer deadline(3000);
        const SettingsStore store(filePath);
        QVERIFY(!deadline.hasExpired());
        QCOMPARE(store.Read(u"Game", u"Level", QString()), u"2");
        QCOMPARE(store.List(u"Easy").back(), (SettingsStore::Entry{"Junk", "junk value"}));
    }

    void folderOrUnreadableFileGivesDefaults()
    {
        QVERIFY(QDir().mkpath(filePath));
        QVERIFY(!ReadSettings());
        QCOMPARE(currentTables(), placeholders());
        WriteSettings(true);
        QVERIFY(QFileInfo(filePath).isDir());

        QVERIFY(QDir(filePath).removeRecursively());
        writeFile("[Game]\nLevel=2\n");
        QVERIFY(QFile::setPermissions(filePath, {}));
        if (QFile probe(filePath); probe.open(QIODevice::ReadOnly))
            QSKIP("file permissions do not stop this user from reading");
        QCOMPARE(SettingsStore(filePath).Read(u"Game", u"Level", "0"), u"0");
    }

    // A full disk is simulated with a file size limit, which binds every user, root included.
    void failedSaveLeavesOldFileWhole()
    {
        writeFile("[Game]\nLevel=2\n");
        SettingsStore store(filePath);
        store.Write("Easy", "Player", QString(100, u'x'));
        rlimit normal{};
        getrlimit(RLIMIT_FSIZE, &normal);
        const rlimit tiny{64, normal.rlim_max};
        const auto handler = std::signal(SIGXFSZ, SIG_IGN);
        const bool limited = setrlimit(RLIMIT_FSIZE, &tiny) == 0;
        const bool saved = store.Save();
        setrlimit(RLIMIT_FSIZE, &normal);
        std::signal(SIGXFSZ, handler);
        QVERIFY(limited && !saved);
        QCOMPARE(readFile(), QByteArray("[Game]\nLevel=2\n"));
        QCOMPARE(QFileInfo(filePath).dir().entryList(QDir::Files), QStringList{"Velkaro.ini"});
    }
};

QTEST_GUILESS_MAIN(SettingsTest)
#include "tst_settings.moc"
