#pragma once

#include <cstdint>
#include <initializer_list>

// A set of the values of an enumeration that is numbered from 0; it holds the values 0 to 31. A value above them
// cannot be put in, and is never found in it.
template <class E>
class TSet {
public:
    constexpr TSet() = default;
    constexpr TSet(std::initializer_list<E> values)
    {
        for (const E value : values)
            Include(value);
    }

    constexpr void Include(E value) { FBits |= Bit(value); }
    constexpr void Exclude(E value) { FBits &= ~Bit(value); }
    constexpr bool Contains(E value) const { return (FBits & Bit(value)) != 0; }
    constexpr bool IsEmpty() const { return FBits == 0; }
    // Bit n stands for the value n.
    constexpr std::uint32_t Bits() const { return FBits; }

    friend constexpr bool operator==(const TSet&, const TSet&) = default;

private:
    static constexpr std::uint32_t Bit(E value)
    {
        const auto number = static_cast<unsigned>(value);
        return number < 32 ? std::uint32_t(1) << number : 0;
    }
    std::uint32_t FBits = 0;
};
