#include "forms/FormEncoding.h"

#include <QAnyStringView>
#include <QStringDecoder>
#include <QStringEncoder>
#include <QUtf8StringView>

#include <algorithm>

namespace {

bool IsAscii(QByteArrayView bytes)
{
    return std::all_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<uchar>(c) < 0x80; });
}

}

FormEncoding FormEncoding::CodePage(const QByteArray& name)
{
    FormEncoding made;
    const auto plain = name.toLower();
    if (plain != "utf-8" && plain != "utf8")
        made.FCodePage = plain;
    return made;
}

FormEncoding FormEncoding::Detect(QByteArrayView bytes, const QByteArray& codePage)
{
    if (QUtf8StringView(bytes.data(), bytes.size()).isValidUtf8())
        return Utf8();
    return FormEncoding::CodePage(codePage);
}

bool FormEncoding::IsValid() const
{
    return IsUtf8() || QStringDecoder(FCodePage.constData()).isValid();
}

QString FormEncoding::Decode(QByteArrayView bytes) const
{
    if (IsUtf8())
        return QString::fromUtf8(bytes);
    if (IsAscii(bytes))
        return QString::fromLatin1(bytes);
    return QStringDecoder(FCodePage.constData()).decode(bytes);
}

QByteArray FormEncoding::Encode(QStringView text) const
{
    if (IsUtf8())
        return text.toUtf8();
    return QStringEncoder(FCodePage.constData()).encode(text);
}

bool FormEncoding::CanEncode(QStringView text) const
{
    return Decode(Encode(text)) == text;
}

qsizetype FormEncoding::Characters(QByteArrayView bytes) const
{
    if (IsAscii(bytes))
        return bytes.size();
    const auto text = Decode(bytes);
    return std::count_if(text.begin(), text.end(), [](QChar c) { return !c.isLowSurrogate(); });
}

bool FormEncoding::IsSame(QByteArrayView bytes, QStringView text) const
{
    if (IsUtf8())
        return QAnyStringView::compare(QUtf8StringView(bytes.data(), bytes.size()), text, Qt::CaseInsensitive) == 0;
    return Decode(bytes).compare(text, Qt::CaseInsensitive) == 0;
}
