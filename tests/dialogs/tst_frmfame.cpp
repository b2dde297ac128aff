#include "Common.h"
#include "DialogUnderTest.h"
#include "frmFame.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

class FrmFameTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void controlsSitAtTheirPlaces_data();
    void controlsSitAtTheirPlaces();
    void firstRowStandsOutInLightGreen();
    void showsTheTablesAfterAFirstStart();
    void captionsFollowTheLanguage_data();
    void captionsFollowTheLanguage();
    void namesAreShownExactlyAsStored();
    void clearingWritesPlaceholdersAndStaysOpen_data();
    void clearingWritesPlaceholdersAndStaysOpen();
    void languageSwitchChangesTitlesButNotRows();
    void okClosesWithoutTouchingTheTables();
};

namespace {

std::array<RecordTable *, 3> Tables()
{
    return {&Common::EasyRecords, &Common::MediumRecords, &Common::HardRecords};
}

// The fifteen rows as the labels show them, "name|time", Easy first.
QStringList ShownRows(const DialogUnderTest<frmFame> &dialog)
{
    QStringList rows;
    for (int level = 1; level <= 3; ++level) {
        for (int row = 0; row < 5; ++row) {
            const QString index = QStringLiteral("%1(%2)").arg(level).arg(row);
            rows << dialog.Child<QLabel>("pl" + index)->text() + "|" +
                        dialog.Child<QLabel>("sc" + index)->text();
        }
    }
    return rows;
}

// The fifteen rows as the tables hold them, in the same shape.
QStringList StoredRows()
{
    QStringList rows;
    for (const RecordTable *table : Tables()) {
        for (const RecordRow &row : *table)
            rows << row.Name + "|" + row.Time;
    }
    return rows;
}

QStringList FrameTitles(const DialogUnderTest<frmFame> &dialog)
{
    return {dialog.Child<QGroupBox>("Frame1")->title(), dialog.Child<QGroupBox>("Frame2")->title(),
            dialog.Child<QGroupBox>("Frame3")->title()};
}

// Every table as the start-up reset leaves it: "Player1" to "Player5", all "999".
void FirstStartTables()
{
    for (RecordTable *table : Tables()) {
        for (int row = 0; row < 5; ++row)
            (*table)[row] = RecordRow{QStringLiteral("Player%1").arg(row + 1), "999"};
    }
}

// Distinct records a player could have won, Easy "e0" with 10 seconds and so on.
void WonTables()
{
    const QStringList levels{"e", "m", "h"};
    for (int level = 0; level < 3; ++level) {
        for (int row = 0; row < 5; ++row)
            (*Tables()[level])[row] =
                RecordRow{levels[level] + QString::number(row), QString::number(10 * (row + 1))};
    }
}

} // namespace

void FrmFameTest::init()
{
    Common::LangEnglish = false;
    FirstStartTables();
}

void FrmFameTest::controlsSitAtTheirPlaces_data()
{
    AddPlaceColumns();
    const int frameLeft[] = {8, 160, 312};
    for (int level = 1; level <= 3; ++level) {
        const QString frame = QStringLiteral("Frame%1").arg(level);
        QTest::newRow(qPrintable(frame))
            << frame << "frmFame" << QRect(frameLeft[level - 1], 8, 141, 153);
        for (int row = 0; row < 5; ++row) {
            const int y = row == 0 ? 24 : 28 + 24 * row;
            const QString index = QStringLiteral("%1(%2)").arg(level).arg(row);
            QTest::newRow(qPrintable("pl" + index)) << "pl" + index << frame << QRect(8, y, 89, 17);
            QTest::newRow(qPrintable("sc" + index))
                << "sc" + index << frame << QRect(100, y, 29, 17);
        }
    }
    QTest::newRow("btnCancel") << "btnCancel"
                               << "frmFame" << QRect(8, 172, 141, 21);
    QTest::newRow("btnClose") << "btnClose"
                              << "frmFame" << QRect(396, 172, 57, 21);
}

void FrmFameTest::controlsSitAtTheirPlaces()
{
    VerifyControlPlace<frmFame>(QSize(465, 205));
}

void FrmFameTest::firstRowStandsOutInLightGreen()
{
    DialogUnderTest<frmFame> dialog;
    for (int level = 1; level <= 3; ++level) {
        for (int row = 0; row < 5; ++row) {
            const auto *name = dialog.Child<QLabel>(QStringLiteral("pl%1(%2)").arg(level).arg(row));
            QCOMPARE(name->palette().color(QPalette::WindowText),
                     row == 0 ? QColor(0xC0, 0xFF, 0xC0) : QColor(0x00, 0xC0, 0xC0));
            QVERIFY(!name->autoFillBackground());
        }
    }
}

