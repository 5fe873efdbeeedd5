#include "configuration/PluginLog.h"

namespace {

// The date and the blank behind it: the part of a stamp that is whole in every entry.
constexpr char16_t DateForm[] = u"00.00.0000 ";
constexpr qsizetype DateLength = 11;

// The 16-bit unit at a byte, which need not be an even one.
char16_t UnitAt(const QByteArray& content, qsizetype at)
{
    return char16_t(uchar(content.at(at)) | uchar(content.at(at + 1)) << 8);
}

bool IsStamp(const QByteArray& content, qsizetype at)
{
    if (at + 2 * DateLength > content.size())
        return false;
    for (qsizetype i = 0; i < DateLength; ++i) {
        const auto unit = UnitAt(content, at + 2 * i);
        const bool fits = DateForm[i] == u'0' ? unit >= u'0' && unit <= u'9' : unit == DateForm[i];
        if (!fits)
            return false;
    }
    return true;
}

QString Entry(const QByteArray& content, qsizetype from, qsizetype to)
{
    QString text;
    for (; from + 1 < to; from += 2)
        text += QChar(UnitAt(content, from));
    return text.replace(QStringLiteral("\t\t"), QStringLiteral(" ")).trimmed();
}

}

QStringList ReadPluginLog(const QByteArray& content)
{
    QStringList entries;
    qsizetype start = -1;
    for (qsizetype at = 0; at < content.size(); ++at) {
        if (!IsStamp(content, at))
            continue;
        if (start >= 0)
            entries << Entry(content, start, at);
        start = at;
        at += 2 * DateLength - 1;
    }
    if (start >= 0)
        entries << Entry(content, start, content.size());
    return entries;
}
