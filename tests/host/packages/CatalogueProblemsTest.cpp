#include "PackagesFixture.h"

#include "classes/TypInfo.h"

class CatalogueProblems : public PackagesFixture { };

TEST_F(CatalogueProblems, AreNoneForAnEmptyFolder)
{
    EXPECT_EQ(Load(), "");
    EXPECT_EQ(FPackages.Count(), 0);
}

TEST_F(CatalogueProblems, TellOfAMissingFolder)
{
    const auto problems = FPackages.Load(FFolder.filePath(QStringLiteral("nowhere")));
    ASSERT_EQ(problems.size(), 1);
    EXPECT_EQ(problems.first().Text, QStringLiteral("The folder of the component catalogues is not there"));
}

TEST_F(CatalogueProblems, LeaveTheOtherPackagesInstalled)
{
    Write(QStringLiteral("a.json"), "{ \"package\": ");
    Write(QStringLiteral("b.json"), R"({ "package": "b" })");
    EXPECT_EQ(Load(), "a.json:1:14: Invalid value.\n");
    ASSERT_EQ(FPackages.Count(), 1);
    EXPECT_EQ(FPackages.Package(0).Package, QStringLiteral("b"));
}

TEST_F(CatalogueProblems, TellOfACatalogueWithoutPackage)
{
    Write(QStringLiteral("a.json"), R"({ "description": "x" })");
    EXPECT_EQ(Load(), "a.json:1:1: A catalogue names its package\n");
    EXPECT_EQ(FPackages.Count(), 0);
}

TEST_F(CatalogueProblems, TellOfAListInsteadOfACatalogue)
{
    Write(QStringLiteral("a.json"), "[]");
    EXPECT_EQ(Load(), "a.json:1:1: This is to be an object, not a list\n");
}

TEST_F(CatalogueProblems, TellOfUnknownKeysWithTheirPlace)
{
    Write(QStringLiteral("a.json"), "{ \"package\": \"a\",\n  \"clases\": [] }");
    EXPECT_EQ(Load(), "a.json:2:3: 'clases' is no key of a catalogue here\n");
}

TEST_F(CatalogueProblems, TellOfAnUnknownGroup)
{
    Write(QStringLiteral("a.json"), R"({ "package": "a", "group": "CLX" })");
    EXPECT_EQ(Load(), "a.json:1:28: 'CLX' is no class group; there are VCL, FMX and LCL\n");
}

TEST_F(CatalogueProblems, TellOfASecondCatalogueOfOnePackage)
{
    Write(QStringLiteral("a.json"), R"({ "package": "same" })");
    Write(QStringLiteral("b.json"), R"({ "package": "Same" })");
    EXPECT_EQ(Load(), "b.json:1:1: The package Same is in a.json already\n");
    EXPECT_EQ(FPackages.Count(), 1);
}

TEST_F(CatalogueProblems, TellOfARequiredPackageThatIsNotThere)
{
    Write(QStringLiteral("a.json"), R"({ "package": "a", "requires": ["b"] })");
    EXPECT_EQ(Load(), "a.json:1:1: The package b, which this one requires, is not there\n");
    EXPECT_EQ(FPackages.Count(), 1);
}

TEST_F(CatalogueProblems, TellOfPackagesThatRequireEachOther)
{
    Write(QStringLiteral("a.json"), R"({ "package": "a", "requires": ["b"] })");
    Write(QStringLiteral("b.json"), R"({ "package": "b", "requires": ["a"] })");
    EXPECT_EQ(Load(), "b.json:1:1: This package and a require each other\n");
    EXPECT_EQ(FPackages.Count(), 2);
}

TEST_F(CatalogueProblems, TellOfAClassWithoutAnIdentifier)
{
    Write(
        QStringLiteral("a.json"), R"({ "package": "a", "classes": [ { "name": "T Edit", "parent": "TComponent" } ] })");
    EXPECT_EQ(Load(), "a.json:1:31: A class has an identifier as its name, not 'T Edit'\n");
}

TEST_F(CatalogueProblems, TellOfAnUnknownParent)
{
    Write(QStringLiteral("a.json"),
        "{ \"package\": \"a\", \"classes\": [\n { \"name\": \"TA\", \"parent\": \"TNobody\" } ] }");
    EXPECT_EQ(Load(), "a.json:2:12: TA has the unknown parent TNobody\n");
    EXPECT_FALSE(GetClass(QStringLiteral("TA")));
}

TEST_F(CatalogueProblems, TellOfAParentThatStandsLater)
{
    Write(QStringLiteral("a.json"), R"({ "package": "a", "classes": [
 { "name": "TA", "parent": "TB" }, { "name": "TB", "parent": "TA" } ] })");
    EXPECT_EQ(Load(),
        "a.json:2:12: TA stands before its parent TB\n"
        "a.json:2:46: TB stands before its parent TA\n");
}

