#include "WaveResource.h"

#include <QFile>
#include <QString>

QByteArray WaveResource(int id)
{
    if (id < 101 || id > 105) {
        return {};
    }
    QFile file(QStringLiteral(":/sounds/wave%1.wav").arg(id));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    return file.readAll();
}
