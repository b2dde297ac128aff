#include "frmPlayer.h"

#include "Common.h"
#include "DialogLook.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

frmPlayer::frmPlayer(QWidget *parent) : QDialog(parent)
{
    PrepareDialog(this, QStringLiteral("frmPlayer"), QSize(203, 59));
    const bool english = Common::LangEnglish;
    setWindowTitle(english ? QStringLiteral("Player Name") : QStringLiteral("Nome giocatore"));

    txPlayer =
        new QLineEdit(english ? QStringLiteral("Anonymous") : QStringLiteral("Anonimo"), this);
    // The box keeps its own limit of 32767 characters, which bounds the settings file too.
    txPlayer->setObjectName(QStringLiteral("txPlayer"));
    txPlayer->setGeometry(56, 20, 105, 19);
    // 50 pixels rather than 37, so that "Giocatore" is not cut; the text box starts at 56.
    PlaceLabel(this, QStringLiteral("Label1"), QRect(4, 22, 50, 17),
               english ? QStringLiteral("Player") : QStringLiteral("Giocatore"));
    auto *btnClose = new QPushButton(QStringLiteral("OK"), this);
    btnClose->setObjectName(QStringLiteral("btnClose"));
    btnClose->setGeometry(168, 20, 29, 21);

    // Typing replaces the whole default name; Enter in the box presses OK.
    setTabOrder(txPlayer, btnClose);
    txPlayer->selectAll();
    txPlayer->setFocus();
    btnClose->setDefault(true);
    connect(btnClose, &QPushButton::clicked, this, &frmPlayer::btnClose_Click);
}

void frmPlayer::btnClose_Click()
{
    Common::PlayerName = txPlayer->text();
    close();
}
