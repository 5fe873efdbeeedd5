#include "packages/JsonTree.h"

#include <gtest/gtest.h>

namespace {

std::string told(const QByteArray& text)
{
    Problems problems;
    const JsonTree tree(QStringLiteral("a.json"), text, problems);
    QString lines;
    for (const auto& problem : problems)
        lines += problem.ToString() + u'\n';
    return lines.toStdString();
}

}

TEST(JsonTree, KeepsValuesInTheirOrder)
{
    Problems problems;
    const JsonTree tree(QStringLiteral("a.json"), R"({ "b": [1, -2.5, true, null], "a": "t\u00e9xt" })", problems);
    ASSERT_NE(tree.Root(), nullptr);
    const auto& members = tree.Root()->Members;
    ASSERT_EQ(members.size(), 2);
    EXPECT_EQ(members[0].Name, QStringLiteral("b"));
    ASSERT_EQ(members[0].Value.Items.size(), 4);
    EXPECT_EQ(members[0].Value.Items[0].Value, 1);
    EXPECT_EQ(members[0].Value.Items[1].Value, -2.5);
    EXPECT_TRUE(members[0].Value.Items[2].Flag);
    EXPECT_EQ(members[0].Value.Items[3].Type, JsonValue::Null);
    EXPECT_EQ(members[1].Value.String, QStringLiteral("t\u00e9xt"));
}

TEST(JsonTree, FindsAMemberByItsName)
{
    Problems problems;
    const JsonTree tree(QStringLiteral("a.json"), R"({ "a": "x" })", problems);
    ASSERT_NE(tree.Root()->Find(QLatin1String("a")), nullptr);
    EXPECT_EQ(tree.Root()->Find(QLatin1String("A")), nullptr);
}

TEST(JsonTree, TellsLineAndColumnOfASyntaxError)
{
    EXPECT_EQ(told("{\n  \"a\": 1,\n  \"b\" 2\n}"), "a.json:3:7: Missing a colon after a name of object member.\n");
}

TEST(JsonTree, CountsCharactersAndNotBytesInAColumn)
{
    EXPECT_EQ(told("[\"\xC3\xA9\xC3\xA9\", x]"), "a.json:1:8: Invalid value.\n");
}

TEST(JsonTree, TellsOfATextThatIsNoUtf8)
{
    EXPECT_EQ(told("[\"\xE9\"]"), "a.json:1:3: Invalid encoding in string.\n");
}

TEST(JsonTree, TellsOfAnEmptyFile)
{
    EXPECT_EQ(told(""), "a.json:1:1: The document is empty.\n");
}

TEST(JsonTree, TellsOfAFileThatIsCutOff)
{
    EXPECT_EQ(told("{ \"a\": [1, 2"), "a.json:1:13: Missing a comma or ']' after an array element.\n");
}

TEST(JsonTree, RefusesValuesNestedTenThousandDeep)
{
    EXPECT_EQ(told(QByteArray(10000, '[')), "a.json:1:33: Nested too deep for a catalogue\n");
}

TEST(JsonTree, CountsTheFirstOfTwoMembersOfOneName)
{
    Problems problems;
    const JsonTree tree(QStringLiteral("a.json"), "{\n \"a\": 1,\n \"a\": 2 }", problems);
    ASSERT_EQ(problems.size(), 1);
    EXPECT_EQ(problems.first().ToString().toStdString(), "a.json:3:2: 'a' stands here a second time");
    ASSERT_EQ(tree.Root()->Members.size(), 1);
    EXPECT_EQ(tree.Root()->Members.first().Value.Value, 1);
}
