#pragma once

#include <QImage>
#include <QList>

// The drawings of every picture of the game, each in its final size.

QList<QImage> DrawCells();  // 15 cells, 16 x 16
QList<QImage> DrawDigits(); // 10 seven-segment digits 0..9, 17 x 25
QList<QImage> DrawFaces();  // 4 faces, 21 x 21
QImage DrawIcon();          // 16 x 16
QImage DrawItalianFlag();   // 50 x 30
QImage DrawUnionFlag();     // 54 x 36
QImage DrawBubble();        // 200 x 140
QImage DrawPortrait();      // 200 x 160
