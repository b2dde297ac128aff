#pragma once

#include <QColor>

// The greys of the cell pictures, for everything drawn around the field, so that the window,
// the field's border and the smiley button read as one surface with the cells.
namespace Palette {

inline const QColor Face(0xD2, 0xD2, 0xD2);
inline const QColor LightOuter(0xEB, 0xEB, 0xEB);
inline const QColor LightInner(0xDE, 0xDE, 0xDE);
inline const QColor DarkOuter(0xB8, 0xB8, 0xB8);
inline const QColor DarkInner(0xC5, 0xC5, 0xC5);

} // namespace Palette
