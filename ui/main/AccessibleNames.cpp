#include "AccessibleNames.h"

#include "CellPicture.h"
#include "Common.h"
#include "DigitDisplay.h"
#include "FieldView.h"
#include "SmileButton.h"

namespace {

QString Choose(const char *italian, const char *english)
{
    return QString::fromUtf8(Common::LangEnglish ? english : italian);
}

} // namespace

QString CellName(int picture)
{
    if (picture > CellPicture::Empty && picture < CellPicture::HiddenBomb)
        return QString::number(picture - 1);
    switch (picture) {
    case CellPicture::Empty:
        return Choose("vuota", "empty");
    case CellPicture::HiddenBomb:
        return Choose("bomba", "bomb");
    case CellPicture::Exploded:
        return Choose("bomba esplosa", "exploded bomb");
    case CellPicture::WrongFlag:
        return Choose("bandierina sbagliata", "wrong flag");
    case CellPicture::Covered:
        return Choose("coperta", "covered");
    case CellPicture::Flag:
        return Choose("bandierina", "flag");
    case CellPicture::Query:
        return Choose("punto interrogativo", "question mark");
    default:
        return {};
    }
}

QString FaceMeaning(int face)
{
    switch (face) {
    case 1:
        return Choose("partita vinta", "game won");
    case 2:
        return Choose("partita persa", "game lost");
    case 3:
        return Choose("tasto premuto", "button pressed");
    default:
        return Choose("normale", "normal");
    }
}

void NameControls(DigitDisplay *bombCounter, SmileButton *smile, DigitDisplay *clock,
                  FieldView *field)
{
    bombCounter->setAccessibleName(Choose("Bombe rimaste", "Bombs left"));
    smile->setAccessibleName(Choose("Nuova partita", "New game"));
    clock->setAccessibleName(Choose("Tempo rimasto", "Time left"));
    field->setAccessibleName(Choose("Campo", "Field"));
}
