#pragma once

#include <QDialog>

class QLineEdit;

// The custom field dialog: shows Common::FieldX, FieldY and Bombs, and on OK takes over each
// typed value that lies within its limits (columns and rows 7 to 49; bombs at least 7 and
// below a fifth of the cells of the new size), silently keeping the others. Cancel, Esc and
// the title bar change nothing. Deletes itself when closed.
class frmCustom : public QDialog
{
    Q_OBJECT

public:
    explicit frmCustom(QWidget *parent = nullptr);

private slots:
    void btnOk_Click();
    void btnCancel_Click();

private:
    QLineEdit *txX;
    QLineEdit *txY;
    QLineEdit *txB;
};
