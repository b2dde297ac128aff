#pragma once

#include <QString>
#include <QStringList>

// Names a player can type that a careless file format would mangle.
inline QStringList AwkwardNames()
{
    return {
        QString(),
        QStringLiteral("   "),
        QStringLiteral("  leading"),
        QStringLiteral("trailing  "),
        QStringLiteral(" both "),
        QStringLiteral("a=b=c"),
        QStringLiteral("=starts"),
        QStringLiteral(";semicolon"),
        QStringLiteral("#hash"),
        QStringLiteral("x #2"),
        QStringLiteral("#3"),
        QStringLiteral("[bracketed]"),
        QStringLiteral("closing]"),
        QStringLiteral("back\\slash\\"),
        QStringLiteral("\\n is not a newline"),
        QStringLiteral("\\u0041 is not A"),
        QStringLiteral("\"double\" and 'single'"),
        QStringLiteral("line\nbreak"),
        QStringLiteral("carriage\r\nreturn"),
        QStringLiteral("tab\there"),
        QStringLiteral("bell\a nul") + QChar(0) + QStringLiteral(" del\x7f end"),
        QString::fromUtf16(u"Niccolò Ærøskøbing Łódź 東京 😀"),
        QString(QChar(0xD800)) + QStringLiteral("lone surrogate"),
    };
}
