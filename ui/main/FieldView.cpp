#include "FieldView.h"

#include "Bevel.h"
#include "CellPicture.h"
#include "PictureSet.h"

#include <QAccessible>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QTimer>

#include <utility>

namespace {

bool IsCellButton(Qt::MouseButton button)
{
    return button == Qt::LeftButton || button == Qt::RightButton || button == Qt::MiddleButton;
}

} // namespace

FieldView::FieldView(QWidget *parent) : QWidget(parent)
{
    // Every pixel is painted from the pictures and the border: no background fill needed.
    setAttribute(Qt::WA_OpaquePaintEvent);
    announceTimer = new QTimer(this);
    announceTimer->setSingleShot(true);
    announceTimer->setInterval(AnnounceInterval);
    connect(announceTimer, &QTimer::timeout, this, &FieldView::AnnounceChangedCells);
    const PictureSet &cells = PictureSet::IL();
    for (int p = 1; p <= cells.Count(); ++p)
        cellPixmaps[p - 1] = cells.Picture(p);
    Reset(0, 0);
}

void FieldView::Reset(int fieldX, int fieldY)
{
    columns = fieldX;
    rows = fieldY;
    pictures.fill(CellPicture::Covered, columns * rows);
    pressedIndex = 0;
    setFixedSize(sizeHint());
    update();
    changedCells.clear();
    announceTimer->stop();
    if (QAccessible::isActive()) {
        QAccessibleTableModelChangeEvent event(this, QAccessibleTableModelChangeEvent::ModelReset);
        QAccessible::updateAccessibility(&event);
    }
}

void FieldView::SetPic(int i, int p)
{
    Q_ASSERT(i >= 1 && i <= pictures.size());
    Q_ASSERT(p >= 1 && p <= int(cellPixmaps.size()));
    if (pictures[i - 1] == p)
        return;
    pictures[i - 1] = p;
    update(CellRect(i));
    if (QAccessible::isActive()) {
        changedCells.insert(i);
        if (!announceTimer->isActive())
            announceTimer->start();
    }
}

void FieldView::AnnounceChangedCells()
{
    const std::set<int> cells = std::exchange(changedCells, {});
    if (cells.empty() || !QAccessible::isActive())
        return;
    if (int(cells.size()) > MaxCellAnnouncements) {
        QAccessibleTableModelChangeEvent event(this, QAccessibleTableModelChangeEvent::DataChanged);
        event.setFirstRow((*cells.begin() - 1) / columns);
        event.setLastRow((*cells.rbegin() - 1) / columns);
        event.setFirstColumn(0);
        event.setLastColumn(columns - 1);
        QAccessible::updateAccessibility(&event);
        return;
    }
    QAccessibleInterface *table = QAccessible::queryAccessibleInterface(this);
    if (!table || !table->tableInterface())
        return; // no cells to name without the game's accessibility factory
    for (const int cell : cells) {
        QAccessibleEvent event(table->child(cell - 1), QAccessible::NameChanged);
        QAccessible::updateAccessibility(&event);
    }
}

int FieldView::Pic(int i) const
{
    Q_ASSERT(i >= 1 && i <= pictures.size());
    return pictures[i - 1];
}

QRect FieldView::CellRect(int i) const
{
    const int x = (i - 1) % columns;
    const int y = (i - 1) / columns;
    return QRect(BorderWidth + x * CellSize, BorderWidth + y * CellSize, CellSize, CellSize);
}

QSize FieldView::sizeHint() const
{
    return QSize(CellSize * columns + 2 * BorderWidth, CellSize * rows + 2 * BorderWidth);
}

void FieldView::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    const QRect dirty = event->rect();
    const QRect cellArea(BorderWidth, BorderWidth, CellSize * columns, CellSize * rows);
    if (!cellArea.contains(dirty))
        PaintBevel(painter, rect(), true);

    const QRect cells = dirty & cellArea;
    if (cells.isEmpty())
        return;
    // Only the cells the dirty rectangle touches.
    const int firstX = (cells.left() - BorderWidth) / CellSize;
    const int lastX = (cells.right() - BorderWidth) / CellSize;
    const int firstY = (cells.top() - BorderWidth) / CellSize;
    const int lastY = (cells.bottom() - BorderWidth) / CellSize;
    for (int y = firstY; y <= lastY; ++y) {
        for (int x = firstX; x <= lastX; ++x) {
            const int picture = pictures[y * columns + x];
            painter.drawPixmap(BorderWidth + x * CellSize, BorderWidth + y * CellSize,
                               cellPixmaps[picture - 1]);
        }
    }
}

int FieldView::CellAt(QPoint point) const
{
    const int px = point.x() - BorderWidth;
    const int py = point.y() - BorderWidth;
    if (px < 0 || py < 0 || px >= CellSize * columns || py >= CellSize * rows)
        return 0;
    return (py / CellSize) * columns + px / CellSize + 1;
}

void FieldView::mousePressEvent(QMouseEvent *event)
{
    const int index = CellAt(event->position().toPoint());
    if (!IsCellButton(event->button()) || index == 0)
        return;
    pressedIndex = index;
    emit CellPressed(index, event->button());
}

void FieldView::mouseReleaseEvent(QMouseEvent *event)
{
    if (!IsCellButton(event->button()) || pressedIndex == 0)
        return;
    const int index = pressedIndex;
    if (event->buttons() == Qt::NoButton)
        pressedIndex = 0;
    emit CellReleased(index, event->button());
}
