#include "forms/FormValue.h"

#include "forms/FormNumber.h"

#include <QLocale>

#include <algorithm>

FormValue FormValue::Real(double value)
{
    return Real(FormNumber::Parse(QByteArray::number(value, 'g', QLocale::FloatingPointShortest)), Kind::Real);
}

FormValue FormValue::Real(long double value, Kind kind)
{
    return FormValue(kind, value);
}

FormValue FormValue::String(const QString& text)
{
    const bool ascii = std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
    return ascii ? NarrowString(text, text.toLatin1()) : String(text, StringWidth::Wide);
}

FormValue FormValue::NarrowString(const QString& text, const QByteArray& bytes)
{
    return FormValue(Kind::String, StringContent { text, bytes, StringWidth::Narrow });
}

FormValue FormValue::String(const QString& text, StringWidth width)
{
    return FormValue(Kind::String, StringContent { text, {}, width });
}

FormValue FormValue::Strings(const QStringList& lines)
{
    QList<FormValue> values;
    values.reserve(lines.size());
    for (const auto& line : lines)
        values << String(line);
    return List(values);
}

long double FormValue::ToReal() const
{
    if (FKind == Kind::Integer)
        return static_cast<long double>(ToInteger());
    return Get<long double>();
}

QString FormValue::ToString() const
{
    return FKind == Kind::String ? Get<StringContent>().Text : Get<QString>();
}

QStringList FormValue::ToStringList() const
{
    if (FKind == Kind::Set)
        return Get<QStringList>();
    QStringList lines;
    for (const auto& value : ToList())
        lines << value.ToString();
    return lines;
}

bool FormValue::operator==(const FormValue& other) const
{
    if (FKind != other.FKind)
        return false;
    if (FKind == Kind::String)
        return ToString() == other.ToString();
    return std::visit(
        [&other](const auto& content) {
            using T = std::decay_t<decltype(content)>;
            if constexpr (std::is_same_v<T, StringContent>)
                return false;
            else
                return content == std::get<T>(other.FContent);
        },
        FContent);
}

bool operator==(const FormItem& one, const FormItem& other)
{
    return one.Index == other.Index && one.Properties == other.Properties;
}
