#include "AwkwardNames.h"
#include "Common.h"
#include "ConfigFolder.h"
#include "GameSettings.h"

#include <QTest>

namespace {

RecordTable placeholderTable()
{
    RecordTable table;
    for (int row = 0; row < 5; ++row)
        table[row] = {"Player" + QString::number(row + 1), "999"};
    return table;
}

RecordTable table(std::initializer_list<RecordRow> rows)
{
    RecordTable result;
    std::copy(rows.begin(), rows.end(), result.begin());
    return result;
}

void clearTables()
{
    Common::EasyRecords = Common::MediumRecords = Common::HardRecords = RecordTable();
}

using Tables = std::array<RecordTable, 3>; // Easy, Medium, Hard

// The three tables after a shutdown that stored them and a start-up that read them back.
Tables writtenAndReadBack(const Tables &tables)
{
    Common::EasyRecords = tables[0];
    Common::MediumRecords = tables[1];
    Common::HardRecords = tables[2];
    WriteSettings(false);
    clearTables();
    ReadSettings();
    return {Common::EasyRecords, Common::MediumRecords, Common::HardRecords};
}

const QLocale English(QLocale::English, QLocale::UnitedKingdom);
const QLocale Italian(QLocale::Italian, QLocale::Italy);

} // namespace

class GameSettingsTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        clearTables();
        Common::Level = Common::LevelMedium;
    }

    void firstRunCreatesPlaceholderTables()
    {
        ConfigFolder folder;
        QVERIFY(!ReadSettings());
        QCOMPARE(Common::Level, Common::LevelEasy);
        QCOMPARE(Common::EasyRecords, placeholderTable());
        QCOMPARE(Common::MediumRecords, placeholderTable());
        QCOMPARE(Common::HardRecords, placeholderTable());

        QByteArray expected;
        for (const char *section : {"Easy", "Medium", "Hard"}) {
            expected += (expected.isEmpty() ? "[" : "\n[") + QByteArray(section) + "]\n";
            for (int n = 1; n <= 5; ++n)
                expected += "Player" + QByteArray::number(n) + "=999\n";
        }
        QCOMPARE(folder.ReadFile(), expected);
    }

    void wronglySizedEasyResetsAllTables_data()
    {
        QTest::addColumn<QByteArray>("easy");
        QTest::newRow("missing") << QByteArray();
        QTest::newRow("empty") << QByteArray("[Easy]\n");
        QTest::newRow("four") << QByteArray("[Easy]\nA=1\nB=2\nC=3\nD=4\n");
        QTest::newRow("six") << QByteArray("[Easy]\nA=1\nB=2\nC=3\nD=4\nE=5\nF=6\n");
    }

    void wronglySizedEasyResetsAllTables()
    {
        QFETCH(QByteArray, easy);
        ConfigFolder folder;
        folder.WriteFile(easy + "[Medium]\nM1=10\nM2=20\nM3=30\nM4=40\nM5=50\n"
                                "[Hard]\nH1=10\nH2=20\nH3=30\nH4=40\nH5=50\n[Game]\nLevel=2\n");
        ReadSettings();
        QCOMPARE(Common::EasyRecords, placeholderTable());
        QCOMPARE(Common::MediumRecords, placeholderTable());
        QCOMPARE(Common::HardRecords, placeholderTable());
        QCOMPARE(Common::Level, Common::LevelHard);
        QVERIFY(!folder.ReadFile().contains("H1"));
    }

    void mediumAndHardAreFittedToFiveRows()
    {
        ConfigFolder folder;
        folder.WriteFile("[Easy]\nA=1\nB=2\nC=3\nD=4\nE=5\n[Medium]\nM=7\nN=8\n"
                         "[Hard]\nH1=1\nH2=2\nH3=3\nH4=4\nH5=5\nH6=6\nH7=7\n");
        ReadSettings();
        QCOMPARE(Common::EasyRecords,
                 table({{"A", "1"}, {"B", "2"}, {"C", "3"}, {"D", "4"}, {"E", "5"}}));
        QCOMPARE(Common::MediumRecords, table({{"M", "7"},
                                               {"N", "8"},
                                               {"Player3", "999"},
                                               {"Player4", "999"},
                                               {"Player5", "999"}}));
        QCOMPARE(Common::HardRecords,
                 table({{"H1", "1"}, {"H2", "2"}, {"H3", "3"}, {"H4", "4"}, {"H5", "5"}}));
    }

    void tablesRoundTripInRowOrder_data()
    {
        QTest::addColumn<RecordTable>("easy");
        QTest::addColumn<RecordTable>("medium");
        QTest::addColumn<RecordTable>("hard");
        QTest::newRow("unsorted names")
            << table({{"Zoe", "9"}, {"Adam", "14"}, {"Mia", "14"}, {"Bob", "80"}, {"Al", "999"}})
            << table({{"Player0", "999"},
                      {"Player1", "999"},
                      {"Player2", "999"},
                      {"Player3", "999"},
                      {"Player4", "999"}})
            << table({{"Giocatore0", "999"},
                      {"Giocatore1", "999"},
                      {"Giocatore2", "999"},
                      {"Giocatore3", "999"},
                      {"Giocatore4", "999"}});
        QTest::newRow("equal names")
            << table({{"Anonymous", "12"},
                      {"Anonymous", "30"},
                      {"Anonymous", "30"},
                      {"Anonymous", "41"},
                      {"Anonymous", "999"}})
            << table({{"Ann", "5"}, {"Bo", "6"}, {"Ann", "7"}, {"Bo", "8"}, {"Ann", "9"}})
            << table({{"", "0"},
                      {"", "1"},
                      {"Player1", "999"},
                      {"Player1", "999"},
                      {"Player1 #2", "999"}});
    }

    void tablesRoundTripInRowOrder()
    {
        QFETCH(RecordTable, easy);
        QFETCH(RecordTable, medium);
        QFETCH(RecordTable, hard);
        ConfigFolder folder;
        const Tables written = {easy, medium, hard};
        QCOMPARE(writtenAndReadBack(written), written);
    }

    void awkwardNamesSurvive()
    {
        ConfigFolder folder;
        const QStringList names = AwkwardNames();
        for (qsizetype first = 0; first < names.size(); first += 15) {
            Tables written;
            for (int i = 0; i < 15; ++i)
                written[i / 5][i % 5] = {names[(first + i) % names.size()], QString::number(i)};
            QCOMPARE(writtenAndReadBack(written), written);
        }
    }

    void soundIsWrittenInTheLocaleWords_data()
    {
        QTest::addColumn<QLocale>("locale");
        QTest::addColumn<bool>("soundOn");
        QTest::addColumn<QByteArray>("line");
        QTest::newRow("Italian on") << Italian << true << QByteArray("\nSound=Vero\n");
        QTest::newRow("Italian off") << Italian << false << QByteArray("\nSound=Falso\n");
        QTest::newRow("English on") << English << true << QByteArray("\nSound=True\n");
        QTest::newRow("English off") << English << false << QByteArray("\nSound=False\n");
        QTest::newRow("German on")
            << QLocale(QLocale::German) << true << QByteArray("\nSound=True\n");
    }

    void soundIsWrittenInTheLocaleWords()
    {
        QFETCH(QLocale, locale);
        QFETCH(bool, soundOn);
        QFETCH(QByteArray, line);
        ConfigFolder folder;
        ReadSettings();
        WriteSettings(soundOn, locale);
        QVERIFY2(folder.ReadFile().contains(line), folder.ReadFile().constData());
        QCOMPARE(ReadSettings(), soundOn);
    }

    void soundWordsAreReadInAnyCase_data()
    {
        QTest::addColumn<QByteArray>("stored");
        QTest::addColumn<bool>("soundOn");
        for (const char *word : {"True", "true", "TRUE", "Vero", "vERO"})
            QTest::newRow(word) << QByteArray(word) << true;
        for (const char *word : {"False", "falso", "FALSO", "yes", "1", "-1", "", "Vero!"})
            QTest::newRow(word) << QByteArray(word) << false;
    }

    void soundWordsAreReadInAnyCase()
    {
        QFETCH(QByteArray, stored);
        QFETCH(bool, soundOn);
        ConfigFolder folder;
        folder.WriteFile("[Game]\nSound=" + stored + "\n");
        QCOMPARE(ReadSettings(), soundOn);
    }

    void storedLevelSelectsStartLevel_data()
    {
        QTest::addColumn<QByteArray>("stored");
        QTest::addColumn<int>("level");
        QTest::newRow("custom starts easy") << QByteArray("3") << 0;
        QTest::newRow("hard") << QByteArray("2") << 2;
        QTest::newRow("medium with blanks") << QByteArray(" 1 ") << 1;
        QTest::newRow("1.5 rounds to even") << QByteArray("1.5") << 2;
        QTest::newRow("2.5 rounds to even") << QByteArray("2.5") << 2;
        QTest::newRow("no number") << QByteArray("x") << 0;
        QTest::newRow("negative") << QByteArray("-1") << 0;
        QTest::newRow("beyond 32 bits") << QByteArray("99999999999") << 0;
        QTest::newRow("empty") << QByteArray("") << 0;
    }

    void storedLevelSelectsStartLevel()
    {
        QFETCH(QByteArray, stored);
        QFETCH(int, level);
        ConfigFolder folder;
        folder.WriteFile("[Game]\nLevel=" + stored + "\n");
        ReadSettings();
        QCOMPARE(Common::Level, level);
    }

    void customLevelIsWrittenAsItIs()
    {
        ConfigFolder folder;
        ReadSettings();
        Common::Level = Common::LevelCustom;
        WriteSettings(false, English);
        QVERIFY(folder.ReadFile().endsWith("[Game]\nSound=False\nLevel=3\n"));
    }

    void damagedFileGivesDefaultsAndIsRewrittenClean()
    {
        ConfigFolder folder;
        QByteArray junk;
        for (int i = 0; i < 4096; ++i)
            junk += char(i % 256);
        folder.WriteFile(junk);
        QVERIFY(!ReadSettings());
        QCOMPARE(Common::Level, Common::LevelEasy);
        QCOMPARE(Common::EasyRecords, placeholderTable());

        Common::EasyRecords[0] = {"Eve", "42"};
        WriteSettings(true, Italian);
        QVERIFY(!folder.ReadFile().contains('\0'));
        QVERIFY(folder.ReadFile().startsWith("[Easy]\nEve=42\nPlayer2=999\n"));
        QVERIFY(folder.ReadFile().endsWith("[Game]\nSound=Vero\nLevel=0\n"));
    }

    void folderAtFilePathIsSurvivedSilently()
    {
        ConfigFolder folder;
        QVERIFY(QDir().mkpath(folder.FilePath()));
        QVERIFY(!ReadSettings());
        QCOMPARE(Common::HardRecords, placeholderTable());
        WriteSettings(true);
        QVERIFY(QFileInfo(folder.FilePath()).isDir());
    }
};

QTEST_GUILESS_MAIN(GameSettingsTest)
#include "tst_gamesettings.moc"
