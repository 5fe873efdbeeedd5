#include "forms/FormTextValue.h"

#include "forms/FormNumber.h"

namespace {

bool IsKeyword(QByteArrayView text, const char* word)
{
    return text.compare(word, Qt::CaseInsensitive) == 0;
}

FormValue::Kind RealKind(char last)
{
    switch (last | 0x20) {
    case 's':
        return FormValue::Kind::Single;
    case 'c':
        return FormValue::Kind::Currency;
    case 'd':
        return FormValue::Kind::Date;
    default:
        return FormValue::Kind::Real;
    }
}

// Gathers the parts of a string: as bytes while it is narrow, and as characters.
struct StringParts {
    explicit StringParts(const FormEncoding& encoding)
        : Encoding(encoding)
    {
    }

    void Add(QByteArrayView run)
    {
        for (qsizetype at = 0; at < run.size();)
            at = run[at] == '#' ? AddNumber(run, at + 1) : AddQuoted(run, at);
    }

    FormValue Value()
    {
        Flush();
        return Wide ? FormValue::String(Text, FormValue::StringWidth::Wide) : FormValue::NarrowString(Text, Bytes);
    }

private:
    qsizetype AddNumber(QByteArrayView run, qsizetype at)
    {
        int number = 0;
        for (; at < run.size() && run[at] >= '0' && run[at] <= '9'; ++at)
            number = number * 10 + (run[at] - '0');
        if (number < 0x80) {
            Raw += char(number);
            return at;
        }
        Flush();
        Wide = true;
        Text += QChar(static_cast<char16_t>(number));
        return at;
    }

    // From a quote to the next; two quotes in a row stand for one.
    qsizetype AddQuoted(QByteArrayView run, qsizetype at)
    {
        if (at > 0 && run[at - 1] == '\'')
            Raw += '\'';
        const auto end = run.indexOf('\'', at + 1);
        if (end < 0)
            return run.size();
        Raw += run.sliced(at + 1, end - at - 1);
        return end + 1;
    }

    void Flush()
    {
        Text += Encoding.Decode(Raw);
        Bytes += Raw;
        Raw.clear();
    }

    FormEncoding Encoding;
    QByteArray Raw;
    QByteArray Bytes;
    QString Text;
    bool Wide = false;
};

}

FormTextValue::FormTextValue(QByteArrayView spelling, const FormEncoding& encoding)
    : FEncoding(encoding)
    , FLexer(spelling)
{
}

FormValue FormTextValue::Read()
{
    Advance();
    auto found = Value();
    found.SetSpelling(FLexer.Bytes().toByteArray());
    return found;
}

FormValue FormTextValue::Value()
{
    switch (FToken.Type) {
    case FormToken::Kind::Symbol:
        return Symbol();
    case FormToken::Kind::Integer:
    case FormToken::Kind::Real:
        return Number();
    case FormToken::Kind::String:
        return String();
    case FormToken::Kind::Binary: {
        const auto digits = FLexer.Text(FToken);
        Advance();
        return FormValue::Binary(QByteArray::fromHex(digits.toByteArray()));
    }
    default:
        break;
    }
    if (FToken.Is('['))
        return Set();
    if (FToken.Is('('))
        return List();
    if (FToken.Is('<'))
        return Collection();
    Advance();
    return {};
}

FormValue FormTextValue::Symbol()
{
    const auto first = FLexer.Text(FToken);
    const auto whole = Name();
    if (whole.contains(u'.'))
        return FormValue::Identifier(whole);
    if (IsKeyword(first, "true") || IsKeyword(first, "false"))
        return FormValue::Boolean(IsKeyword(first, "true"));
    if (IsKeyword(first, "nil"))
        return FormValue::Nil();
    return IsKeyword(first, "null") ? FormValue() : FormValue::Identifier(whole);
}

QString FormTextValue::Name()
{
    auto whole = FEncoding.Decode(FLexer.Text(FToken));
    Advance();
    while (FToken.Is('.')) {
        Advance();
        whole += u'.' + FEncoding.Decode(FLexer.Text(FToken));
        Advance();
    }
    return whole;
}

FormValue FormTextValue::Number()
{
    const auto digits = FLexer.Text(FToken);
    const bool whole = FToken.Type == FormToken::Kind::Integer;
    Advance();
    if (whole)
        return FormValue::Integer(FormNumber::ParseInteger(digits).value_or(0));
    return FormValue::Real(FormNumber::Parse(digits), RealKind(digits.back()));
}

FormValue FormTextValue::String()
{
    StringParts parts(FEncoding);
    parts.Add(FLexer.Text(FToken));
    Advance();
    while (FToken.Is('+')) {
        Advance();
        parts.Add(FLexer.Text(FToken));
        Advance();
    }
    return parts.Value();
}

FormValue FormTextValue::Set()
{
    QStringList names;
    for (Advance(); FToken.Type == FormToken::Kind::Symbol;) {
        names << Name();
        if (FToken.Is(','))
            Advance();
    }
    Advance();
    return FormValue::Set(names);
}

FormValue FormTextValue::List()
{
    QList<FormValue> values;
    for (Advance(); !FToken.Is(')') && FToken.Type != FormToken::Kind::End;)
        values << Value();
    Advance();
    return FormValue::List(values);
}

FormValue FormTextValue::Collection()
{
    QList<FormItem> items;
    for (Advance(); FToken.Type == FormToken::Kind::Symbol;)
        items << Item();
    Advance();
    return FormValue::Collection(items);
}

FormItem FormTextValue::Item()
{
    FormItem made;
    Advance();
    if (FToken.Is('[')) {
        Advance();
        made.Index = static_cast<int>(FormNumber::ParseInteger(FLexer.Text(FToken)).value_or(0));
        Advance();
        Advance();
    }
    while (FToken.Type == FormToken::Kind::Symbol && !IsKeyword(FLexer.Text(FToken), "end")) {
        const auto property = Name();
        Advance();
        made.Properties << FormItemProperty { property, Value() };
    }
    Advance();
    return made;
}