void FrmFameTest::showsTheTablesAfterAFirstStart()
{
    DialogUnderTest<frmFame> dialog;
    QStringList expected;
    for (int level = 0; level < 3; ++level) {
        for (int row = 1; row <= 5; ++row)
            expected << QStringLiteral("Player%1|999").arg(row);
    }
    QCOMPARE(ShownRows(dialog), expected);
}

void FrmFameTest::captionsFollowTheLanguage_data()
{
    QTest::addColumn<bool>("english");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QStringList>("frames");
    QTest::addColumn<QString>("clear");
    QTest::newRow("English") << true << " HALL OF FAME" << QStringList{"Easy", "Medium", "Hard"}
                             << "Clear Records";
    QTest::newRow("Italian") << false << " VETRINA DEI RECORD"
                             << QStringList{"Facile", "Medio", "Difficile"} << "Cancella i Records";
}

void FrmFameTest::captionsFollowTheLanguage()
{
    QFETCH(bool, english);
    QFETCH(QString, title);
    QFETCH(QStringList, frames);
    QFETCH(QString, clear);
    Common::LangEnglish = english;
    DialogUnderTest<frmFame> dialog;
    QCOMPARE(dialog->windowTitle(), title);
    QCOMPARE(FrameTitles(dialog), frames);
    QCOMPARE(dialog.Child<QPushButton>("btnCancel")->text(), clear);
    QCOMPARE(dialog.Child<QPushButton>("btnClose")->text(), "OK");
}

void FrmFameTest::namesAreShownExactlyAsStored()
{
    WonTables();
    Common::EasyRecords[2].Name = "";
    Common::MediumRecords[0].Name = "<b>x</b>";
    Common::HardRecords[4].Name = "  two  blanks ";
    DialogUnderTest<frmFame> dialog;
    QCOMPARE(ShownRows(dialog), StoredRows());
    QCOMPARE(dialog.Child<QLabel>("pl1(2)")->text(), "");
    QCOMPARE(dialog.Child<QLabel>("sc1(2)")->text(), "30");
    QCOMPARE(dialog.Child<QLabel>("pl2(0)")->textFormat(), Qt::PlainText);
}

void FrmFameTest::clearingWritesPlaceholdersAndStaysOpen_data()
{
    QTest::addColumn<bool>("english");
    QTest::addColumn<QString>("prefix");
    QTest::newRow("English") << true << "Player";
    QTest::newRow("Italian") << false << "Giocatore";
}

void FrmFameTest::clearingWritesPlaceholdersAndStaysOpen()
{
    QFETCH(bool, english);
    QFETCH(QString, prefix);
    Common::LangEnglish = english;
    WonTables();
    DialogUnderTest<frmFame> dialog;
    QStringList shownAfterClearing;
    const ModalRun run = dialog.RunModal([&] {
        QTest::mouseClick(dialog.Child<QPushButton>("btnCancel"), Qt::LeftButton);
        shownAfterClearing = ShownRows(dialog);
    });
    QCOMPARE(run, ModalRun::StayedOpen);
    QStringList expected;
    for (int level = 0; level < 3; ++level) {
        for (int row = 0; row < 5; ++row)
            expected << prefix + QString::number(row) + "|999";
    }
    QCOMPARE(StoredRows(), expected);
    QCOMPARE(shownAfterClearing, expected);
}

void FrmFameTest::languageSwitchChangesTitlesButNotRows()
{
    WonTables();
    {
        DialogUnderTest<frmFame> italian;
        QTest::mouseClick(italian.Child<QPushButton>("btnCancel"), Qt::LeftButton);
    }
    const QStringList cleared = StoredRows();
    QCOMPARE(cleared.first(), "Giocatore0|999");
    Common::LangEnglish = true;
    DialogUnderTest<frmFame> english;
    QCOMPARE(english->windowTitle(), " HALL OF FAME");
    QCOMPARE(FrameTitles(english), (QStringList{"Easy", "Medium", "Hard"}));
    QCOMPARE(ShownRows(english), cleared);
    QCOMPARE(StoredRows(), cleared);
}

void FrmFameTest::okClosesWithoutTouchingTheTables()
{
    WonTables();
    const QStringList before = StoredRows();
    DialogUnderTest<frmFame> dialog;
    const ModalRun run = dialog.RunModal(
        [&] { QTest::mouseClick(dialog.Child<QPushButton>("btnClose"), Qt::LeftButton); });
    QCOMPARE(run, ModalRun::Closed);
    QVERIFY(dialog.Deleted());
    QCOMPARE(StoredRows(), before);
}

QTEST_MAIN(FrmFameTest)
#include "tst_frmfame.moc"
