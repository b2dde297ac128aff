#include "AwkwardNames.h"
#include "ConfigFolder.h"
#include "SettingsStore.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QStringDecoder>
#include <QTest>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

using Entries = QList<SettingsStore::Entry>;

namespace {

// Every non-empty line of a clean file is a section header or holds a raw '='.
bool isCleanFile(const QByteArray &bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder(bytes);
    if (decoder.hasError())
        return false;
    const QStringList lines = text.split(u'\n');
    return std::all_of(lines.begin(), lines.end(), [](const QString &line) {
        return line.isEmpty() || line.startsWith(u'[') || line.contains(u'=');
    });
}

} // namespace

class SettingsStoreTest : public QObject
{
    Q_OBJECT

private slots:
    void filePathFollowsConfigHome()
    {
        const ConfigFolder folder; // puts XDG_CONFIG_HOME back when done
        const QByteArray home = qgetenv("HOME");
        qputenv("HOME", "/home/someone");
        qputenv("XDG_CONFIG_HOME", "/cfg/here");
        QCOMPARE(SettingsStore::DefaultFilePath(), u"/cfg/here/Velkaro/Velkaro.ini");
        qputenv("XDG_CONFIG_HOME", "");
        QCOMPARE(SettingsStore::DefaultFilePath(), u"/home/someone/.config/Velkaro/Velkaro.ini");
        qputenv("XDG_CONFIG_HOME", "relative/path");
        QCOMPARE(SettingsStore::DefaultFilePath(), u"/home/someone/.config/Velkaro/Velkaro.ini");
        qputenv("HOME", home);
    }

    void missingValuesGiveDefaultsAndNothingListed()
    {
        ConfigFolder folder;
        SettingsStore store(folder.FilePath());
        QCOMPARE(store.Read(u"Game", u"Level", QStringLiteral("0")), u"0");
        QVERIFY(store.List(u"Easy").isEmpty());
        store.DeleteSection(u"Easy");
        store.Write("Game", "Sound", "True");
        QCOMPARE(store.Read(u"Game", u"Level", QStringLiteral("0")), u"0");
        QCOMPARE(store.Read(u"Other", u"Sound", QStringLiteral("x")), u"x");
    }

    void sectionListsValuesInWrittenOrder()
    {
        ConfigFolder folder;
        SettingsStore store(folder.FilePath());
        for (const char *name : {"Zoe", "Adam", "Mia", "Bob", "Adele"})
            store.Write("Easy", name, QString::number(qstrlen(name)));
        store.Write("Easy", "Mia", "77"); // keeps its place
        const Entries expected = {
            {"Zoe", "3"}, {"Adam", "4"}, {"Mia", "77"}, {"Bob", "3"}, {"Adele", "5"}};
        QCOMPARE(store.List(u"Easy"), expected);
        QVERIFY(store.Save());
        QCOMPARE(SettingsStore(folder.FilePath()).List(u"Easy"), expected);
    }

    void deletedSectionIsGoneAfterSave()
    {
        ConfigFolder folder;
        SettingsStore store(folder.FilePath());
        store.Write("Easy", "Zoe", "1");
        store.Write("Game", "Level", "2");
        store.DeleteSection(u"Easy");
        QVERIFY(store.Save());
        const SettingsStore reloaded(folder.FilePath());
        QVERIFY(reloaded.List(u"Easy").isEmpty());
        QCOMPARE(reloaded.Read(u"Game", u"Level", QString()), u"2");
    }

    void repeatedKeysKeepEveryValueInOrder()
    {
        ConfigFolder folder;
        SettingsStore store(folder.FilePath());
        const Entries rows = {{"Anonymous", "12"}, {"Anonymous", "30"}, {"", "31"},
                              {"Anonymous", "41"}, {"", "999"},         {"Anonymous #2", "5"}};
        for (const SettingsStore::Entry &row : rows)
            store.Append("Easy", row.Key, row.Value);
        QVERIFY(store.Save());
        const QByteArray file = folder.ReadFile();
        QVERIFY(file.contains("\nAnonymous #2=30\n"));
        QVERIFY(file.contains("\nAnonymous \\#2=5\n"));
        const SettingsStore reloaded(folder.FilePath());
        QCOMPARE(reloaded.List(u"Easy"), rows);
        QCOMPARE(reloaded.Read(u"Easy", u"Anonymous", QString()), u"12");
    }

    void writeReplacesEveryValueOfTheKey()
    {
        ConfigFolder folder;
        folder.WriteFile("[Game]\nLevel=2\nSound=True\nLevel=1\n");
        SettingsStore store(folder.FilePath());
        QCOMPARE(store.Read(u"Game", u"Level", QString()), u"2");
        store.Write("Game", "Level", "0");
        const Entries expected = {{"Level", "0"}, {"Sound", "True"}};
        QCOMPARE(store.List(u"Game"), expected);
    }

