#pragma once

#include <QList>
#include <QPixmap>
#include <QWidget>

#include <array>

// The field: a grid of cells inside a 2-pixel sunken border, each cell showing one picture of
// the cell set (1..15). Cells are numbered 1..NumCells row by row from the top. The view knows
// nothing of the game: it shows the pictures it is given and reports presses on cells.
class FieldView : public QWidget
{
    Q_OBJECT

public:
    // Side of one square cell, the size of the cell pictures.
    static constexpr int CellSize = 16;
    // Width of the sunken border on each side.
    static constexpr int BorderWidth = 2;

    explicit FieldView(QWidget *parent = nullptr);

    // Shows a new field of fieldX columns by fieldY rows (0..49 each), every cell covered
    // (picture 13), and takes the matching fixed size.
    void Reset(int fieldX, int fieldY);

    // Shows picture p (1..15) on cell i (1..NumCells); repaints that cell only.
    void SetPic(int i, int p);
    // The picture cell i (1..NumCells) shows.
    int Pic(int i) const;

    int FieldX() const { return columns; }
    int FieldY() const { return rows; }
    // Where cell i (1..NumCells) is drawn, in this widget's coordinates.
    QRect CellRect(int i) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

signals:
    // A left, right or middle button went down on cell `index`.
    void CellPressed(int index, Qt::MouseButton button);
    // That button came up again; `index` is the cell of the press that preceded it.
    void CellReleased(int index, Qt::MouseButton button);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    // The cell under a point, or 0 on the border.
    int CellAt(QPoint point) const;

    int columns = 0;
    int rows = 0;
    QList<int> pictures;
    int pressedIndex = 0;
    // The cell pictures, converted once: index p - 1 holds picture p.
    std::array<QPixmap, 15> cellPixmaps;
};
