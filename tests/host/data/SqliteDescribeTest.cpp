#include "Shop.h"

using SqliteDescribe = Shop;

TEST_F(SqliteDescribe, TellsWhatTheTableDeclares)
{
    EXPECT_EQ(Described(QStringLiteral("select * from BOOK")),
        QStringLiteral(
            "ID:ftAutoInc TITLE:ftString(40)! PRICE:ftBCD(10,2) ISSUED:ftDate INPRINT:ftBoolean BLURB:ftMemo "
            "COVER:ftBlob STOCK:ftInteger"));
}

TEST_F(SqliteDescribe, SeesThroughViewsSubqueriesAndAliases)
{
    EXPECT_EQ(Described(QStringLiteral("select C.TITLE as NAME, X.PRICE from CHEAP C join (select * from BOOK) X")),
        QStringLiteral("NAME:ftString(40)! PRICE:ftBCD(10,2)"));
}

TEST_F(SqliteDescribe, ConcludesTheTypesOfExpressions)
{
    EXPECT_EQ(Described(QStringLiteral("select count(*) N, sum(PRICE) S, sum(STOCK) T, avg(STOCK) A, max(ISSUED) M, "
                                       "min(TITLE) from BOOK")),
        QStringLiteral("N:ftLargeint S:ftBCD(10,2) T:ftLargeint A:ftFloat M:ftDate min(TITLE):ftString(40)"));
    EXPECT_EQ(
        Described(QStringLiteral("select STOCK * PRICE as WORTH, STOCK + 1, TITLE || '!' as LOUD, upper(TITLE) as U, "
                                 "cast(STOCK as varchar(5)) as C, 'x' as L from BOOK order by WORTH")),
        QStringLiteral("WORTH:ftFloat STOCK + 1:ftLargeint LOUD:ftString(255) U:ftString(255) C:ftString(5) "
                       "L:ftString(255)"));
    EXPECT_EQ(Described(QStringLiteral("select coalesce(PRICE, 0) P, case when STOCK > 5 then TITLE else '' end K, "
                                       "(select max(AMOUNT) from SALE) Q from BOOK B where ID = :ID")),
        QStringLiteral("P:ftBCD(10,2) K:ftString(40) Q:ftInteger"));
}

TEST_F(SqliteDescribe, FindsAnExpressionBehindAStar)
{
    EXPECT_EQ(Described(QStringLiteral("select S.*, AMOUNT * 1.5 as MORE from SALE S")),
        QStringLiteral("BOOK:ftInteger! AMOUNT:ftInteger MORE:ftFloat"));
}

TEST_F(SqliteDescribe, ConcludesWithinACommonTable)
{
    EXPECT_EQ(Described(QStringLiteral("with T as (select TITLE, PRICE from BOOK) select max(PRICE) as P from T")),
        QStringLiteral("P:ftBCD(10,2)"));
}

TEST_F(SqliteDescribe, LooksAtARowWhereTheTextTellsNothing)
{
    EXPECT_EQ(Described(QStringLiteral("select likely(STOCK) as S, nullif(1, 1) as E from BOOK")),
        QStringLiteral("S:ftLargeint E:ftInteger"));
    EXPECT_EQ(Described(QStringLiteral("select likely(STOCK) as S from BOOK where ID = 99")),
        QStringLiteral("S:ftString(255)"));
}

TEST_F(SqliteDescribe, GivesColumnsOfOneNameNamesOfTheirOwn)
{
    EXPECT_EQ(Described(QStringLiteral("select BOOK, BOOK, AMOUNT as book from SALE")),
        QStringLiteral("BOOK:ftInteger! BOOK_1:ftInteger! book_2:ftInteger"));
}

TEST_F(SqliteDescribe, RunsNothing)
{
    // Counting to that takes longer than anybody waits.
    EXPECT_EQ(Described(QStringLiteral("with recursive C(X) as (select 1 union all select X + 1 from C) "
                                       "select STOCK, count(*) as N from BOOK, C order by N")),
        QStringLiteral("STOCK:ftInteger N:ftLargeint"));
}

TEST_F(SqliteDescribe, TellsWhatIsWrongInItsOwnWords)
{
    EXPECT_EQ(Failure([this] { Described(QStringLiteral("select * from AUTHOR")); }),
        QStringLiteral("no such table: AUTHOR"));
    EXPECT_EQ(Failure([this] { Described(QStringLiteral("select * form BOOK")); }),
        QStringLiteral("near \"form\": syntax error"));
    EXPECT_EQ(Failure([this] { Described(QStringLiteral("delete from BOOK")); }),
        QStringLiteral("only statements that read are run at design time, and this one begins with DELETE"));
    EXPECT_EQ(Failure([this] { Described(QStringLiteral("pragma query_only = 1")); }),
        QStringLiteral("the statement gives no rows"));
    EXPECT_EQ(Failure([this] { Described(QStringLiteral("select 1; select 2")); }),
        QStringLiteral("there is more than one statement"));
    EXPECT_EQ(
        Failure([this] { Described(QStringLiteral(" ")); }), QStringLiteral("there is no statement and no table"));
}
