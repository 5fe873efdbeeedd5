#pragma once

#include <QUuid>

// The identifier of an interface.
using TGUID = QUuid;

namespace Rtl {

constexpr unsigned HexDigit(char c)
{
    if (c >= '0' && c <= '9')
        return unsigned(c - '0');
    if (c >= 'A' && c <= 'F')
        return unsigned(c - 'A' + 10);
    if (c >= 'a' && c <= 'f')
        return unsigned(c - 'a' + 10);
    throw "a digit of a GUID is hexadecimal";
}

constexpr unsigned Hex(const char* text, int digits)
{
    unsigned value = 0;
    for (int i = 0; i < digits; ++i)
        value = value * 16 + HexDigit(text[i]);
    return value;
}

}

// Reads "{XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}" at compile time; a slip in it does not compile.
consteval TGUID Guid(const char (&text)[39])
{
    const auto byte = [&text](int at) { return uchar(Rtl::Hex(text + at, 2)); };
    return TGUID(Rtl::Hex(text + 1, 8), ushort(Rtl::Hex(text + 10, 4)), ushort(Rtl::Hex(text + 15, 4)), byte(20),
        byte(22), byte(25), byte(27), byte(29), byte(31), byte(33), byte(35));
}
