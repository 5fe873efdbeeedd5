#include "forms/FormEncoding.h"

#include <QAnyStringView>
#include <QStringDecoder>
#include <QStringEncoder>
#include <QUtf8StringView>

#include <algorithm>

namespace {

bool isAscii(QByteArrayView bytes)
{
    return std::all_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<uchar>(c) < 0x80; });
}

}

FormEncoding FormEncoding::codePage(const QByteArray& name)
{
    FormEncoding made;
    const auto plain = name.toLower();
    if (plain != "utf-8" && plain != "utf8")
        made.m_codePage = plain;
    return made;
}

FormEncoding FormEncoding::detect(QByteArrayView bytes, const QByteArray& codePage)
{
    if (QUtf8StringView(bytes.data(), bytes.size()).isValidUtf8())
        return utf8();
    return FormEncoding::codePage(codePage);
}

bool FormEncoding::isValid() const
{
    return isUtf8() || QStringDecoder(m_codePage.constData()).isValid();
}

QString FormEncoding::decode(QByteArrayView bytes) const
{
    if (isUtf8())
        return QString::fromUtf8(bytes);
    if (isAscii(bytes))
        return QString::fromLatin1(bytes);
    return QStringDecoder(m_codePage.constData()).decode(bytes);
}

QByteArray FormEncoding::encode(QStringView text) const
{
    if (isUtf8())
        return text.toUtf8();
    return QStringEncoder(m_codePage.constData()).encode(text);
}

bool FormEncoding::canEncode(QStringView text) const
{
    return decode(encode(text)) == text;
}

qsizetype FormEncoding::characters(QByteArrayView bytes) const
{
    if (isAscii(bytes))
        return bytes.size();
    const auto text = decode(bytes);
    return std::count_if(text.begin(), text.end(), [](QChar c) { return !c.isLowSurrogate(); });
}

bool FormEncoding::isSame(QByteArrayView bytes, QStringView text) const
{
    if (isUtf8())
        return QAnyStringView::compare(QUtf8StringView(bytes.data(), bytes.size()), text, Qt::CaseInsensitive) == 0;
    return decode(bytes).compare(text, Qt::CaseInsensitive) == 0;
}
