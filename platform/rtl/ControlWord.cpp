#include "rtl/ControlWord.h"

#include <cfenv>

namespace {

// The start value: every exception masked.
unsigned GControlWord = 4927;

int Trapped(unsigned value)
{
    int trapped = 0;
    if (!(value & 1))
        trapped |= FE_INVALID;
    if (!(value & 4))
        trapped |= FE_DIVBYZERO;
    if (!(value & 8))
        trapped |= FE_OVERFLOW;
    if (!(value & 16))
        trapped |= FE_UNDERFLOW;
    if (!(value & 32))
        trapped |= FE_INEXACT;
    return trapped;
}

}

unsigned Get8087CW()
{
    return GControlWord;
}

void Set8087CW(unsigned value)
{
    GControlWord = value;
    feclearexcept(FE_ALL_EXCEPT);
    fedisableexcept(FE_ALL_EXCEPT);
    feenableexcept(Trapped(value));
}
