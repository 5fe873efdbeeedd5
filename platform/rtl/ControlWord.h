#pragma once

// The floating-point control word of the platform's register of that name, kept as a value and mapped to the exception
// masks of the floating-point environment: a set bit of 0 to 5 (invalid, denormal, zero divide, overflow, underflow,
// precision) masks that exception. Rounding and precision are kept in the value and not touched.
constexpr unsigned MCW_EM = 4927;

unsigned Get8087CW();
void Set8087CW(unsigned value);
