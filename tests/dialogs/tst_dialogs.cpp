#include "Common.h"
#include "frmAbout.h"
#include "frmCustom.h"
#include "frmFame.h"
#include "frmPlayer.h"

#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QRegularExpression>
#include <QtTest>

#include <functional>

namespace {

// A dialog opened by a test the way the program opens it. The dialog deletes itself when it
// closes; one still there when the test ends is deleted then, so a failing test never leaves a
// dialog behind.
template<class Dialog> class DialogUnderTest
{
public:
    DialogUnderTest() : dialog(new Dialog) {}
    ~DialogUnderTest() { delete dialog.data(); }

    Dialog *operator->() const { return dialog; }

    QWidget *Child(const QString &name) const
    {
        return dialog->template findChild<QWidget *>(name);
    }

    // True once the dialog has closed and deleted itself.
    bool Deleted() const
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return dialog.isNull();
    }

    // Opens the dialog with exec(), as the program does, and calls `whileOpen` from inside its
    // event loop once it is the active window. True if the dialog was still open afterwards (or
    // never became active); it is closed then, so exec() always returns.
    bool RunModal(const std::function<void()> &whileOpen)
    {
        bool stayedOpen = false;
        QTimer::singleShot(0, dialog.data(), [&] {
            if (QTest::qWaitForWindowActive(dialog.data()))
                whileOpen();
            stayedOpen = dialog && dialog->isVisible();
            if (stayedOpen)
                dialog->close();
        });
        dialog->exec();
        return stayedOpen;
    }

    // Checks the entries of `places` from the dialog's own name, which stands for its fixed client
    // area, up to the next dialog's name: the places of its controls inside their parents.
    void VerifyPlaces(const QList<std::pair<QString, QRect>> &places) const
    {
        QCOMPARE(dialog->minimumSize(), dialog->maximumSize());
        auto entry = std::find(places.begin(), places.end(),
                               std::pair(dialog->objectName(), dialog->rect()));
        QVERIFY2(entry != places.end(), qPrintable(dialog->objectName()));
        for (++entry; entry != places.end() && !entry->first.startsWith("frm"); ++entry) {
            const QWidget *control = Child(entry->first);
            QVERIFY2(control && control->geometry() == entry->second, qPrintable(entry->first));
        }
    }

    // The window title, then the caption of each named control (a frame's title).
    QStringList Texts(const QStringList &names) const
    {
        QStringList texts{dialog->windowTitle()};
        for (const QString &name : names) {
            const QWidget *control = Child(name);
            const char *caption = control && control->inherits("QGroupBox") ? "title" : "text";
            texts << (control ? control->property(caption).toString() : "(missing)");
        }
        return texts;
    }

private:
    QPointer<Dialog> dialog;
};

const std::array<RecordTable *, 3> Tables{&Common::EasyRecords, &Common::MediumRecords,
                                          &Common::HardRecords};

// The fifteen hall of fame rows as "name|time", Easy first: as shown, as stored, and as written
// by the start-up reset (first = 1) or by clearing (first = 0).
QStringList ShownRows(const DialogUnderTest<frmFame> &dialog)
{
    QStringList rows;
    for (int row = 0; row < 15; ++row) {
        const QString index = QStringLiteral("%1(%2)").arg(row / 5 + 1).arg(row % 5);
        rows << dialog.Texts({"pl" + index, "sc" + index}).mid(1).join('|');
    }
    return rows;
}
QStringList StoredRows()
{
    QStringList rows;
    for (const RecordTable *table : Tables)
        for (const RecordRow &row : *table)
            rows << row.Name + "|" + row.Time;
    return rows;
}
QStringList PlaceholderRows(const QString &prefix, int first)
{
    QStringList rows;
    for (int row = 0; row < 15; ++row)
        rows << prefix + QString::number(first + row % 5) + "|999";
    return rows;
}

} // namespace

class tst_dialogs : public QObject
{
    Q_OBJECT

private slots:
    // Every case starts after a first start and an Easy game in Italian.
    void init()
    {
        Common::FieldX = Common::FieldY = 9;
        Common::Bombs = 10;
        Common::LangEnglish = false;
        for (RecordTable *table : Tables)
            for (int row = 0; row < 5; ++row)
                (*table)[row] = RecordRow{QStringLiteral("Player%1").arg(row + 1), "999"};
    }

