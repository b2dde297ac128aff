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
