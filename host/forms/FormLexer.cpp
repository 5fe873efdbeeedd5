#include "forms/FormLexer.h"

#include <array>

namespace {

enum CharClass : uchar { Other, Blank, Letter, Digit, Marks, Quote, Hash, Dollar, Minus, Brace, Zero };

constexpr std::array<uchar, 256> MakeClasses()
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

constexpr auto Classes = MakeClasses();

constexpr std::array<bool, 256> MakeHexDigits()
{
    std::array<bool, 256> table {};
    for (const char c : "0123456789abcdefABCDEF")
        table[static_cast<uchar>(c)] = c != 0;
    return table;
}

constexpr auto HexDigits = MakeHexDigits();

inline bool IsHex(char c)
{
    return HexDigits[static_cast<uchar>(c)];
}

}

uchar FormLexer::ClassOf(qsizetype at) const
{
    return at < FBytes.size() ? Classes[static_cast<uchar>(FBytes[at])] : uchar(Other);
}

FormLexer::FormLexer(QByteArrayView bytes, qsizetype start)
    : FBytes(bytes)
    , FAt(start)
{
}

FormToken FormLexer::Next()
{
    while (ClassOf(FAt) == Blank)
        ++FAt;
    FormToken token;
    token.Begin = token.End = FAt;
    if (FAt >= FBytes.size())
        return token;
    switch (ClassOf(FAt)) {
    case Letter:
        Symbol(token);
        break;
    case Digit:
    case Minus:
        Number(token);
        break;
    case Dollar:
        HexNumber(token);
        break;
    case Quote:
    case Hash:
        String(token);
        break;
    case Brace:
        Binary(token);
        break;
    case Marks:
        token.Type = FormToken::Kind::Mark;
        token.Mark = FBytes[FAt++];
        break;
    case Zero:
        Fail(token,
            "a NUL byte where text should be; the file is damaged or in an encoding that is not known, "
            "save it as UTF-8 or take it from a backup");
        break;
    default:
        Fail(token, "a character that has no meaning in a form file; remove it");
    }
    token.End = FAt;
    return token;
}

void FormLexer::Fail(FormToken& token, const char* message)
{
    token.Type = FormToken::Kind::Error;
    FMessage = message;
}

void FormLexer::Symbol(FormToken& token)
{
    token.Type = FormToken::Kind::Symbol;
    do
        ++FAt;
    while (ClassOf(FAt) == Letter || ClassOf(FAt) == Digit);
}

void FormLexer::Digits()
{
    while (ClassOf(FAt) == Digit)
        ++FAt;
}

void FormLexer::Number(FormToken& token)
{
    token.Type = FormToken::Kind::Integer;
    if (FBytes[FAt] == '-')
        ++FAt;
    if (ClassOf(FAt) != Digit)
        return Fail(token, "a minus sign without a number; write the digits right after it");
    Digits();
    if (FAt < FBytes.size() && FBytes[FAt] == '.') {
        token.Type = FormToken::Kind::Real;
        ++FAt;
        Digits();
    }
    if (FAt < FBytes.size() && (FBytes[FAt] == 'e' || FBytes[FAt] == 'E')) {
        token.Type = FormToken::Kind::Real;
        ++FAt;
        if (FAt < FBytes.size() && (FBytes[FAt] == '+' || FBytes[FAt] == '-'))
            ++FAt;
        if (ClassOf(FAt) != Digit)
            return Fail(token, "a number whose exponent has no digits; write them after the E");
        Digits();
    }
    if (FAt < FBytes.size() && QByteArrayView("sScCdD").contains(FBytes[FAt])) {
        token.Type = FormToken::Kind::Real;
        ++FAt;
    }
}

void FormLexer::HexNumber(FormToken& token)
{
    token.Type = FormToken::Kind::Integer;
    ++FAt;
    if (FAt >= FBytes.size() || !IsHex(FBytes[FAt]))
        return Fail(token, "a $ without hexadecimal digits; write them right after it");
    while (FAt < FBytes.size() && IsHex(FBytes[FAt]))
        ++FAt;
}

void FormLexer::String(FormToken& token)
{
    token.Type = FormToken::Kind::String;
    for (;;) {
        const auto kind = ClassOf(FAt);
        if (kind == Quote) {
            if (!Quoted())
                return Fail(token, "a string without its closing quote; end it with ' on the same line");
        } else if (kind == Hash) {
            if (!Escape())
                return Fail(token, "a # without the number of a character from 0 to 65535; write it right after");
        } else {
            return;
        }
    }
}

// A doubled quote inside needs no care here: it ends one quoted part and begins the next.
bool FormLexer::Quoted()
{
    const char* const first = FBytes.data();
    const char* const last = first + FBytes.size();
    uchar high = 0;
    for (const char* p = first + FAt + 1; p < last; ++p) {
        const char c = *p;
        high |= static_cast<uchar>(c);
        if (c == '\'') {
            FAt = p - first + 1;
            FRawNonAscii |= high >= 0x80;
            return true;
        }
        if (c == '\n' || c == '\r' || c == 0)
            break;
    }
    return false;
}

bool FormLexer::Escape()
{
    int number = 0;
    const auto start = ++FAt;
    while (ClassOf(FAt) == Digit && number <= 0xFFFF)
        number = number * 10 + (FBytes[FAt++] - '0');
    return FAt > start && number <= 0xFFFF;
}

void FormLexer::Binary(FormToken& token)
{
    token.Type = FormToken::Kind::Binary;
    const char* const first = FBytes.data();
    const char* const last = first + FBytes.size();
    const char* p = first + FAt + 1;
    bool whole = true; // every run of digits makes bytes
    while (whole && p < last && *p != '}') {
        const char* const run = p;
        while (p < last && IsHex(*p))
            ++p;
        whole = (p - run) % 2 == 0;
        if (p == run && !IsBlank(*p))
            break;
        while (whole && p < last && IsBlank(*p))
            ++p;
    }
    FAt = p - first;
    if (p >= last)
        return Fail(token, "binary data without its closing brace; the file is cut off, take it from a backup");
    if (!whole || *p != '}') {
        token.Begin = FAt;
        return Fail(token, "binary data holds something other than pairs of hexadecimal digits; mend the digits");
    }
    ++FAt;
}
