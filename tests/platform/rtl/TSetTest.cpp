#include "rtl/TSet.h"

#include <gtest/gtest.h>

namespace {

enum Number : unsigned char { n0, n1, n2, n31 = 31, n32, n255 = 255 };
using Numbers = TSet<Number>;

}

TEST(TSet, HoldsWhatIsPutIn)
{
    Numbers set { n0, n31 };
    EXPECT_TRUE(set.Contains(n0));
    EXPECT_TRUE(set.Contains(n31));
    EXPECT_FALSE(set.Contains(n1));
    EXPECT_EQ(set.Bits(), 0x80000001u);
}

TEST(TSet, GivesUpWhatIsTakenOut)
{
    Numbers set { n0, n1 };
    set.Exclude(n1);
    set.Exclude(n2);
    EXPECT_EQ(set, Numbers { n0 });
}

TEST(TSet, AValueAboveItsRangeIsNeverInIt)
{
    Numbers set { n1 };
    set.Include(n32);
    set.Include(n255);
    EXPECT_EQ(set, Numbers { n1 });
    EXPECT_FALSE(set.Contains(n32));
    set.Exclude(n32);
    EXPECT_EQ(set, Numbers { n1 });
}

TEST(TSet, IsEmptyAtFirst)
{
    EXPECT_TRUE(Numbers().IsEmpty());
    EXPECT_FALSE(Numbers { n0 }.IsEmpty());
}
