#include "Artwork.h"

#include <QString>

namespace {

QPixmap Embedded(const char *name)
{
    QPixmap picture(QStringLiteral(":/pictures/") + QLatin1String(name));
    Q_ASSERT_X(!picture.isNull(), "Artwork", name);
    return picture;
}

} // namespace

QPixmap WindowIconPicture()
{
    return Embedded("icon.xpm");
}

QPixmap ItalianFlagPicture()
{
    return Embedded("flag_italy.xpm");
}

QPixmap UnitedKingdomFlagPicture()
{
    return Embedded("flag_uk.xpm");
}

QPixmap SpeechBubblePicture()
{
    return Embedded("bubble.xpm");
}

QPixmap PortraitPicture()
{
    return Embedded("portrait.xpm");
}
