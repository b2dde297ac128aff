#pragma once

#include <QPixmap>

// The single pictures of the program, loaded from the embedded resources at each call.
// Each needs a running QGuiApplication, as every QPixmap does.

// Window icon, 16 x 16: an exploding bomb on a pale yellow square in a grey bevel.
QPixmap WindowIconPicture();
// Italian tricolour, 50 x 30, opaque.
QPixmap ItalianFlagPicture();
// Flag of the United Kingdom, 54 x 36, opaque.
QPixmap UnitedKingdomFlagPicture();
// Cream speech bubble, 200 x 140, transparent outside, its tail at the top right.
QPixmap SpeechBubblePicture();
// Portrait of the author, 200 x 160, transparent background; the nose lies inside the
// 22 x 22 square whose top left corner is (28, 48).
QPixmap PortraitPicture();