    void awkwardTextRoundTrips_data()
    {
        QTest::addColumn<QString>("text");
        for (const QString &name : AwkwardNames())
            QTest::newRow(name.toUtf8().toPercentEncoding().constData()) << name;
    }

    void awkwardTextRoundTrips()
    {
        QFETCH(QString, text);
        ConfigFolder folder;
        SettingsStore store(folder.FilePath());
        store.Write("Easy", "before", "1");
        store.Append("Easy", text, text);
        store.Append("Easy", text, "second");
        store.Write("Easy", "after", "2");
        store.Write(text, text, "section named after it");
        QVERIFY(store.Save());
        QVERIFY(isCleanFile(folder.ReadFile()));

        const SettingsStore reloaded(folder.FilePath());
        const Entries expected = {{"before", "1"}, {text, text}, {text, "second"}, {"after", "2"}};
        QCOMPARE(reloaded.List(u"Easy"), expected);
        QCOMPARE(reloaded.Read(text, text, QString()), u"section named after it");
    }

    void allAwkwardNamesTogetherStayApart()
    {
        ConfigFolder folder;
        SettingsStore store(folder.FilePath());
        Entries rows;
        for (const QString &name : AwkwardNames()) {
            rows.append({name, QString::number(rows.size())});
            store.Append("Easy", name, rows.back().Value);
        }
        QVERIFY(store.Save());
        QCOMPARE(SettingsStore(folder.FilePath()).List(u"Easy"), rows);
    }

    void fileStaysReadable()
    {
        ConfigFolder folder;
        SettingsStore store(folder.FilePath());
        store.Write("Easy", "Mario Rossi", "57");
        store.Write("Easy", QString::fromUtf16(u"Niccolò"), "60");
        store.Write("Easy", " a=b ", "61");
        store.Write("Easy", "quote\"s", "x = y");
        QVERIFY(store.Save());
        QCOMPARE(folder.ReadFile(), QString::fromUtf16(u"[Easy]\nMario Rossi=57\nNiccolò=60\n"
                                                       u"\\sa\\=b\\s=61\nquote\"s=x = y\n")
                                        .toUtf8());
    }

    void damagedFileKeepsWhatCanBeRead_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("level");
        QTest::addColumn<Entries>("easy");

