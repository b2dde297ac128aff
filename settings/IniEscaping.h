#pragma once

#include <QString>
#include <QStringView>

// How the settings file writes a text so that it reads back exactly. Text is written as it
// is, so the file stays readable, except for what would otherwise be misread:
//   backslash                          \\   (always)
//   newline, carriage return, tab      \n \r \t   (always)
//   other control characters, the
//   byte-order mark U+FEFF and
//   unpaired surrogates                \uHHHH   (always, four hex digits)
//   blanks at the start or the end     \s   (the reader trims raw blanks around keys and values)
// and in keys only:
//   '='                                \=   (the first raw '=' ends the key)
//   '#'                                \#   (a raw '#' marks a repeated key, see SettingsStore)
//   ';' or '[' as first character      \; \[   (a comment line, a section header)
// On reading, a backslash followed by any other character stands for that character.

QString EscapedIniKey(QStringView text);
QString EscapedIniValue(QStringView text);
QString UnescapedIni(QStringView text);

// Position of the first (or last) raw occurrence of c, one not preceded by an escaping
// backslash; -1 when there is none.
qsizetype IndexOfRaw(QStringView escaped, QChar c);
qsizetype LastIndexOfRaw(QStringView escaped, QChar c);
