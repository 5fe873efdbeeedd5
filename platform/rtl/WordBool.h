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
    constexpr operator bool() const { return FValue != 0; }
    constexpr std::uint16_t Number() const { return FValue; }

    friend std::ostream& operator<<(std::ostream& out, WordBool value) { return out << (value ? "True" : "False"); }

private:
    std::uint16_t FValue = 0;
};
