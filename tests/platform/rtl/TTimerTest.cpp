#include "rtl/TTimer.h"

#include <memory>

#include <gtest/gtest.h>

TEST(TTimer, FiresAfterEachIntervalUntilItIsDisabled)
{
    ManualClock clock;
    TTimer timer;
    int fired = 0;
    timer.OnTimer = [&fired](TTimer*) { ++fired; };
    timer.SetInterval(50);
    clock.Advance(49);
    EXPECT_EQ(fired, 0);
    clock.Advance(51);
    EXPECT_EQ(fired, 2);
    timer.SetEnabled(false);
    clock.Advance(500);
    EXPECT_EQ(fired, 2);
}

TEST(TTimer, StartsItsIntervalAnewWhenItIsEnabledAgain)
{
    ManualClock clock;
    TTimer timer;
    int fired = 0;
    timer.OnTimer = [&fired](TTimer*) { ++fired; };
    timer.SetInterval(50);
    for (int i = 0; i < 5; ++i) {
        clock.Advance(40);
        timer.SetEnabled(false);
        timer.SetEnabled(true);
    }
    EXPECT_EQ(fired, 0);
    clock.Advance(50);
    EXPECT_EQ(fired, 1);
}

TEST(TTimer, MayBeDeletedByItsOwnHandler)
{
    ManualClock clock;
    auto timer = std::make_unique<TTimer>();
    timer->OnTimer = [&timer](TTimer*) { timer.reset(); };
    timer->SetInterval(50);
    clock.Advance(100);
    EXPECT_TRUE(clock.Idle());
}
