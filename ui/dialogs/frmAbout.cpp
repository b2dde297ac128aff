#include "frmAbout.h"

#include "Artwork.h"
#include "ClickableLabel.h"
#include "Common.h"
#include "CrispPixmap.h"
#include "DialogLook.h"

#include <QKeyEvent>
#include <QMessageBox>
#include <QMouseEvent>

namespace {

const QColor Navy(0x00, 0x00, 0x80);
const QColor NoteBlue(0x00, 0x00, 0xC0);
const QColor LightYellow(0xFF, 0xFF, 0xC0);

// A band of centred text in its own colours.
void ColourBand(QLabel *label, const QColor &text, const QColor &background)
{
    SetTextColour(label, text);
    SetBackground(label, background);
    label->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
}

} // namespace

frmAbout::frmAbout(QWidget *parent) : QDialog(parent)
{
    PrepareDialog(this, QStringLiteral("frmAbout"), QSize(326, 232));
    SetBackground(this, QColor(0xC0, 0xFF, 0xFF));
    setWindowTitle(QStringLiteral("Who I am"));

    // Created from back to front: the portrait, the speech bubble, then everything else.
    auto *Image1 =
        PlacePicture(QStringLiteral("Image1"), QRect(160, 44, 200, 160), PortraitPicture());
    connect(Image1, &ClickableLabel::clicked, this, &frmAbout::Image1_Click);
    PlacePicture(QStringLiteral("callout"), QRect(-4, 100, 200, 140), SpeechBubblePicture());

    for (QLabel *label : PlaceLanguagePair('4', QRect(4, 4, 169, 45), QRect(4, 4, 169, 45),
                                           QStringLiteral("VELKARO\nthe minefield game"),
                                           QStringLiteral("VELKARO\nil gioco del campo minato")))
        ColourBand(label, Qt::white, Navy);
    ColourBand(Place(QStringLiteral("Label6"), QRect(4, 48, 169, 21),
                     QStringLiteral("Version 1.02 - Dec, 2003")),
               Qt::white, Navy);
    for (QLabel *label : PlaceLanguagePair('5', QRect(4, 68, 169, 17), QRect(4, 68, 169, 17),
                                           QStringLiteral("Mind the bombs!"),
                                           QStringLiteral("Attento alle bombe!")))
        ColourBand(label, NoteBlue, LightYellow);
    QLabel *Label7 =
        Place(QStringLiteral("Label7"), QRect(4, 84, 169, 17), QStringLiteral("Freeware"));
    Label7->setFont(BoldDialogFont());
    ColourBand(Label7, NoteBlue, LightYellow);

    for (QLabel *label :
         PlaceLanguagePair('1', QRect(16, 116, 89, 21), QRect(24, 116, 89, 21),
                           QStringLiteral("Hello, I am"), QStringLiteral("Ciao, sono")))
        SetTextColour(label, Qt::red);
    QLabel *Label5 =
        Place(QStringLiteral("Label5"), QRect(104, 117, 37, 17), QStringLiteral("Velko"));
    Label5->setFont(BoldDialogFont());
    SetTextColour(Label5, QColor(0xC0, 0x00, 0x00));
    // The note's body and hint are black whatever the desktop's colours: they stand on the bubble.
    for (QLabel *label : PlaceLanguagePair(
             '2', QRect(12, 136, 137, 45), QRect(14, 135, 137, 45),
             QStringLiteral("I built this game to pass the long winter evenings of the valley."),
             QStringLiteral("Ho scritto questo gioco per le lunghe sere d'inverno della valle.")))
        SetTextColour(label, Qt::black);
    // The English hint closes the box as well, so both languages behave alike.
    for (ClickableLabel *hint : PlaceLanguagePair(
             '3', QRect(16, 180, 133, 45), QRect(15, 180, 133, 45),
             QStringLiteral(
                 "and, if you want an hint on how to play dishonestly... press my nose !"),
             QStringLiteral(
                 "e se vuoi un aiuto per giocare disonestamente, premi il mio naso !"))) {
        SetTextColour(hint, Qt::black);
        connect(hint, &ClickableLabel::clicked, this, &frmAbout::lI3_Click);
    }

    ColourBand(Place(QStringLiteral("Label1"), QRect(172, 204, 157, 29),
                     QStringLiteral("velko@velkaro.invalid")),
               Qt::white, Qt::black);

    const bool english = Common::LangEnglish;
    PlacePicture(QStringLiteral("flagI"), QRect(180, 4, 37, 30), ItalianFlagPicture())
        ->setVisible(!english);
    PlacePicture(QStringLiteral("FlagE"), QRect(180, 4, 35, 30), UnitedKingdomFlagPicture())
        ->setVisible(english);

    auto *nose = Place(QStringLiteral("nose"), QRect(188, 92, 22, 22));
    connect(nose, &ClickableLabel::clicked, this, &frmAbout::nose_Click);
}

ClickableLabel *frmAbout::Place(const QString &name, const QRect &place, const QString &text)
{
    auto *label = new ClickableLabel(this);
    label->setObjectName(name);
    label->setGeometry(place);
    label->setTextFormat(Qt::PlainText);
    label->setText(text);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    return label;
}

ClickableLabel *frmAbout::PlacePicture(const QString &name, const QRect &place,
                                       const QPixmap &picture)
{
    ClickableLabel *label = Place(name, place);
    label->setPixmap(CrispPixmap(picture, place.size(), label->devicePixelRatioF()));
    return label;
}

std::array<ClickableLabel *, 2> frmAbout::PlaceLanguagePair(char number, const QRect &english,
                                                            const QRect &italian,
                                                            const QString &englishText,
                                                            const QString &italianText)
{
    const std::array<ClickableLabel *, 2> pair{
        Place(QStringLiteral("lE") + QLatin1Char(number), english, englishText),
        Place(QStringLiteral("lI") + QLatin1Char(number), italian, italianText)};
    pair[0]->setVisible(Common::LangEnglish);
    pair[1]->setVisible(!Common::LangEnglish);
    return pair;
}

void frmAbout::nose_Click()
{
    const bool english = Common::LangEnglish;
    QMessageBox hint(
        QMessageBox::NoIcon,
        english ? QStringLiteral("Be dishonest !") : QStringLiteral("Un pò di disonestà !"),
        english ? QStringLiteral("during game, press Shift+Ctrl+F12...and see what happens !")
                : QStringLiteral("durante il gioco, premi Shift+Ctrl+F12...e vedi cosa succede !"),
        QMessageBox::Ok, this);
    hint.exec();
}

void frmAbout::Image1_Click()
{
    close();
}

void frmAbout::lI3_Click()
{
    close();
}

void frmAbout::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        close();
}

void frmAbout::keyPressEvent(QKeyEvent *event)
{
    if (event->text().isEmpty())
        QDialog::keyPressEvent(event);
    else
        close();
}
