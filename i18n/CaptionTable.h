#pragma once

#include <QString>

// The numbered caption texts of the main window's menus: 101..115 in Italian and the same
// captions in English under 201..215, so English number = Italian number + 100. The order is
// mnuGame, its five items, mnuLev, its four items, mnudbg, its two items, mnuWho.
// Any other number gives an empty text.
QString LoadString(int number);
