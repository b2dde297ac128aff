#include "frmFame.h"

#include "Common.h"
#include "DialogLook.h"
#include "RecordInsertion.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

namespace {

const QColor FameBackground(0x00, 0x40, 0x40);
const QColor BestName(0xC0, 0xFF, 0xC0);
const QColor OtherName(0x00, 0xC0, 0xC0);
const QColor TimeText(0x00, 0xFF, 0x00);
const QColor TimeBackground(0x00, 0x40, 0x00);

// Row 0 stands 4 pixels further apart from the rows below it.
int RowTop(int row)
{
    return row == 0 ? 24 : 28 + 24 * row;
}

// The name of element `row` of a label array of the level's frame, as in "pl2(0)".
QString ElementName(const char *array, int level, int row)
{
    return QStringLiteral("%1%2(%3)").arg(QLatin1String(array)).arg(level + 1).arg(row);
}

} // namespace

frmFame::frmFame(QWidget *parent) : QDialog(parent)
{
    PrepareDialog(this, QStringLiteral("frmFame"), QSize(465, 205));
    SetBackground(this, FameBackground);
    const bool english = Common::LangEnglish;
    setWindowTitle(english ? QStringLiteral(" HALL OF FAME")
                           : QStringLiteral(" VETRINA DEI RECORD"));

    Rows[0] = PlaceFrame(0, 8, english ? QStringLiteral("Easy") : QStringLiteral("Facile"));
    Rows[1] = PlaceFrame(1, 160, english ? QStringLiteral("Medium") : QStringLiteral("Medio"));
    Rows[2] = PlaceFrame(2, 312, english ? QStringLiteral("Hard") : QStringLiteral("Difficile"));

    auto *btnCancel = new QPushButton(
        english ? QStringLiteral("Clear Records") : QStringLiteral("Cancella i Records"), this);
    btnCancel->setObjectName(QStringLiteral("btnCancel"));
    btnCancel->setGeometry(8, 172, 141, 21);
    auto *btnClose = new QPushButton(QStringLiteral("OK"), this);
    btnClose->setObjectName(QStringLiteral("btnClose"));
    btnClose->setGeometry(396, 172, 57, 21);
    // OK takes Enter: the box often opens right after the name was typed and confirmed, and a
    // second Enter must not clear the records just won.
    btnClose->setDefault(true);
    btnClose->setFocus();
    connect(btnCancel, &QPushButton::clicked, this, &frmFame::btnCancel_Click);
    connect(btnClose, &QPushButton::clicked, this, &frmFame::btnClose_Click);

    ShowRecords();
}

frmFame::RowLabels frmFame::PlaceFrame(int level, int x, const QString &title)
{
    auto *frame = new QGroupBox(title, this);
    frame->setObjectName(QStringLiteral("Frame%1").arg(level + 1));
    frame->setGeometry(x, 8, 141, 153);
    frame->setFont(BoldDialogFont());
    SetTextColour(frame, Qt::white);
    SetBackground(frame, FameBackground);

    RowLabels labels;
    for (int row = 0; row < 5; ++row) {
        const int y = RowTop(row);
        QLabel *name = PlaceLabel(frame, ElementName("pl", level, row), QRect(8, y, 89, 17));
        SetTextColour(name, row == 0 ? BestName : OtherName);
        QLabel *time = PlaceLabel(frame, ElementName("sc", level, row), QRect(100, y, 29, 17));
        SetTextColour(time, TimeText);
        SetBackground(time, TimeBackground);
        time->setFrameStyle(QFrame::Panel | QFrame::Sunken);
        time->setLineWidth(1);
        time->setAlignment(Qt::AlignCenter);
        labels.Names[row] = name;
        labels.Times[row] = time;
    }
    return labels;
}

void frmFame::ShowRecords()
{
    for (int level = 0; level < 3; ++level) {
        const RecordTable &table = RecordsOfLevel(level);
        for (int row = 0; row < 5; ++row) {
            Rows[level].Names[row]->setText(table[row].Name);
            Rows[level].Times[row]->setText(table[row].Time);
        }
    }
}

void frmFame::btnCancel_Click()
{
    const QString prefix =
        Common::LangEnglish ? QStringLiteral("Player") : QStringLiteral("Giocatore");
    for (int row = 0; row < 5; ++row) {
        for (int level = 0; level < 3; ++level)
            RecordsOfLevel(level)[row] = RecordRow{prefix + QString::number(row), UnwonTime};
    }
    ShowRecords();
}

void frmFame::btnClose_Click()
{
    close();
}
