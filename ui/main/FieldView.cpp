#include "FieldView.h"

#include "AccessibleFieldNote.h"
#include "Bevel.h"
#include "CellPicture.h"
#include "PictureSet.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace {

bool IsCellButton(Qt::MouseButton button)
{
    return button == Qt::LeftButton || button == Qt::RightButton || button == Qt::MiddleButton;
}

// Black outside (the painter's first pen), white inside: visible on covered, open and marked
// cells alike.
void PaintFocusFrame(QPainter &painter, const QRect &cell)
{
    painter.drawRect(cell.adjusted(0, 0, -1, -1));
    painter.setPen(Qt::white);
    painter.drawRect(cell.adjusted(1, 1, -2, -2));
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
    noteTimer = new QTimer(this);
    noteTimer->setSingleShot(true);
    noteTimer->setInterval(0);
    connect(noteTimer, &QTimer::timeout, this, &FieldView::AnnounceNote);
    setFocusPolicy(Qt::TabFocus);
    const PictureSet &cells = PictureSet::IL();
    for (int p = 1; p <= cells.Count(); ++p)
        cellPixmaps[p - 1] = cells.Picture(p);
    Reset(0, 0);
}

FieldView::~FieldView()
{
    if (noteId != 0)
        QAccessible::deleteAccessibleInterface(noteId);
}

void FieldView::Reset(int fieldX, int fieldY)
{
    columns = fieldX;
    rows = fieldY;
    pictures.fill(CellPicture::Covered, columns * rows);
    pressedIndex = 0;
    current = 1;
    note.clear();
    pendingNote.clear();
    setFixedSize(sizeHint());
    update();
    changedCells.clear();
    announceTimer->stop();
    if (QAccessible::isActive()) {
        QAccessibleTableModelChangeEvent event(this, QAccessibleTableModelChangeEvent::ModelReset);
        QAccessible::updateAccessibility(&event);
        if (hasFocus())
            SendCellEvent(current, QAccessible::Focus);
    }
}

void FieldView::Announce(const QString &what)
{
    pendingNote += (pendingNote.isEmpty() ? QString() : QStringLiteral(", ")) + what;
    noteTimer->start();
}

void FieldView::AnnounceNote()
{
    note = std::exchange(pendingNote, {});
    if (!QAccessible::isActive())
        return;
    SendCellEvent(current, QAccessible::DescriptionChanged);
    if (noteId == 0)
        noteId = QAccessible::registerAccessibleInterface(new AccessibleFieldNote(this));
    QAccessibleEvent shown(QAccessible::accessibleInterface(noteId), QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&shown);
}

void FieldView::SendCellEvent(int i, QAccessible::Event type)
{
    QAccessibleInterface *table =
        QAccessible::isActive() ? QAccessible::queryAccessibleInterface(this) : nullptr;
    if (!table || !table->tableInterface())
        return; // nobody listens, or no cells to name without the game's accessibility factory
    QAccessibleEvent event(table->child(i - 1), type);
    QAccessible::updateAccessibility(&event);
}

void FieldView::MoveCurrentTo(int x, int y)
{
    const int index = std::clamp(y, 0, rows - 1) * columns + std::clamp(x, 0, columns - 1) + 1;
    if (index == current)
        return;
    update(CellRect(current));
    current = index;
    note.clear();
    update(CellRect(current));
    if (hasFocus())
        SendCellEvent(current, QAccessible::Focus);
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
    if (cells.empty())
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
    for (const int cell : cells)
        SendCellEvent(cell, QAccessible::NameChanged);
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
    if (hasFocus())
        PaintFocusFrame(painter, CellRect(current));
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
    MoveCurrentTo((index - 1) % columns, (index - 1) / columns);
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

void FieldView::keyPressEvent(QKeyEvent *event)
{
    const int x = (current - 1) % columns;
    const int y = (current - 1) / columns;
    const bool toCorner = event->modifiers().testFlag(Qt::ControlModifier);
    switch (event->key()) {
    case Qt::Key_Left:
        return MoveCurrentTo(x - 1, y);
    case Qt::Key_Right:
        return MoveCurrentTo(x + 1, y);
    case Qt::Key_Up:
        return MoveCurrentTo(x, y - 1);
    case Qt::Key_Down:
        return MoveCurrentTo(x, y + 1);
    case Qt::Key_Home:
        return MoveCurrentTo(0, toCorner ? 0 : y);
    case Qt::Key_End:
        return MoveCurrentTo(columns - 1, toCorner ? rows - 1 : y);
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        // A held key repeats; one press of the key is one press on the cell.
        if (!event->isAutoRepeat())
            PressCurrent(Qt::LeftButton);
        return;
    case Qt::Key_F:
        if (!event->isAutoRepeat())
            PressCurrent(Qt::RightButton);
        return;
    case Qt::Key_C:
        emit CountersAsked();
        return;
    default:
        QWidget::keyPressEvent(event);
    }
}

void FieldView::PressCurrent(Qt::MouseButton button)
{
    emit CellPressed(current, button);
    emit CellReleased(current, button);
}

void FieldView::focusInEvent(QFocusEvent *)
{
    update(CellRect(current));
    // After the focus event Qt sends for the whole field, so that the cell is where the
    // screen reader stays.
    QTimer::singleShot(0, this, [this] {
        if (hasFocus())
            SendCellEvent(current, QAccessible::Focus);
    });
}

void FieldView::focusOutEvent(QFocusEvent *)
{
    update(CellRect(current));
}
