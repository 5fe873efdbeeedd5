#include "forms/FormLexer.h"

#include <array>

namespace {

enum CharClass : uchar { Other, Blank, Letter, Digit, Marks, Quote, Hash, Dollar, Minus, Brace, Zero };

constexpr std::array<uchar, 256> makeClasses()
{
    std::array<uchar, 256> table {};
    for (int c = 0; c < 256; ++c) {
        const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c >= 0x80;
        table[size_t(c)] = letter ? Letter : (c >= '0' && c <= '9') ? Digit : Other;
    }
    for (const char c : { ' ', '\t', '\r', '\n', '\f', '\v' })
        table[static_cast<uchar>(c)] = Blank;
    for (const char c : { ':', '=', '[', ']', '(', ')', '<', '>', ',', '.', '+', '/' })
        table[static_cast<uchar>(c)] = Marks;
    table['\''] = Quote;
    table['#'] = Hash;
    table['$'] = Dollar;
    table['-'] = Minus;
    table['{'] = Brace;
    table[0] = Zero;
    return table;
}

constexpr auto classes = makeClasses();

constexpr std::array<bool, 256> makeHexDigits()
{
    std::array<bool, 256> table {};
    for (const char c : "0123456789abcdefABCDEF")
        table[static_cast<uchar>(c)] = c != 0;
    return table;
}

constexpr auto hexDigits = makeHexDigits();

inline bool isHex(char c)
{
    return hexDigits[static_cast<uchar>(c)];
}

}

uchar FormLexer::classOf(qsizetype at) const
{
    return at < m_bytes.size() ? classes[static_cast<uchar>(m_bytes[at])] : uchar(Other);
}

FormLexer::FormLexer(QByteArrayView bytes, qsizetype start)
    : m_bytes(bytes)
    , m_at(start)
{
}

FormToken FormLexer::next()
{
    while (classOf(m_at) == Blank)
        ++m_at;
    FormToken token;
    token.begin = token.end = m_at;
    if (m_at >= m_bytes.size())
        return token;
    switch (classOf(m_at)) {
    case Letter:
        symbol(token);
        break;
    case Digit:
    case Minus:
        number(token);
        break;
    case Dollar:
        hexNumber(token);
        break;
    case Quote:
    case Hash:
        string(token);
        break;
    case Brace:
        binary(token);
        break;
    case Marks:
        token.kind = FormToken::Kind::Mark;
        token.mark = m_bytes[m_at++];
        break;
    case Zero:
        fail(token,
            "a NUL byte where text should be; the file is damaged or in an encoding that is not known, "
            "save it as UTF-8 or take it from a backup");
        break;
    default:
        fail(token, "a character that has no meaning in a form file; remove it");
    }
    token.end = m_at;
    return token;
}

void FormLexer::fail(FormToken& token, const char* message)
{
    token.kind = FormToken::Kind::Error;
    m_message = message;
}

void FormLexer::symbol(FormToken& token)
{
    token.kind = FormToken::Kind::Symbol;
    do
        ++m_at;
    while (classOf(m_at) == Letter || classOf(m_at) == Digit);
}

void FormLexer::digits()
{
    while (classOf(m_at) == Digit)
        ++m_at;
}

void FormLexer::number(FormToken& token)
{
    token.kind = FormToken::Kind::Integer;
    if (m_bytes[m_at] == '-')
        ++m_at;
    if (classOf(m_at) != Digit)
        return fail(token, "a minus sign without a number; write the digits right after it");
    digits();
    if (m_at < m_bytes.size() && m_bytes[m_at] == '.') {
        token.kind = FormToken::Kind::Real;
        ++m_at;
        digits();
    }
    if (m_at < m_bytes.size() && (m_bytes[m_at] == 'e' || m_bytes[m_at] == 'E')) {
        token.kind = FormToken::Kind::Real;
        ++m_at;
        if (m_at < m_bytes.size() && (m_bytes[m_at] == '+' || m_bytes[m_at] == '-'))
            ++m_at;
        if (classOf(m_at) != Digit)
            return fail(token, "a number whose exponent has no digits; write them after the E");
        digits();
    }
    if (m_at < m_bytes.size() && QByteArrayView("sScCdD").contains(m_bytes[m_at])) {
        token.kind = FormToken::Kind::Real;
        ++m_at;
    }
}

void FormLexer::hexNumber(FormToken& token)
{
    token.kind = FormToken::Kind::Integer;
    ++m_at;
    if (m_at >= m_bytes.size() || !isHex(m_bytes[m_at]))
        return fail(token, "a $ without hexadecimal digits; write them right after it");
    while (m_at < m_bytes.size() && isHex(m_bytes[m_at]))
        ++m_at;
}

void FormLexer::string(FormToken& token)
{
    token.kind = FormToken::Kind::String;
    for (;;) {
        const auto kind = classOf(m_at);
        if (kind == Quote) {
            if (!quoted())
                return fail(token, "a string without its closing quote; end it with ' on the same line");
        } else if (kind == Hash) {
            if (!escape())
                return fail(token, "a # without the number of a character from 0 to 65535; write it right after");
        } else {
            return;
        }
    }
}

// A doubled quote inside needs no care here: it ends one quoted part and begins the next.
bool FormLexer::quoted()
{
    const char* const first = m_bytes.data();
    const char* const last = first + m_bytes.size();
    uchar high = 0;
    for (const char* p = first + m_at + 1; p < last; ++p) {
        const char c = *p;
        high |= static_cast<uchar>(c);
        if (c == '\'') {
            m_at = p - first + 1;
            m_rawNonAscii |= high >= 0x80;
            return true;
        }
        if (c == '\n' || c == '\r' || c == 0)
            break;
    }
    return false;
}

bool FormLexer::escape()
{
    int number = 0;
    const auto start = ++m_at;
    while (classOf(m_at) == Digit && number <= 0xFFFF)
        number = number * 10 + (m_bytes[m_at++] - '0');
    return m_at > start && number <= 0xFFFF;
}

void FormLexer::binary(FormToken& token)
{
    token.kind = FormToken::Kind::Binary;
    const char* const first = m_bytes.data();
    const char* const last = first + m_bytes.size();
    const char* p = first + m_at + 1;
    bool whole = true; // every run of digits makes bytes
    while (whole && p < last && *p != '}') {
        const char* const run = p;
        while (p < last && isHex(*p))
            ++p;
        whole = (p - run) % 2 == 0;
        if (p == run && !isBlank(*p))
            break;
        while (whole && p < last && isBlank(*p))
            ++p;
    }
    m_at = p - first;
    if (p >= last)
        return fail(token, "binary data without its closing brace; the file is cut off, take it from a backup");
    if (!whole || *p != '}') {
        token.begin = m_at;
        return fail(token, "binary data holds something other than pairs of hexadecimal digits; mend the digits");
    }
    ++m_at;
}
