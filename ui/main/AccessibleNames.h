#pragma once

#include <QString>

class DigitDisplay;
class FieldView;
class SmileButton;

// The words that assistive technology reads for the game window, in the language of
// Common::LangEnglish at the moment of the call.

// What a player sees on a cell showing picture p (1..15): "coperta", "bandierina", "3" and so on.
QString CellName(int picture);
// Where a cell is, counted from 1: "riga 4, colonna 5".
QString CellPlace(int row, int column);
// Numbers of things: "10 bombe", "9 bombe rimaste", "300 secondi", "15 caselle aperte".
QString BombsText(int count);
QString BombsLeftText(int count);
QString SecondsText(int count);
QString CellsOpenedText(int count);
// What face f (1 won, 2 lost, 3 button down on a cell, 4 normal) of the smiley button means.
QString FaceMeaning(int face);

// Gives the bomb counter, the smiley button, the clock and the field their accessible names in
// the current language; called at every language switch.
void NameControls(DigitDisplay *bombCounter, SmileButton *smile, DigitDisplay *clock,
                  FieldView *field);
