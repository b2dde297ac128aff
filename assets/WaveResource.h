#pragma once

#include <QByteArray>

// The complete RIFF WAVE image of sound id (101..105), exactly as embedded, ready to hand to a
// wave loader; an empty array for any other id.
//   101 click on a cell, 102 game lost, 103 start-up and game won, 104 two-minute warning,
//   105 clock tick.
QByteArray WaveResource(int id);
