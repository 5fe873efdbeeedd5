#include "rtl/SysUtils.h"

#include <gtest/gtest.h>

TEST(SysUtils, FormatFillsStringsNumbersAndPercentSigns)
{
    EXPECT_EQ(Format(QStringLiteral("%s {%s} %d%% %5d|%-5d|%.3d"),
                  { QStringLiteral("a"), QStringLiteral("b"), 7, 42, 42, 7 }),
        QStringLiteral("a {b} 7%    42|42   |007"));
}

TEST(SysUtils, FormatPadsTextsAndNumbersAndCutsTexts)
{
    EXPECT_EQ(Format(QStringLiteral("%4s|%-4s|%.2s|%x|%6.4x|%u"),
                  { QStringLiteral("ab"), QStringLiteral("cd"), QStringLiteral("efg"), 48879, 10, -1 }),
        QStringLiteral("  ab|cd  |ef|BEEF|  000A|4294967295"));
}

TEST(SysUtils, FormatLeavesWhatIsNoPlaceholder)
{
    EXPECT_EQ(Format(QStringLiteral("100% %q %5 %.s %-"), {}), QStringLiteral("100% %q %5 %.s %-"));
    EXPECT_EQ(Format(QStringLiteral("%5%s"), { QStringLiteral("a") }), QStringLiteral("%5a"));
}

TEST(SysUtils, FormatRaisesForAMissingArgument)
{
    EXPECT_THROW(Format(QStringLiteral("%s"), {}), EConvertError);
}

TEST(SysUtils, BooleansAreReadInAnyCaseAndStrictly)
{
    EXPECT_TRUE(StrToBool(QStringLiteral("tRUE")));
    EXPECT_FALSE(StrToBool(QStringLiteral("0")));
    EXPECT_THROW(StrToBool(QStringLiteral("yes")), EConvertError);
    EXPECT_TRUE(StrToBoolDef(QStringLiteral("yes"), true));
    EXPECT_TRUE(StrToBoolDef(QString(), true));
}

TEST(SysUtils, FileNamesSplitAtBothSeparators)
{
    EXPECT_EQ(ExtractFileName(QStringLiteral("a/b\\Unit1.pas")), QStringLiteral("Unit1.pas"));
    EXPECT_EQ(ExtractFilePath(QStringLiteral("a/b\\Unit1.pas")), QStringLiteral("a/b\\"));
    EXPECT_EQ(ExtractFileExt(QStringLiteral("a.b/Unit1")), QString());
    EXPECT_EQ(ChangeFileExt(QStringLiteral("a.b/Unit1.dfm"), QStringLiteral(".CPP")), QStringLiteral("a.b/Unit1.CPP"));
}
