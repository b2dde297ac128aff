#include "DialogLook.h"

#include <QDialog>
#include <QLabel>
#include <QPalette>

void PrepareDialog(QDialog *dialog, const QString &name, const QSize &client)
{
    dialog->setObjectName(name);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFont(DialogFont());
    dialog->setFixedSize(client);
}

QFont DialogFont()
{
    QFont font;
    font.setFamilies({QStringLiteral("DejaVu Sans Condensed")});
    font.setStyleHint(QFont::SansSerif);
    font.setPointSizeF(7.5);
    return font;
}

QFont BoldDialogFont()
{
    QFont font = DialogFont();
    font.setBold(true);
    return font;
}

QFont TextBoxFont()
{
    QFont font = BoldDialogFont();
    font.setPointSizeF(8.25);
    return font;
}

void SetTextColour(QWidget *widget, const QColor &colour)
{
    QPalette palette = widget->palette();
    palette.setColor(QPalette::WindowText, colour);
    palette.setColor(QPalette::Text, colour);
    widget->setPalette(palette);
}

void SetBackground(QWidget *widget, const QColor &colour)
{
    QPalette palette = widget->palette();
    palette.setColor(QPalette::Window, colour);
    widget->setPalette(palette);
    widget->setAutoFillBackground(true);
}

QLabel *PlaceLabel(QWidget *parent, const QString &name, const QRect &place, const QString &text)
{
    auto *label = new QLabel(text, parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setGeometry(place);
    return label;
}
