#include "frmCustom.h"

#include "Common.h"
#include "DialogLook.h"
#include "NumericText.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

constexpr int MinSide = 7;
constexpr int MaxSide = 49;
constexpr int MinBombs = 7;

int TypedValue(const QLineEdit *box)
{
    return WholeValue(NumericValue(box->text()));
}

QLineEdit *PlaceNumberBox(QWidget *frame, const char *name, int y, int value)
{
    auto *box = new QLineEdit(QString::number(value), frame);
    box->setObjectName(QLatin1String(name));
    box->setFont(TextBoxFont());
    box->setGeometry(108, y, 37, 19);
    return box;
}

QPushButton *PlaceButton(QWidget *dialog, const char *name, int x, const QString &caption)
{
    auto *button = new QPushButton(caption, dialog);
    button->setObjectName(QLatin1String(name));
    button->setGeometry(x, 120, 53, 17);
    return button;
}

} // namespace

frmCustom::frmCustom(QWidget *parent) : QDialog(parent)
{
    PrepareDialog(this, QStringLiteral("frmCustom"), QSize(185, 145));
    const bool english = Common::LangEnglish;
    setWindowTitle(english ? QStringLiteral("Custom game") : QStringLiteral("Personalizza"));

    auto *btnOk = PlaceButton(this, "btnOk", 124, QStringLiteral("OK"));
    auto *Frame1 = new QGroupBox(this);
    Frame1->setObjectName(QStringLiteral("Frame1"));
    Frame1->setGeometry(4, 4, 177, 109);
    txX = PlaceNumberBox(Frame1, "txX", 16, Common::FieldX);
    txY = PlaceNumberBox(Frame1, "txY", 44, Common::FieldY);
    txB = PlaceNumberBox(Frame1, "txB", 72, Common::Bombs);
    PlaceLabel(Frame1, QStringLiteral("Label1"), QRect(8, 20, 85, 13),
               english ? QStringLiteral("Horizontal size") : QStringLiteral("Caselle orizzontali"));
    PlaceLabel(Frame1, QStringLiteral("Label2"), QRect(8, 48, 85, 13),
               english ? QStringLiteral("Vertical size") : QStringLiteral("Caselle verticali"));
    PlaceLabel(Frame1, QStringLiteral("Label3"), QRect(8, 76, 85, 13),
               english ? QStringLiteral("Number of bombs") : QStringLiteral("Numero di bombe"));
    auto *btnCancel = PlaceButton(this, "btnCancel", 8,
                                  english ? QStringLiteral("Cancel") : QStringLiteral("Annulla"));

    setTabOrder(btnOk, txX);
    setTabOrder(txX, txY);
    setTabOrder(txY, txB);
    setTabOrder(txB, btnCancel);
    btnOk->setDefault(true);
    btnOk->setFocus();

    connect(btnOk, &QPushButton::clicked, this, &frmCustom::btnOk_Click);
    connect(btnCancel, &QPushButton::clicked, this, &frmCustom::btnCancel_Click);
}

void frmCustom::btnOk_Click()
{
    const int columns = TypedValue(txX);
    if (columns >= MinSide && columns <= MaxSide)
        Common::FieldX = columns;
    const int rows = TypedValue(txY);
    if (rows >= MinSide && rows <= MaxSide)
        Common::FieldY = rows;
    // A kept count is not checked against the new size here; the field builder lowers it.
    const int bombLimit = Common::FieldY * Common::FieldX / 5;
    const int bombs = TypedValue(txB);
    if (bombs >= MinBombs && bombs < bombLimit)
        Common::Bombs = bombs;
    close();
}

void frmCustom::btnCancel_Click()
{
    close();
}