TEST_F(CatalogueProblems, TellOfAClassThatIsItsOwnParent)
{
    Write(QStringLiteral("a.json"), R"({ "package": "a", "classes": [ { "name": "TA", "parent": "TA" } ] })");
    EXPECT_EQ(Load(), "a.json:1:42: TA has the unknown parent TA\n");
}

TEST_F(CatalogueProblems, TellOfAClassWithoutParent)
{
    Write(QStringLiteral("a.json"), R"({ "package": "a", "classes": [ { "name": "TA" } ] })");
    EXPECT_EQ(Load(), "a.json:1:42: TA names no parent\n");
}

TEST_F(CatalogueProblems, TellOfABuiltInClassThatIsNotThere)
{
    Write(QStringLiteral("a.json"), R"({ "package": "a", "classes": [ { "name": "TA", "builtIn": true } ] })");
    EXPECT_EQ(Load(), "a.json:1:42: There is no built-in class TA\n");
}

TEST_F(CatalogueProblems, TellOfOneClassInTwoPackages)
{
    Write(QStringLiteral("a.json"),
        R"({ "package": "a", "classes": [ { "name": "TA", "parent": "TComponent", "unit": "A" } ] })");
    Write(QStringLiteral("b.json"),
        R"({ "package": "b", "classes": [ { "name": "Ta", "parent": "TComponent", "unit": "B" } ] })");
    EXPECT_EQ(Load(), "b.json:1:42: Ta is in the package a already\n");
    EXPECT_EQ(GetClass(QStringLiteral("TA")).UnitName(), QStringLiteral("A"));
}

TEST_F(CatalogueProblems, TellOfADeclarationThatIsNone)
{
    Write(QStringLiteral("a.json"), R"({ "package": "a", "classes": [
 { "name": "TA", "parent": "TComponent", "properties": ["Good: Integer", "Bad Integer"] } ] })");
    EXPECT_EQ(Load(), "a.json:2:74: 'Bad Integer' is not of the form 'Name: Type = default'\n");
    EXPECT_NE(GetPropInfo(GetClass(QStringLiteral("TA")), QStringLiteral("Good")), nullptr);
}

TEST_F(CatalogueProblems, TellOfAnUnknownType)
{
    Write(QStringLiteral("a.json"), R"({ "package": "a", "classes": [
 { "name": "TA", "parent": "TComponent", "properties": ["P: TNothing"] } ] })");
    EXPECT_EQ(Load(), "a.json:2:57: P: there is no type TNothing\n");
}

TEST_F(CatalogueProblems, TellOfADefaultThatIsNoValueOfItsType)
{
    Write(QStringLiteral("a.json"), R"({ "package": "a", "types": { "TE": ["e1"] }, "classes": [
 { "name": "TA", "parent": "TComponent", "properties": ["P: TE = e2", "Q: Integer = x", "R: Boolean = Maybe"] } ] })");
    EXPECT_EQ(Load(),
        "a.json:2:57: P: 'e2' is no value of TE\n"
        "a.json:2:71: Q: 'x' is no value of Integer\n"
        "a.json:2:89: R: 'Maybe' is no value of Boolean\n");
}

TEST_F(CatalogueProblems, TellOfATypeThatNamesItself)
{
    Write(QStringLiteral("a.json"), R"({ "package": "a", "types": { "TX": "TX" }, "classes": [
 { "name": "TA", "parent": "TComponent", "properties": ["P: TX"] } ] })");
    EXPECT_EQ(Load(), "a.json:2:57: P: there is no type TX\n");
}

TEST_F(CatalogueProblems, TellOfAMissingPropertySet)
{
    Write(QStringLiteral("a.json"), R"({ "package": "a", "classes": [
 { "name": "TA", "parent": "TComponent", "include": ["layout"] } ] })");
    EXPECT_EQ(Load(), "a.json:2:54: There is no property set layout\n");
}

TEST_F(CatalogueProblems, TellOfSomethingThatCannotBeDrawn)
{
    Write(QStringLiteral("a.json"), R"({ "package": "a", "classes": [
 { "name": "TA", "parent": "TComponent", "draw": "fancy" } ] })");
    EXPECT_EQ(Load(), "a.json:2:12: TA: nothing is drawn as 'fancy'\n");
}

TEST_F(CatalogueProblems, TellOfValuesOfTheWrongKind)
{
    Write(QStringLiteral("a.json"), R"({ "package": "a", "classes": [
 { "name": "TA", "parent": "TComponent", "container": "yes", "defaultSize": [1], "unit": 5 } ] })");
    EXPECT_EQ(Load(),
        "a.json:2:55: This is to be true or false, not a text\n"
        "a.json:2:76: A size is a width and a height\n"
        "a.json:2:90: This is to be a text, not a number\n");
}

TEST_F(CatalogueProblems, TellOfAMissingItemClass)
{
    Write(QStringLiteral("a.json"), R"({ "package": "a", "classes": [
 { "name": "TAs", "parent": "TCollection", "item": "TA" } ] })");
    EXPECT_EQ(Load(), "a.json:2:12: There is no item class TA\n");
}
