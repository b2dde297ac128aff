#include "IniEscaping.h"

#include <algorithm>

namespace {

bool isUnpairedSurrogate(QStringView text, qsizetype i)
{
    const QChar c = text[i];
    if (c.isHighSurrogate())
        return i + 1 == text.size() || !text[i + 1].isLowSurrogate();
    if (c.isLowSurrogate())
        return i == 0 || !text[i - 1].isHighSurrogate();
    return false;
}

bool isHexDigit(QChar c)
{
    return (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
}

// Also the byte-order mark, which many readers drop at the start of a line.
bool isControl(char16_t c)
{
    return c < 0x20 || c == 0x7f || c == 0xfeff;
}

QString escaped(QStringView text, bool key)
{
    qsizetype leadingEnd = 0;
    while (leadingEnd < text.size() && text[leadingEnd] == u' ')
        ++leadingEnd;
    qsizetype trailingStart = text.size();
    while (trailingStart > leadingEnd && text[trailingStart - 1] == u' ')
        --trailingStart;

    QString out;
    out.reserve(text.size() + 8);
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t c = text[i].unicode();
        if (c == u' ' && (i < leadingEnd || i >= trailingStart))
            out += u"\\s";
        else if (c == u'\\')
            out += u"\\\\";
        else if (c == u'\n')
            out += u"\\n";
        else if (c == u'\r')
            out += u"\\r";
        else if (c == u'\t')
            out += u"\\t";
        else if (isControl(c) || isUnpairedSurrogate(text, i))
            out += QStringLiteral("\\u") + QString::number(c, 16).rightJustified(4, u'0');
        else if (key && (c == u'=' || c == u'#' || (i == 0 && (c == u';' || c == u'['))))
            out.append(u'\\').append(QChar(c));
        else
            out += QChar(c);
    }
    return out;
}

// Index just past the character at i, skipping the escaped character after a backslash.
qsizetype nextIndex(QStringView escaped, qsizetype i)
{
    return escaped[i] == u'\\' ? i + 2 : i + 1;
}

} // namespace

QString EscapedIniKey(QStringView text)
{
    return escaped(text, true);
}

QString EscapedIniValue(QStringView text)
{
    return escaped(text, false);
}

QString UnescapedIni(QStringView text)
{
    QString out;
    out.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] != u'\\' || i + 1 == text.size()) {
            out += text[i];
            continue;
        }
        const QChar next = text[++i];
        if (next == u'n') {
            out += u'\n';
        } else if (next == u'r') {
            out += u'\r';
        } else if (next == u't') {
            out += u'\t';
        } else if (next == u's') {
            out += u' ';
        } else if (next == u'u') {
            const QStringView digits = text.mid(i + 1, 4);
            if (digits.size() == 4 && std::all_of(digits.begin(), digits.end(), isHexDigit)) {
                out += QChar(digits.toUShort(nullptr, 16));
                i += 4;
            } else {
                out += next;
            }
        } else {
            out += next;
        }
    }
    return out;
}

qsizetype IndexOfRaw(QStringView escaped, QChar c)
{
    for (qsizetype i = 0; i < escaped.size(); i = nextIndex(escaped, i)) {
        if (escaped[i] == c)
            return i;
    }
    return -1;
}

qsizetype LastIndexOfRaw(QStringView escaped, QChar c)
{
    qsizetype last = -1;
    for (qsizetype i = 0; i < escaped.size(); i = nextIndex(escaped, i)) {
        if (escaped[i] == c)
            last = i;
    }
    return last;
}
