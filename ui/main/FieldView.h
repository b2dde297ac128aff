#pragma once

#include <QAccessible>
#include <QList>
#include <QPixmap>
#include <QWidget>

#include <array>
#include <set>

class QTimer;

// The field: a grid of cells inside a 2-pixel sunken border, each cell showing one picture of
// the cell set (1..15). Cells are numbered 1..NumCells row by row from the top. The view knows
// nothing of the game: it shows the pictures it is given and reports presses on cells.
//
// The keyboard reaches the field only by Tab. While it has the focus, the arrow keys move a
// current cell (Home/End to the ends of its row, with Ctrl to the first and last cell) that a
// focus frame marks, Space or Enter press it with the left button and F with the right one,
// reported exactly like mouse presses, and C asks for the counters to be read out. A mouse
// press also makes the pressed cell current; without the focus no frame is drawn.
//
// While assistive technology is active, changed cells are announced to it in batches, at most
// one batch per AnnounceInterval, so a flood opening many cells does not swamp it; when none is
// active nothing at all is sent to it.
class FieldView : public QWidget
{
    Q_OBJECT

public:
    // Side of one square cell, the size of the cell pictures.
    static constexpr int CellSize = 16;
    // Width of the sunken border on each side.
    static constexpr int BorderWidth = 2;
    // Shortest time between two announcements of changed cells, in milliseconds.
    static constexpr int AnnounceInterval = 100;
    // A batch with more changed cells than this is announced as one change of the table.
    static constexpr int MaxCellAnnouncements = 32;

    explicit FieldView(QWidget *parent = nullptr);
    ~FieldView() override;

    // Shows a new field of fieldX columns by fieldY rows (0..49 each), every cell covered
    // (picture 13), and takes the matching fixed size.
    void Reset(int fieldX, int fieldY);

    // Shows picture p (1..15) on cell i (1..NumCells); repaints that cell only.
    void SetPic(int i, int p);
    // The picture cell i (1..NumCells) shows.
    int Pic(int i) const;

    // The cell the keyboard acts on; a new field starts at its first cell.
    int CurrentCell() const { return current; }
    // What the last press on the current cell brought about, as spoken; empty once it moves.
    QString Note() const { return note; }
    // Adds `what` to the note. What is added during one turn of the event loop is announced
    // together: as one change of the current cell's description, and as a notification shown.
    void Announce(const QString &what);

    int FieldX() const { return columns; }
    int FieldY() const { return rows; }
    // Where cell i (1..NumCells) is drawn, in this widget's coordinates.
    QRect CellRect(int i) const;
    // The cell under a point in this widget's coordinates, or 0 on the border or outside.
    int CellAt(QPoint point) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

signals:
    // A left, right or middle button went down on cell `index`.
    void CellPressed(int index, Qt::MouseButton button);
    // That button came up again; `index` is the cell of the press that preceded it.
    void CellReleased(int index, Qt::MouseButton button);
    // The player asked, with the keyboard, to hear the bomb counter and the clock.
    void CountersAsked();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    void AnnounceChangedCells();
    void AnnounceNote();
    // Tells active assistive technology that cell i has had this kind of change.
    void SendCellEvent(int i, QAccessible::Event type);
    // Makes the cell at column x, row y (0-based, kept inside the field) the current one.
    void MoveCurrentTo(int x, int y);
    void PressCurrent(Qt::MouseButton button);

    int columns = 0;
    int rows = 0;
    QList<int> pictures;
    int pressedIndex = 0;
    int current = 1;
    QString note;
    QString pendingNote;
    // The note as a notification for screen readers, registered when first announced.
    QAccessible::Id noteId = 0;
    // The cell pictures, converted once: index p - 1 holds picture p.
    std::array<QPixmap, 15> cellPixmaps;
    // Cells changed since the last announcement, and the timer that sends the next one.
    std::set<int> changedCells;
    QTimer *announceTimer;
    QTimer *noteTimer;
};
