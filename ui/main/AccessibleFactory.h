#pragma once

#include <QString>

class QAccessibleInterface;
class QObject;

// The accessible interfaces of the game window's own widgets: the field (a table of named
// cells), the bomb counter and the clock (values) and the smiley button (its face's meaning).
// Returns nullptr for any other object. Install once with QAccessible::installFactory; Qt calls
// it only when assistive technology or a test asks for an interface.
QAccessibleInterface *CreateGameAccessible(const QString &className, QObject *object);
