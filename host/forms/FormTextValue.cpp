#include "forms/FormTextValue.h"

#include "forms/FormNumber.h"

namespace {

bool isKeyword(QByteArrayView text, const char* word)
{
    return text.compare(word, Qt::CaseInsensitive) == 0;
}

FormValue::Kind realKind(char last)
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
        : encoding(encoding)
    {
    }

    void add(QByteArrayView run)
    {
        for (qsizetype at = 0; at < run.size();)
            at = run[at] == '#' ? addNumber(run, at + 1) : addQuoted(run, at);
    }

    FormValue value()
    {
        flush();
        return wide ? FormValue::string(text, FormValue::StringWidth::Wide) : FormValue::narrowString(text, bytes);
    }

private:
    qsizetype addNumber(QByteArrayView run, qsizetype at)
    {
        int number = 0;
        for (; at < run.size() && run[at] >= '0' && run[at] <= '9'; ++at)
            number = number * 10 + (run[at] - '0');
        if (number < 0x80) {
            raw += char(number);
            return at;
        }
        flush();
        wide = true;
        text += QChar(static_cast<char16_t>(number));
        return at;
    }

    // From a quote to the next; two quotes in a row stand for one.
    qsizetype addQuoted(QByteArrayView run, qsizetype at)
    {
        if (at > 0 && run[at - 1] == '\'')
            raw += '\'';
        const auto end = run.indexOf('\'', at + 1);
        if (end < 0)
            return run.size();
        raw += run.sliced(at + 1, end - at - 1);
        return end + 1;
    }

    void flush()
    {
        text += encoding.decode(raw);
        bytes += raw;
        raw.clear();
    }

    FormEncoding encoding;
    QByteArray raw;
    QByteArray bytes;
    QString text;
    bool wide = false;
};

}

FormTextValue::FormTextValue(QByteArrayView spelling, const FormEncoding& encoding)
    : m_encoding(encoding)
    , m_lexer(spelling)
{
}

FormValue FormTextValue::read()
{
    advance();
    auto found = value();
    found.setSpelling(m_lexer.bytes().toByteArray());
    return found;
}

FormValue FormTextValue::value()
{
    switch (m_token.kind) {
    case FormToken::Kind::Symbol:
        return symbol();
    case FormToken::Kind::Integer:
    case FormToken::Kind::Real:
        return number();
    case FormToken::Kind::String:
        return string();
    case FormToken::Kind::Binary: {
        const auto digits = m_lexer.text(m_token);
        advance();
        return FormValue::binary(QByteArray::fromHex(digits.toByteArray()));
    }
    default:
        break;
    }
    if (m_token.is('['))
        return set();
    if (m_token.is('('))
        return list();
    if (m_token.is('<'))
        return collection();
    advance();
    return {};
}

FormValue FormTextValue::symbol()
{
    const auto first = m_lexer.text(m_token);
    const auto whole = name();
    if (whole.contains(u'.'))
        return FormValue::identifier(whole);
    if (isKeyword(first, "true") || isKeyword(first, "false"))
        return FormValue::boolean(isKeyword(first, "true"));
    if (isKeyword(first, "nil"))
        return FormValue::nil();
    return isKeyword(first, "null") ? FormValue() : FormValue::identifier(whole);
}

QString FormTextValue::name()
{
    auto whole = m_encoding.decode(m_lexer.text(m_token));
    advance();
    while (m_token.is('.')) {
        advance();
        whole += u'.' + m_encoding.decode(m_lexer.text(m_token));
        advance();
    }
    return whole;
}

FormValue FormTextValue::number()
{
    const auto digits = m_lexer.text(m_token);
    const bool whole = m_token.kind == FormToken::Kind::Integer;
    advance();
    if (whole)
        return FormValue::integer(FormNumber::parseInteger(digits).value_or(0));
    return FormValue::real(FormNumber::parse(digits), realKind(digits.back()));
}

FormValue FormTextValue::string()
{
    StringParts parts(m_encoding);
    parts.add(m_lexer.text(m_token));
    advance();
    while (m_token.is('+')) {
        advance();
        parts.add(m_lexer.text(m_token));
        advance();
    }
    return parts.value();
}

FormValue FormTextValue::set()
{
    QStringList names;
    for (advance(); m_token.kind == FormToken::Kind::Symbol;) {
        names << name();
        if (m_token.is(','))
            advance();
    }
    advance();
    return FormValue::set(names);
}

FormValue FormTextValue::list()
{
    QList<FormValue> values;
    for (advance(); !m_token.is(')') && m_token.kind != FormToken::Kind::End;)
        values << value();
    advance();
    return FormValue::list(values);
}

FormValue FormTextValue::collection()
{
    QList<FormItem> items;
    for (advance(); m_token.kind == FormToken::Kind::Symbol;)
        items << item();
    advance();
    return FormValue::collection(items);
}

FormItem FormTextValue::item()
{
    FormItem made;
    advance();
    if (m_token.is('[')) {
        advance();
        made.index = static_cast<int>(FormNumber::parseInteger(m_lexer.text(m_token)).value_or(0));
        advance();
        advance();
    }
    while (m_token.kind == FormToken::Kind::Symbol && !isKeyword(m_lexer.text(m_token), "end")) {
        const auto property = name();
        advance();
        made.properties << FormItemProperty { property, value() };
    }
    advance();
    return made;
}
