#include "data/StatementText.h"

#include <gtest/gtest.h>

TEST(StatementText, TakesParametersOutInOrder)
{
    const auto parsed = ParseStatement(QStringLiteral("select * from T where A = :a and B=:b_1 or :a>2;\r\n"));
    EXPECT_EQ(parsed.Text, QStringLiteral("select * from T where A = ? and B=? or ?>2"));
    EXPECT_EQ(parsed.Names, QStringList({ QStringLiteral("a"), QStringLiteral("b_1"), QStringLiteral("a") }));
}

TEST(StatementText, LeavesQuotesAndDoubleColonsAlone)
{
    const auto text = QStringLiteral("select ':a', \":b\", `:c`, [:d], x::int from T");
    const auto parsed = ParseStatement(text);
    EXPECT_EQ(parsed.Text, text);
    EXPECT_EQ(parsed.Names, QStringList());
}

TEST(StatementText, LeavesCommentsOut)
{
    const auto parsed = ParseStatement(QStringLiteral("select 1 -- :e\n/* :f */ from T; -- the end"));
    EXPECT_EQ(parsed.Text, QStringLiteral("select 1    from T"));
    EXPECT_EQ(parsed.Names, QStringList());
}

TEST(StatementText, TakesAParameterWithAQuotedName)
{
    const auto parsed = ParseStatement(QStringLiteral("select :\"my name\" from T"));
    EXPECT_EQ(parsed.Text, QStringLiteral("select ? from T"));
    EXPECT_EQ(parsed.Names, QStringList(QStringLiteral("my name")));
}

TEST(StatementText, EndsWithinAnOpenQuoteOrComment)
{
    EXPECT_EQ(ParseStatement(QStringLiteral("select 'abc :x")).Names, QStringList());
    EXPECT_EQ(ParseStatement(QStringLiteral("select /* :x")).Names, QStringList());
    EXPECT_EQ(ParseStatement(QStringLiteral("select 1:")).Text, QStringLiteral("select 1:"));
}

TEST(StatementText, KnowsTheFirstWordBehindCommentsAndParentheses)
{
    EXPECT_EQ(FirstKeyword(QStringLiteral(" -- all of them\n ( /* x */ select 1)")), QStringLiteral("SELECT"));
    EXPECT_EQ(FirstKeyword(QStringLiteral("with T as (select 1) select * from T")), QStringLiteral("WITH"));
    EXPECT_EQ(FirstKeyword(QString()), QString());
}
