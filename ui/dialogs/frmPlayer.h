#pragma once

#include <QDialog>

class QLineEdit;

// Asks for the name of a new record holder. Every opening proposes the default name of the
// current language, fully selected; OK hands the text over into Common::PlayerName exactly as
// typed (empty or blank included). Closing in any other way leaves PlayerName as it was.
// Deletes itself when closed.
class frmPlayer : public QDialog
{
    Q_OBJECT

public:
    explicit frmPlayer(QWidget *parent = nullptr);

private slots:
    void btnClose_Click();

private:
    QLineEdit *txPlayer;
};
