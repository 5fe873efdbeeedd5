#include "forms/FormValue.h"

#include "forms/FormNumber.h"

#include <QLocale>

#include <algorithm>

FormValue FormValue::real(double value)
{
    return real(FormNumber::parse(QByteArray::number(value, 'g', QLocale::FloatingPointShortest)), Kind::Real);
}

FormValue FormValue::real(long double value, Kind kind)
{
    return FormValue(kind, value);
}

FormValue FormValue::string(const QString& text)
{
    const bool ascii = std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
    return ascii ? narrowString(text, text.toLatin1()) : string(text, StringWidth::Wide);
}

FormValue FormValue::narrowString(const QString& text, const QByteArray& bytes)
{
    return FormValue(Kind::String, Text { text, bytes, StringWidth::Narrow });
}

FormValue FormValue::string(const QString& text, StringWidth width)
{
    return FormValue(Kind::String, Text { text, {}, width });
}

FormValue FormValue::strings(const QStringList& lines)
{
    QList<FormValue> values;
    values.reserve(lines.size());
    for (const auto& line : lines)
        values << string(line);
    return list(values);
}

long double FormValue::toReal() const
{
    if (m_kind == Kind::Integer)
        return static_cast<long double>(toInteger());
    return get<long double>();
}

QString FormValue::toString() const
{
    return m_kind == Kind::String ? get<Text>().text : get<QString>();
}

QStringList FormValue::toStringList() const
{
    if (m_kind == Kind::Set)
        return get<QStringList>();
    QStringList lines;
    for (const auto& value : toList())
        lines << value.toString();
    return lines;
}

bool FormValue::operator==(const FormValue& other) const
{
    if (m_kind != other.m_kind)
        return false;
    if (m_kind == Kind::String)
        return toString() == other.toString();
    return std::visit(
        [&other](const auto& content) {
            using T = std::decay_t<decltype(content)>;
            if constexpr (std::is_same_v<T, Text>)
                return false;
            else
                return content == std::get<T>(other.m_content);
        },
        m_content);
}

bool operator==(const FormItem& one, const FormItem& other)
{
    return one.index == other.index && one.properties == other.properties;
}
