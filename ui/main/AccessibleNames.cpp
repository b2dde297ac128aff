#include "AccessibleNames.h"

#include "CellPicture.h"
#include "Common.h"
#include "DigitDisplay.h"
#include "FieldView.h"
#include "SmileButton.h"

#include <utility>

namespace {

QString Choose(const char *italian, const char *english)
{
    return QString::fromUtf8(Common::LangEnglish ? english : italian);
}

// `count` followed by the singular or the plural word of the current language.
QString Counted(int count, const char *italianOne, const char *italianMore, const char *englishOne,
                const char *englishMore)
{
    return QString::number(count) + u' ' +
           (count == 1 ? Choose(italianOne, englishOne) : Choose(italianMore, englishMore));
}

} // namespace

QString CellName(int picture)
{
    // Pictures 10 to 15: the bombs and flags shown at a loss, then the covered cells.
    static constexpr std::pair<const char *, const char *> Shown[] = {
        {"bomba", "bomb"},
        {"bomba esplosa", "exploded bomb"},
        {"bandierina sbagliata", "wrong flag"},
        {"coperta", "covered"},
        {"bandierina", "flag"},
        {"punto interrogativo", "question mark"}};
    if (picture == CellPicture::Empty)
        return Choose("vuota", "empty");
    if (picture < CellPicture::HiddenBomb)
        return QString::number(picture - 1);
    const auto &[italian, english] = Shown[picture - CellPicture::HiddenBomb];
    return Choose(italian, english);
}

QString CellPlace(int row, int column)
{
    return Choose("riga %1, colonna %2", "row %1, column %2").arg(row).arg(column);
}

QString BombsText(int count)
{
    return Counted(count, "bomba", "bombe", "bomb", "bombs");
}

QString BombsLeftText(int count)
{
    return Counted(count, "bomba rimasta", "bombe rimaste", "bomb left", "bombs left");
}

QString SecondsText(int count)
{
    return Counted(count, "secondo", "secondi", "second", "seconds");
}

QString CellsOpenedText(int count)
{
    return Counted(count, "casella aperta", "caselle aperte", "cell opened", "cells opened");
}

QString FaceMeaning(int face)
{
    static constexpr std::pair<const char *, const char *> Meanings[] = {
        {"partita vinta", "game won"},
        {"partita persa", "game lost"},
        {"tasto premuto", "button pressed"},
        {"normale", "normal"}};
    const auto &[italian, english] = Meanings[face - 1];
    return Choose(italian, english);
}

void NameControls(DigitDisplay *bombCounter, SmileButton *smile, DigitDisplay *clock,
                  FieldView *field)
{
    bombCounter->setAccessibleName(Choose("Bombe rimaste", "Bombs left"));
    smile->setAccessibleName(Choose("Nuova partita", "New game"));
    clock->setAccessibleName(Choose("Tempo rimasto", "Time left"));
    field->setAccessibleName(Choose("Campo", "Field"));
}
