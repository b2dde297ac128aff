#pragma once

#include <QColor>
#include <QFont>
#include <QRect>
#include <QSize>

class QDialog;
class QLabel;
class QWidget;

// The common look of the dialogs, whose controls are placed at fixed pixel positions and
// sized for a small sans-serif font.

// Names the dialog, gives it the dialogs' font and its fixed client size, and makes it delete
// itself when it closes (each opening builds it afresh).
void PrepareDialog(QDialog *dialog, const QString &name, const QSize &client);

// The dialogs' normal font: a condensed sans-serif of 7.5 points (10 pixels on a 96 dpi
// screen), narrow enough for the longest captions to fit their fixed label sizes.
QFont DialogFont();
// The same font in bold.
QFont BoldDialogFont();
// The font of the number boxes: the same family, bold, 8.25 points.
QFont TextBoxFont();

// Text colour of a widget (label text, group titles, text box text).
void SetTextColour(QWidget *widget, const QColor &colour);
// Opaque background of the given colour behind the widget.
void SetBackground(QWidget *widget, const QColor &colour);

// A label named `name` at `place` inside `parent`, showing `text` as plain text (never as
// markup, so a player's name always appears exactly as stored).
QLabel *PlaceLabel(QWidget *parent, const QString &name, const QRect &place,
                   const QString &text = QString());
