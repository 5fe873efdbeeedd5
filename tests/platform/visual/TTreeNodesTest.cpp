#include "visual/TTreeNodes.h"

#include <QAbstractItemModelTester>
#include <QRandomGenerator>

#include <gtest/gtest.h>

namespace {

QString Dump(const TTreeNodes& nodes)
{
    QString text;
    for (const auto* node = nodes.GetFirstNode(); node; node = node->GetNext())
        text += QString(node->Level() * 2, u' ') + node->Text() + u'\n';
    return text;
}

int ByText(const TTreeNode* a, const TTreeNode* b)
{
    return a->Text().compare(b->Text(), Qt::CaseInsensitive);
}

}

TEST(TTreeNodes, WalksInTreeOrderForwardsAndBackwards)
{
    TTreeNodes nodes;
    auto* root = nodes.AddChild(nullptr, QStringLiteral("root"));
    auto* b = nodes.AddChild(root, QStringLiteral("b"));
    nodes.InsertObject(b, QStringLiteral("a"), nullptr);
    nodes.AddChild(b, QStringLiteral("b1"));
    nodes.AddChildObjectFirst(b, QStringLiteral("b0"), nullptr);
    EXPECT_EQ(Dump(nodes), QStringLiteral("root\n  a\n  b\n    b0\n    b1\n"));
    EXPECT_EQ(nodes.GetLastNode()->GetPrev()->GetPrev(), b);
    EXPECT_EQ(nodes.Item(3)->AbsoluteIndex(), 3);
}

TEST(TTreeNodes, MovesANodeToEveryPlaceItIsGiven)
{
    TTreeNodes nodes;
    auto* a = nodes.AddChild(nullptr, QStringLiteral("a"));
    auto* b = nodes.AddChild(nullptr, QStringLiteral("b"));
    auto* c = nodes.AddChild(nullptr, QStringLiteral("c"));
    c->MoveTo(a, naInsert);
    EXPECT_EQ(Dump(nodes), QStringLiteral("c\na\nb\n"));
    c->MoveTo(a, naAdd);
    EXPECT_EQ(Dump(nodes), QStringLiteral("a\nb\nc\n"));
    a->MoveTo(b, naAddChild);
    EXPECT_EQ(Dump(nodes), QStringLiteral("b\n  a\nc\n"));
}

TEST(TTreeNodes, SortsWhatChangedAndKeepsTheOrderOfEquals)
{
    TTreeNodes nodes;
    auto* root = nodes.AddChild(nullptr, QStringLiteral("root"));
    for (const auto* text : { u"b", u"A", u"a", u"c" })
        nodes.AddChild(root, QString::fromUtf16(text));
    nodes.CustomSort(ByText);
    EXPECT_EQ(Dump(nodes), QStringLiteral("root\n  A\n  a\n  b\n  c\n"));
    root->GetFirstChild()->SetText(QStringLiteral("z"));
    nodes.CustomSort(ByText);
    EXPECT_EQ(Dump(nodes), QStringLiteral("root\n  a\n  b\n  c\n  z\n"));
}

TEST(TTreeNodes, SortsTheChildrenOfOneNodeAlone)
{
    TTreeNodes nodes;
    auto* first = nodes.AddChild(nullptr, QStringLiteral("z"));
    auto* second = nodes.AddChild(nullptr, QStringLiteral("y"));
    for (auto* parent : { first, second })
        for (const auto* text : { u"b", u"a" })
            nodes.AddChild(parent, QString::fromUtf16(text));
    nodes.SortChildren(first, ByText);
    EXPECT_EQ(Dump(nodes), QStringLiteral("z\n  a\n  b\ny\n  b\n  a\n"));
    nodes.CustomSort(ByText);
    EXPECT_EQ(Dump(nodes), QStringLiteral("y\n  a\n  b\nz\n  a\n  b\n"));
}

TEST(TTreeNodes, TellsNobodyOfASortThatMovesNothing)
{
    TTreeNodes nodes;
    for (const auto* text : { u"a", u"b" })
        nodes.AddChild(nullptr, QString::fromUtf16(text));
    int told = 0;
    QObject::connect(&nodes, &QAbstractItemModel::layoutChanged, [&told] { ++told; });
    nodes.CustomSort(ByText);
    nodes.GetFirstNode()->SetText(QStringLiteral("c"));
    nodes.CustomSort(ByText);
    EXPECT_EQ(told, 1);
}

TEST(TTreeNodes, IsASoundItemModelUnderRandomChanges)
{
    const auto seed = QRandomGenerator::global()->generate();
    SCOPED_TRACE(seed);
    QRandomGenerator random(seed);
    TTreeNodes nodes;
    const QAbstractItemModelTester tester(&nodes, QAbstractItemModelTester::FailureReportingMode::Fatal);
    nodes.AddChild(nullptr, QStringLiteral("root"));
    for (int step = 0; step < 2000; ++step) {
        auto* node = nodes.Item(int(random.bounded(nodes.Count())));
        auto* other = nodes.Item(int(random.bounded(nodes.Count())));
        const auto name = QString::number(random.bounded(100));
        switch (random.bounded(8)) {
        case 0:
        case 1:
            nodes.AddChild(node, name);
            break;
        case 2:
            nodes.InsertObject(node, name, nullptr);
            break;
        case 3:
            if (nodes.Count() > 40)
                node->Parent() ? node->Delete() : node->DeleteChildren();
            break;
        case 4:
            node->SetText(name);
            break;
        case 5:
            nodes.CustomSort(ByText);
            break;
        case 6:
            nodes.SortChildren(node, ByText);
            break;
        default:
            if (node->Level() > 0 && other->Level() == 0)
                node->MoveTo(other, naAddChild);
        }
        if (nodes.Count() == 0)
            nodes.AddChild(nullptr, QStringLiteral("root"));
    }
    int counted = 0;
    for (const auto* walk = nodes.GetFirstNode(); walk; walk = walk->GetNext())
        ++counted;
    EXPECT_EQ(counted, nodes.Count());
}
