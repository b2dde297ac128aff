#include "FieldPicture.h"

#include "FieldBuilder.h"

#include <QStringList>

namespace {

void markCell(Cell &cell, QChar c)
{
    cell.Bomb = QStringLiteral("*Xq@").contains(c);
    cell.Flagged = QStringLiteral("XFf").contains(c);
    cell.Queried = QStringLiteral("q?").contains(c);
    cell.Opened = QStringLiteral("@of").contains(c);
}

} // namespace

Minefield FieldFromPicture(const QString &picture)
{
    const QStringList rows = picture.split(u'\n');
    Minefield field;
    field.Reset(int(rows.first().size()), int(rows.size()));
    for (int y = 1; y <= field.FieldY(); ++y) {
        Q_ASSERT(rows[y - 1].size() == field.FieldX());
        for (int x = 1; x <= field.FieldX(); ++x)
            markCell(field.Cells(x, y), rows[y - 1][x - 1]);
    }
    CountNeighbours(field);
    return field;
}

std::vector<int> ExpectedCounts(const QString &picture)
{
    std::vector<int> counts;
    for (QChar c : picture) {
        if (c.isDigit())
            counts.push_back(c.digitValue());
        else if (c == u'.')
            counts.push_back(0);
        else if (c != u'\n')
            counts.push_back(-1);
    }
    return counts;
}

QString PicturesAsText(const Minefield &field, const std::vector<CellPicture> &pictures)
{
    QString text;
    for (int y = 1; y <= field.FieldY(); ++y) {
        if (y > 1)
            text += u'\n';
        text += QString(field.FieldX(), u'-');
    }
    for (const CellPicture &p : pictures) {
        const int pos =
            (p.Index - 1) / field.FieldX() * (field.FieldX() + 1) + (p.Index - 1) % field.FieldX();
        text[pos] = text[pos] == u'-' ? QChar(u'a' + p.Picture - 1) : QChar(u'!');
    }
    return text;
}