    void controlsSitAtTheirPlaces()
    {
        const QList<std::pair<QString, QRect>> places{
            {"frmCustom", {0, 0, 185, 145}},  {"btnOk", {124, 120, 53, 17}},
            {"txB", {108, 72, 37, 19}},       {"frmFame", {0, 0, 465, 205}},
            {"Frame3", {312, 8, 141, 153}},   {"sc1(4)", {100, 124, 29, 17}},
            {"btnClose", {396, 172, 57, 21}}, {"frmPlayer", {0, 0, 203, 59}},
            {"txPlayer", {56, 20, 105, 19}},  {"frmAbout", {0, 0, 326, 232}},
            {"Image1", {160, 44, 200, 160}},  {"nose", {188, 92, 22, 22}},
            {"callout", {-4, 100, 200, 140}}, {"lI3", {15, 180, 133, 45}},
        };
        DialogUnderTest<frmCustom>().VerifyPlaces(places);
        DialogUnderTest<frmFame>().VerifyPlaces(places);
        DialogUnderTest<frmPlayer>().VerifyPlaces(places);
        DialogUnderTest<frmAbout>().VerifyPlaces(places);
    }

    void captionsFollowTheLanguage()
    {
        for (const bool english : {true, false}) {
            Common::LangEnglish = english;
            const QStringList shown =
                DialogUnderTest<frmCustom>().Texts({"Label1", "Label3", "btnCancel"}) +
                DialogUnderTest<frmFame>().Texts({"Frame1", "Frame3", "btnCancel"}) +
                DialogUnderTest<frmPlayer>().Texts({"Label1"}) +
                DialogUnderTest<frmAbout>().Texts({});
            QCOMPARE(shown.join('|'),
                     english
                         ? "Custom game|Horizontal size|Number of bombs|Cancel| HALL OF FAME|Easy|"
                           "Hard|Clear Records|Player Name|Player|Who I am"
                         : "Personalizza|Caselle orizzontali|Numero di bombe|Annulla|"
                           " VETRINA DEI RECORD|Facile|Difficile|Cancella i Records|"
                           "Nome giocatore|Giocatore|Who I am");
        }
    }

    void customTakesValuesWithinLimitsOnOkOrEnterAndNothingOnCancel()
    {
        const auto field = [] { return QList<int>{Common::FieldX, Common::FieldY, Common::Bombs}; };
        // Fills in columns, rows and bombs without moving the focus.
        const auto type = [](DialogUnderTest<frmCustom> &dialog, const QStringList &typed) {
            for (int box = 0; box < 3; ++box)
                dialog->findChild<QLineEdit *>(QStringList{"txX", "txY", "txB"}[box])
                    ->setText(typed[box]);
        };
        // Columns, rows and bombs typed; FieldX, FieldY and Bombs after OK, starting from 9, 9, 10.
        const std::pair<QStringList, QList<int>> cases[] = {
            {{"7", "7", "7"}, {7, 7, 7}},         {{"7", "7", "8"}, {7, 7, 8}},
            {{"7", "7", "9"}, {7, 7, 10}},        {{"49", "49", "479"}, {49, 49, 479}},
            {{"49", "49", "480"}, {49, 49, 10}},  {{"50", "20", "30"}, {9, 20, 30}},
            {{"7.5", "8.5", "8"}, {8, 8, 8}},     {{"6.5", "9", "12"}, {9, 9, 12}},
            {{"49.5", "49.5", "10"}, {9, 9, 10}}, {{"", "", ""}, {9, 9, 10}},
        };
        for (const auto &[typed, expected] : cases) {
            init();
            DialogUnderTest<frmCustom> dialog;
            type(dialog, typed);
            QTest::mouseClick(dialog.Child("btnOk"), Qt::LeftButton);
            QVERIFY2(field() == expected && dialog.Deleted(), qPrintable(typed.join(" / ")));
        }
        DialogUnderTest<frmCustom> cancelled;
        type(cancelled, {"20", "20", "40"});
        QTest::mouseClick(cancelled.Child("btnCancel"), Qt::LeftButton);
        QVERIFY(field() == (QList<int>{9, 9, 10}) && cancelled.Deleted());
        DialogUnderTest<frmCustom> entered;
        QVERIFY(!entered.RunModal([&] {
            type(entered, {"12", "14", "20"});
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        }));
        QCOMPARE(field(), (QList<int>{12, 14, 20}));
    }

