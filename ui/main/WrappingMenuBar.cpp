#include "WrappingMenuBar.h"

#include <QMenuBar>
#include <QVBoxLayout>

WrappingMenuBar::WrappingMenuBar(QWidget *parent) : QWidget(parent), layout(new QVBoxLayout(this))
{
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
}

void WrappingMenuBar::AddItem(QAction *item)
{
    items.append(item);
    FitTo(width());
}

void WrappingMenuBar::FitTo(int width)
{
    for (QMenuBar *line : lines) {
        for (QAction *item : line->actions())
            line->removeAction(item);
    }
    int used = 0;
    QMenuBar *line = lines.isEmpty() ? AddLine() : lines.first();
    for (QAction *item : items) {
        line->addAction(item);
        if (line->actions().size() > 1 && line->sizeHint().width() > width) {
            line->removeAction(item);
            ++used;
            line = used < lines.size() ? lines[used] : AddLine();
            line->addAction(item);
        }
    }
    int height = 0;
    for (QMenuBar *each : lines) {
        each->setVisible(!each->actions().isEmpty());
        if (!each->actions().isEmpty())
            height += each->sizeHint().height();
    }
    setFixedSize(width, height);
}

QMenuBar *WrappingMenuBar::AddLine()
{
    auto *line = new QMenuBar(this);
    line->setObjectName(QStringLiteral("menuLine%1").arg(lines.size()));
    layout->addWidget(line);
    lines.append(line);
    return line;
}