        QTest::newRow("lines without =")
            << QByteArray("[Game]\nnonsense\nLevel=2\n[Easy]\njust text\nA=1\n") << "2"
            << Entries{{"A", "1"}};
        QTest::newRow("section twice") << QByteArray("[Easy]\nA=1\n[Game]\nLevel=1\n[Easy]\nB=2\n")
                                       << "1" << Entries{{"A", "1"}, {"B", "2"}};
        QTest::newRow("key twice") << QByteArray("[Game]\nLevel=2\nLevel=1\n[Easy]\nA=1\nA=2")
                                   << "2" << Entries{{"A", "1"}, {"A", "2"}};
        QTest::newRow("no trailing newline")
            << QByteArray("[Easy]\nA=1\n[Game]\nLevel=2") << "2" << Entries{{"A", "1"}};
        QTest::newRow("CRLF") << QByteArray("[Game]\r\nLevel=2\r\n\r\n[Easy]\r\nA=1\r\n") << "2"
                              << Entries{{"A", "1"}};
        QTest::newRow("invalid UTF-8")
            << QByteArray("[Game]\nLevel=1\xff\n[Easy]\n\xc3\x28=\xed\xa0\x80\n") << "1\uFFFD"
            << Entries{{"\uFFFD(", "\uFFFD\uFFFD\uFFFD"}};
        QTest::newRow("values before any section")
            << QByteArray("Level=2\n[Easy]\n; comment\nA=1\n") << "0" << Entries{{"A", "1"}};
        QTest::newRow("empty file") << QByteArray() << "0" << Entries{};
        QTest::newRow("unclosed header")
            << QByteArray("[Easy\nA=1\n[]\n=\n") << "0" << Entries{{"A", "1"}};
    }

    void damagedFileKeepsWhatCanBeRead()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, level);
        QFETCH(Entries, easy);
        ConfigFolder folder;
        folder.WriteFile(bytes);
        const SettingsStore store(folder.FilePath());
        QCOMPARE(store.Read(u"Game", u"Level", QStringLiteral("0")), level);
        QCOMPARE(store.List(u"Easy"), easy);

        QVERIFY(store.Save());
        QVERIFY(isCleanFile(folder.ReadFile()));
        QCOMPARE(SettingsStore(folder.FilePath()).Text(), store.Text());
    }

    void binaryJunkLoadsAndSavesClean()
    {
        ConfigFolder folder;
        QByteArray junk(64 * 1024, Qt::Uninitialized);
        QRandomGenerator random(20240611);
        for (char &byte : junk)
            byte = char(random.bounded(256));
        junk.replace(0, 15, "[Game]\nLevel=2\n");
        folder.WriteFile(junk);
        const SettingsStore store(folder.FilePath());
        QCOMPARE(store.Read(u"Game", u"Level", QString()), u"2");
        QVERIFY(store.Save());
        QVERIFY(isCleanFile(folder.ReadFile()));
        QCOMPARE(SettingsStore(folder.FilePath()).Text(), store.Text());
    }

    void hugeFileLoadsQuicklyAndOnlyItsStart()
    {
        ConfigFolder folder;
        QByteArray start = "[Game]\nLevel=2\n[Easy]\n";
        while (start.size() < 3 * 1024 * 1024)
            start += "Junk=junk value\n";
        folder.WriteFile(start);
        QFile file(folder.FilePath());
        QVERIFY(file.resize(100 * 1024 * 1024));

        QElapsedTimer timer;
        timer.start();
        const SettingsStore store(folder.FilePath());
        QVERIFY2(timer.elapsed() < 1000, qPrintable(QString::number(timer.elapsed()) + " ms"));
        QCOMPARE(store.Read(u"Game", u"Level", QString()), u"2");
        const Entries easy = store.List(u"Easy");
        QVERIFY(!easy.isEmpty() && easy.size() < 1024 * 1024 / 16);
        QCOMPARE(easy.back(), (SettingsStore::Entry{"Junk", "junk value"}));
    }

    void unreadableFileGivesEmptyStore()
    {
        ConfigFolder folder;
        folder.WriteFile("[Game]\nLevel=2\n");
        QVERIFY(QFile::setPermissions(folder.FilePath(), {}));
        if (QFile probe(folder.FilePath()); probe.open(QIODevice::ReadOnly))
            QSKIP("file permissions do not stop this user from reading");
        QCOMPARE(SettingsStore(folder.FilePath()).Read(u"Game", u"Level", "0"), u"0");
    }

    void folderOrPipeAtFilePathNeitherFailsNorBlocks()
    {
        ConfigFolder folder;
        QVERIFY(QDir().mkpath(folder.FilePath()));
        SettingsStore store(folder.FilePath());
        QVERIFY(store.List(u"Easy").isEmpty());
        store.Write("Game", "Level", "1");
        QVERIFY(!store.Save());
        QVERIFY(QFileInfo(folder.FilePath()).isDir());

        QVERIFY(QDir(folder.FilePath()).removeRecursively());
        QCOMPARE(mkfifo(QFile::encodeName(folder.FilePath()).constData(), 0600), 0);
        QCOMPARE(SettingsStore(folder.FilePath()).Read(u"Game", u"Level", "0"), u"0");
    }

    void saveCreatesMissingFolders()
    {
        ConfigFolder folder;
        const QString path = folder.Path() + "/not/yet/there/Velkaro.ini";
        SettingsStore store(path);
        store.Write("Game", "Level", "1");
        QVERIFY(store.Save());
        QCOMPARE(SettingsStore(path).Read(u"Game", u"Level", QString()), u"1");
    }

    // A full disk is simulated with a file size limit, which holds for every user.
    void failedSaveLeavesOldFileWhole()
    {
        ConfigFolder folder;
        const QByteArray old = "[Game]\nLevel=2\n";
        folder.WriteFile(old);
        SettingsStore store(folder.FilePath());
        for (int i = 0; i < 100; ++i)
            store.Append("Easy", "Player", QString::number(i));

        rlimit saved{};
        QCOMPARE(getrlimit(RLIMIT_FSIZE, &saved), 0);
        rlimit tiny = saved;
        tiny.rlim_cur = 64;
        const auto previousHandler = std::signal(SIGXFSZ, SIG_IGN);
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &tiny), 0);
        const bool saveSucceeded = store.Save();
        setrlimit(RLIMIT_FSIZE, &saved);
        std::signal(SIGXFSZ, previousHandler);

        QVERIFY(!saveSucceeded);
        QCOMPARE(folder.ReadFile(), old);
        QCOMPARE(QDir(QFileInfo(folder.FilePath()).absolutePath()).entryList(QDir::Files),
                 QStringList{"Velkaro.ini"});
    }
};

QTEST_GUILESS_MAIN(SettingsStoreTest)
#include "tst_settingsstore.moc"
