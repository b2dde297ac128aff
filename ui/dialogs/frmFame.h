#pragma once

#include "RecordTable.h"

#include <QDialog>

#include <array>

class QLabel;

// The hall of fame: the five rows of Common::EasyRecords, MediumRecords and HardRecords side
// by side, shown exactly as stored. "Clear Records" rewrites all fifteen rows with the
// placeholder names of the current language and stays open; OK closes. Only the tables in
// memory change. Deletes itself when closed.
class frmFame : public QDialog
{
    Q_OBJECT

public:
    explicit frmFame(QWidget *parent = nullptr);

private slots:
    void btnCancel_Click();
    void btnClose_Click();

private:
    // The name and time labels of one level's frame, row 0 first.
    struct RowLabels
    {
        std::array<QLabel *, 5> Names;
        std::array<QLabel *, 5> Times;
    };

    RowLabels PlaceFrame(int level, int x, const QString &title);
    void ShowRecords();

    std::array<RowLabels, 3> Rows;
};
