#pragma once

#include <cstdint>
#include <ostream>

// A Boolean that crosses an interface: 16 bits, 0 is false and 65535 is true. Any value but 0 tests as true.
class WordBool {
public:
    constexpr WordBool() = default;
    constexpr WordBool(bool value)
        : FValue(value ? 65535 : 0)
    {
    }
    // From a number as a caller passes it across the border; the number stays as it is.
    static constexpr WordBool FromNumber(std::uint16_t number)
    {
        WordBool result;
        result.FValue = number;
        return result;
    }

    constexpr operator bool() const { return FValue != 0; }
    constexpr std::uint16_t Number() const { return FValue; }

    friend std::ostream& operator<<(std::ostream& out, WordBool value) { return out << (value ? "True" : "False"); }

private:
    std::uint16_t FValue = 0;
};
