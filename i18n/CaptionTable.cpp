#include "CaptionTable.h"

#include <array>

namespace {

struct Caption
{
    const char *Italian;
    const char *English;
};

constexpr std::array<Caption, 15> Captions = {{
    {"Gioco", "Game"},
    {"Nuova partita", "New"},
    {"Annulla partita", "Abort"},
    {"Suono", "Sound"},
    {"I Record...", "Hall of Fame..."},
    {"Esci", "Exit"},
    {"Livello", "Level"},
    {"Facile", "Easy"},
    {"Medio", "Medium"},
    {"Difficile", "Hard"},
    {"Personalizzato...", "Custom..."},
    {"Barare", "Debug"},
    {"Mostra celle", "Show cells"},
    {"Nascondi celle", "Hide cells"},
    {"A proposito...", "About..."},
}};

constexpr int ItalianFirst = 101;
constexpr int EnglishFirst = 201;

bool InSet(int number, int first)
{
    return number >= first && number < first + int(Captions.size());
}

} // namespace

QString LoadString(int number)
{
    if (InSet(number, ItalianFirst)) {
        return QString::fromUtf8(Captions[number - ItalianFirst].Italian);
    }
    if (InSet(number, EnglishFirst)) {
        return QString::fromUtf8(Captions[number - EnglishFirst].English);
    }
    return {};
}
