#include "rtl/ControlWord.h"

#include <cfenv>

#include <gtest/gtest.h>

namespace {

// The word and the environment as they were, whatever the test does.
class ControlWord : public testing::Test {
protected:
    ~ControlWord() override
    {
        fesetround(FRounding);
        Set8087CW(FWord);
    }

private:
    unsigned FWord = Get8087CW();
    int FRounding = fegetround();
};

}

TEST_F(ControlWord, TheAgreedWordMasksEveryException)
{
    Set8087CW(4927);
    EXPECT_EQ(MCW_EM, 4927u);
    EXPECT_EQ(Get8087CW(), 4927u);
    EXPECT_EQ(fegetexcept(), 0);
}

TEST_F(ControlWord, AClearedBitLetsItsExceptionThrough)
{
    Set8087CW(4927 & ~(1u | 4u | 8u));
    EXPECT_EQ(fegetexcept(), FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW);
    Set8087CW(4927 & ~(16u | 32u));
    EXPECT_EQ(fegetexcept(), FE_UNDERFLOW | FE_INEXACT);
}

TEST_F(ControlWord, WhatWasSetBeforeComesBack)
{
    Set8087CW(4927 & ~4u);
    const auto saved = Get8087CW();
    Set8087CW(MCW_EM);
    Set8087CW(saved);
    EXPECT_EQ(Get8087CW(), 4923u);
    EXPECT_EQ(fegetexcept(), FE_DIVBYZERO);
}

TEST_F(ControlWord, RoundingIsNotTouched)
{
    fesetround(FE_UPWARD);
    Set8087CW(4927);
    EXPECT_EQ(fegetround(), FE_UPWARD);
}
