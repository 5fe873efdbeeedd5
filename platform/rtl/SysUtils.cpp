#include "rtl/SysUtils.h"

#include <QRegularExpression>

#include <optional>

void Abort()
{
    throw EAbort();
}

void Assert(bool condition, const QString& unit, const QString& text)
{
    if (!condition)
        throw EAssertionFailed(text, unit);
}

bool SameText(QStringView a, QStringView b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

int CompareText(QStringView a, QStringView b)
{
    return a.compare(b, Qt::CaseInsensitive);
}

QString BoolToStr(bool value, bool useBoolStrs)
{
    if (useBoolStrs)
        return value ? QStringLiteral("True") : QStringLiteral("False");
    return value ? QStringLiteral("-1") : QStringLiteral("0");
}

namespace {

std::optional<bool> ReadBool(const QString& text)
{
    if (SameText(text, u"True"))
        return true;
    if (SameText(text, u"False"))
        return false;
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    return isNumber ? std::optional(number != 0) : std::nullopt;
}

}

bool StrToBool(const QString& text)
{
    if (const auto value = ReadBool(text))
        return *value;
    throw EConvertError(QStringLiteral("'%1' is not a valid Boolean value").arg(text));
}

bool StrToBoolDef(const QString& text, bool defaultValue)
{
    return ReadBool(text).value_or(defaultValue);
}

int StrToInt(const QString& text)
{
    const auto plain = text.trimmed();
    bool isNumber = false;
    int value = 0;
    if (plain.startsWith(u'$'))
        value = int(plain.mid(1).toUInt(&isNumber, 16));
    else if (plain.startsWith(u"0x", Qt::CaseInsensitive))
        value = int(plain.mid(2).toUInt(&isNumber, 16));
    else
        value = plain.toInt(&isNumber, 10);
    if (!isNumber)
        throw EConvertError(QStringLiteral("'%1' is not a valid integer value").arg(text));
    return value;
}

namespace {

qsizetype NameStart(const QString& fileName)
{
    return std::max(fileName.lastIndexOf(u'/'), fileName.lastIndexOf(u'\\')) + 1;
}

qsizetype ExtStart(const QString& fileName)
{
    const auto dot = fileName.lastIndexOf(u'.');
    return dot >= NameStart(fileName) ? dot : fileName.size();
}

}

QString ExtractFileName(const QString& fileName)
{
    return fileName.mid(NameStart(fileName));
}

QString ExtractFilePath(const QString& fileName)
{
    return fileName.left(NameStart(fileName));
}

QString ExtractFileExt(const QString& fileName)
{
    return fileName.mid(ExtStart(fileName));
}

QString ChangeFileExt(const QString& fileName, const QString& extension)
{
    return fileName.left(ExtStart(fileName)) + extension;
}

QString IncludeTrailingPathDelimiter(const QString& path)
{
    return path.endsWith(u'/') || path.endsWith(u'\\') ? path : path + u'/';
}

namespace {

QString FormatOne(QChar kind, int precision, const FormatArg& arg)
{
    if (kind == u's')
        return precision >= 0 ? arg.Text().left(precision) : arg.Text();
    const bool hexadecimal = kind == u'x';
    auto digits
        = QString::number(kind == u'd' ? arg.Number() : qint64(quint32(arg.Number())), hexadecimal ? 16 : 10).toUpper();
    return precision > digits.size() ? digits.rightJustified(precision, u'0') : digits;
}

}

QString Format(const QString& format, const std::initializer_list<FormatArg>& args)
{
    static const QRegularExpression placeholder(QStringLiteral("%(?:%|(-?)(\\d*)(?:\\.(\\d+))?([sdxu]))"));
    QString result;
    qsizetype from = 0;
    auto next = args.begin();
    for (auto walk = placeholder.globalMatch(format); walk.hasNext();) {
        const auto match = walk.next();
        result += QStringView(format).mid(from, match.capturedStart() - from);
        from = match.capturedEnd();
        if (match.capturedLength(4) == 0) {
            result += u'%';
            continue;
        }
        const QChar kind = match.capturedView(4).front();
        if (next == args.end() || next->IsNumber() == (kind == u's'))
            throw EConvertError(QStringLiteral("Format '%1' invalid or incompatible with argument").arg(format));
        const int precision = match.capturedLength(3) ? match.capturedView(3).toInt() : -1;
        const auto text = FormatOne(kind, precision, *next++);
        const int width = match.capturedView(2).toInt();
        result += match.capturedLength(1) ? text.leftJustified(width) : text.rightJustified(width);
    }
    return result + format.mid(from);
}
