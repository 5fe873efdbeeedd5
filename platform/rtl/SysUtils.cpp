#include "rtl/SysUtils.h"

#include <array>
#include <charconv>
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

// Folding case changes no length; most texts that are asked for differ in it or are the same already.
bool SameText(QStringView a, QStringView b)
{
    return a.size() == b.size() && (a == b || a.compare(b, Qt::CaseInsensitive) == 0);
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
    return text.isEmpty() ? defaultValue : ReadBool(text).value_or(defaultValue);
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

// A width or precision beyond this is taken as this.
constexpr int MaxFormatWidth = 32767;

// One placeholder: %[-][width][.precision]kind, or %% with the kind '%'.
struct Placeholder {
    bool LeftAligned = false;
    int Width = 0;
    int Precision = -1;
    QChar Kind;
    qsizetype End = 0; // of its text
};

int ReadDigits(const QString& format, qsizetype& at)
{
    int number = 0;
    for (; at < format.size() && format[at] >= u'0' && format[at] <= u'9'; ++at)
        number = std::min(number, MaxFormatWidth) * 10 + format[at].unicode() - u'0';
    return std::min(number, MaxFormatWidth);
}

// What stands at the '%'; nothing where it is no placeholder and counts as plain text.
std::optional<Placeholder> ReadPlaceholder(const QString& format, qsizetype at)
{
    Placeholder found;
    const auto current = [&] { return at < format.size() ? format[at] : QChar(); };
    ++at;
    if (current() == u'%') {
        found.Kind = u'%';
        found.End = at + 1;
        return found;
    }
    found.LeftAligned = current() == u'-';
    at += found.LeftAligned;
    found.Width = ReadDigits(format, at);
    if (current() == u'.') {
        const auto digits = ++at;
        found.Precision = ReadDigits(format, at);
        if (at == digits)
            return std::nullopt;
    }
    found.Kind = current();
    found.End = at + 1;
    const bool isKnown = found.Kind == u's' || found.Kind == u'd' || found.Kind == u'x' || found.Kind == u'u';
    return isKnown ? std::optional(found) : std::nullopt;
}

void AppendNumber(QString& result, const Placeholder& place, qint64 number)
{
    std::array<char, 24> digits;
    const auto value = place.Kind == u'd' ? number : qint64(quint32(number));
    const auto end = std::to_chars(digits.begin(), digits.end(), value, place.Kind == u'x' ? 16 : 10).ptr;
    const QLatin1String text(digits.data(), end - digits.data());
    result.resize(result.size() + std::max<qsizetype>(0, place.Precision - text.size()), u'0');
    if (place.Kind == u'x')
        result += QString(text).toUpper();
    else
        result += text;
}

void AppendOne(QString& result, const Placeholder& place, const FormatArg& arg)
{
    const auto start = result.size();
    if (place.Kind != u's')
        AppendNumber(result, place, arg.Number());
    else if (place.Precision >= 0)
        result += arg.Text().left(place.Precision);
    else
        result += arg.Text();
    const auto missing = place.Width - (result.size() - start);
    if (missing > 0)
        result.insert(place.LeftAligned ? result.size() : start, QString(missing, u' '));
}

}

QString Format(const QString& format, const std::initializer_list<FormatArg>& args)
{
    QString result;
    result.reserve(2 * format.size() + 32);
    qsizetype from = 0;
    auto next = args.begin();
    for (auto at = format.indexOf(u'%'); at >= 0; at = format.indexOf(u'%', at)) {
        const auto place = ReadPlaceholder(format, at);
        if (!place) {
            ++at;
            continue;
        }
        result += QStringView(format).mid(from, at - from);
        at = from = place->End;
        if (place->Kind == u'%') {
            result += u'%';
            continue;
        }
        if (next == args.end() || next->IsNumber() == (place->Kind == u's'))
            throw EConvertError(QStringLiteral("Format '%1' invalid or incompatible with argument").arg(format));
        AppendOne(result, *place, *next++);
    }
    return result += QStringView(format).mid(from);
}
