#include "data/DeclaredType.h"

#include "Shop.h"

namespace {

QString TypeOf(const char* declaration)
{
    return Told({ DeclaredType(QString::fromLatin1(declaration)) });
}

}

TEST(DeclaredType, TakesSizesFromTheDeclaration)
{
    EXPECT_EQ(TypeOf("VARCHAR(40)"), QStringLiteral(":ftString(40)"));
    EXPECT_EQ(TypeOf("char (13)"), QStringLiteral(":ftFixedChar(13)"));
    EXPECT_EQ(TypeOf("NVARCHAR( 100 )"), QStringLiteral(":ftWideString(100)"));
    EXPECT_EQ(TypeOf("character varying"), QStringLiteral(":ftString(255)"));
    EXPECT_EQ(TypeOf("varbinary(16)"), QStringLiteral(":ftVarBytes(16)"));
}

TEST(DeclaredType, MakesDecimalsThatFitABcdField)
{
    EXPECT_EQ(TypeOf("DECIMAL(10,2)"), QStringLiteral(":ftBCD(10,2)"));
    EXPECT_EQ(TypeOf("NUMERIC(8)"), QStringLiteral(":ftBCD(8,0)"));
    EXPECT_EQ(TypeOf("DECIMAL(30, 6)"), QStringLiteral(":ftFMTBcd(30,6)"));
    EXPECT_EQ(TypeOf("numeric"), QStringLiteral(":ftBCD(18,4)"));
}

TEST(DeclaredType, KnowsTheNamesThatArePractice)
{
    const QList<std::pair<const char*, const char*>> known { { "INTEGER", ":ftInteger" }, { "bigint", ":ftLargeint" },
        { "smallint", ":ftSmallint" }, { "BIGINT UNSIGNED", ":ftLargeint" }, { "int(11) unsigned", ":ftLongWord" },
        { "double  precision", ":ftFloat" }, { "BOOLEAN", ":ftBoolean" }, { "DATE", ":ftDate" },
        { "DATETIME", ":ftDateTime" }, { "TIMESTAMP", ":ftTimeStamp" }, { "TIME", ":ftTime" }, { "TEXT", ":ftMemo" },
        { "BLOB", ":ftBlob" }, { "money", ":ftCurrency" }, { "uuid", ":ftGuid(38)" } };
    for (const auto& [declaration, type] : known)
        EXPECT_EQ(TypeOf(declaration), QString::fromLatin1(type)) << declaration;
}

TEST(DeclaredType, GoesByAffinityWhereANameSaysNothing)
{
    EXPECT_EQ(TypeOf("SHORTINTEGER"), QStringLiteral(":ftInteger"));
    EXPECT_EQ(TypeOf("MYCHARS(5)"), QStringLiteral(":ftString(5)"));
    EXPECT_EQ(TypeOf("BIGFLOAT"), QStringLiteral(":ftFloat"));
    EXPECT_EQ(TypeOf("ANYTHING"), QStringLiteral(":ftString(255)"));
    EXPECT_EQ(TypeOf(""), QStringLiteral(":ftUnknown"));
}
