#pragma once

#include <QList>
#include <QWidget>

class QAction;
class QMenuBar;
class QVBoxLayout;

// A menu bar that wraps onto further lines when its items do not fit the window's width, so
// that every item stays in sight on a narrow field instead of hiding behind an overflow button.
class WrappingMenuBar : public QWidget
{
    Q_OBJECT

public:
    explicit WrappingMenuBar(QWidget *parent = nullptr);

    // Adds an item at the end: a menu's action opens that menu, any other action is a command.
    void AddItem(QAction *item);

    // Lays the items out on as few lines as fit `width`, each line filled in order; an item
    // wider than `width` alone still takes a line of its own.
    void FitTo(int width);

private:
    QMenuBar *AddLine();

    QList<QAction *> items;
    QList<QMenuBar *> lines;
    QVBoxLayout *layout;
};