    void fameShowsTheRowsAsStoredAndClearsThemInTheLanguageStayingOpen()
    {
        QCOMPARE(ShownRows(DialogUnderTest<frmFame>()), PlaceholderRows("Player", 1));
        Common::MediumRecords[2] = RecordRow{"", "42"}; // an empty name stays empty
        QCOMPARE(ShownRows(DialogUnderTest<frmFame>()), StoredRows());
        // Enter right after opening closes the box and clears nothing.
        DialogUnderTest<frmFame> entered;
        QVERIFY(!entered.RunModal(
            [] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return); }));
        QCOMPARE(Common::MediumRecords[2], (RecordRow{"", "42"}));
        for (const bool english : {true, false}) {
            Common::LangEnglish = english;
            DialogUnderTest<frmFame> dialog;
            QStringList shown;
            QVERIFY(dialog.RunModal([&] {
                QTest::mouseClick(dialog.Child("btnCancel"), Qt::LeftButton);
                shown = ShownRows(dialog);
            }));
            QCOMPARE(StoredRows(), PlaceholderRows(english ? "Player" : "Giocatore", 0));
            QCOMPARE(shown, StoredRows());
            // After a language switch the titles change, the rows do not.
            Common::LangEnglish = !english;
            DialogUnderTest<frmFame> switched;
            QCOMPARE(switched.Texts({"Frame1"}).join('|'),
                     english ? " VETRINA DEI RECORD|Facile" : " HALL OF FAME|Easy");
            QCOMPARE(ShownRows(switched), shown);
        }
    }

    void playerProposesTheDefaultFullySelectedAndHandsOverOnlyOk()
    {
        for (const bool english : {true, false}) {
            Common::LangEnglish = english;
            const QString proposal = english ? "Anonymous" : "Anonimo";
            // The keys typed right after each opening, and the name held afterwards.
            const std::pair<QString, QString> openings[] = {
                {"Zoe\r", "Zoe"}, {"\b\r", ""},     {"   \r", "   "},
                {"x\x1b", "   "}, {"\r", proposal},
            };
            for (const auto &[keys, name] : openings) {
                DialogUnderTest<frmPlayer> dialog;
                QString selected;
                QVERIFY(!dialog.RunModal([&] {
                    selected = dialog->findChild<QLineEdit *>("txPlayer")->selectedText();
                    QTest::keyClicks(QApplication::focusWidget(), keys);
                }));
                QVERIFY2(selected == proposal && Common::PlayerName == name, qPrintable(keys));
            }
        }
    }

    void aboutShowsTheLanguageClosesOnlyWhereItShouldAndHintsAtTheNose()
    {
        // Language, click place or key, and whether it closes the box: the background, the
        // portrait, lI3, lE3, a flag, the bubble over the portrait, a letter, an arrow.
        const std::tuple<bool, QPoint, int, bool> cases[] = {
            {false, {280, 20}, 0, true},  {false, {250, 60}, 0, true},
            {false, {60, 195}, 0, true},  {true, {60, 195}, 0, true},
            {true, {198, 18}, 0, false},  {false, {175, 150}, 0, false},
            {false, {}, Qt::Key_A, true}, {false, {}, Qt::Key_Left, false},
        };
        for (const bool english : {true, false}) {
            Common::LangEnglish = english;
            DialogUnderTest<frmAbout> dialog;
            dialog->show(); // without a nested event loop, for clicks and keys sent to its window
            QVERIFY(QTest::qWaitForWindowExposed(dialog->windowHandle()));
            QStringList visible;
            for (const QWidget *control :
                 dialog->findChildren<QWidget *>(QRegularExpression("^(l[EI]\\d|[Ff]lag[EI])$")))
                if (control->isVisible())
                    visible << control->objectName();
            visible.sort();
            QCOMPARE(visible.join(' '),
                     english ? "FlagE lE1 lE2 lE3 lE4 lE5" : "flagI lI1 lI2 lI3 lI4 lI5");
            // The hint follows the language at the click, not the one the box was built in.
            Common::LangEnglish = !english;
            QStringList shown;
            QTimer::singleShot(0, dialog.operator->(), [&] {
                if (auto *hint = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
                    shown << hint->windowTitle() << hint->text();
                    hint->accept();
                }
            });
            QTest::mouseClick(dialog->windowHandle(), Qt::LeftButton, {}, {199, 103});
            QCOMPARE(shown.join('|'),
                     english ? "Un pò di disonestà !|"
                               "durante il gioco, premi Shift+Ctrl+F12...e vedi cosa succede !"
                             : "Be dishonest !|"
                               "during game, press Shift+Ctrl+F12...and see what happens !");
            QVERIFY(!dialog.Deleted() && dialog->isVisible());
        }
        for (const auto &[english, place, key, closes] : cases) {
            Common::LangEnglish = english;
            DialogUnderTest<frmAbout> dialog;
            dialog->show();
            QVERIFY(QTest::qWaitForWindowExposed(dialog->windowHandle()));
            if (key)
                QTest::keyClick(dialog->windowHandle(), Qt::Key(key));
            else
                QTest::mouseClick(dialog->windowHandle(), Qt::LeftButton, {}, place);
            QVERIFY2(dialog.Deleted() == closes,
                     qPrintable(QStringLiteral("%1 %2").arg(place.x()).arg(key)));
        }
    }
};

QTEST_MAIN(tst_dialogs)
#include "tst_dialogs.moc"
