#include "support/PrintQt.h"
#include "support/ToolWindowFixture.h"

namespace {

class LookingUpNodes : public ToolWindowFixture {
protected:
    void SetUp() override
    {
        StartShown();
        OpenShop();
        Group(gmForm);
    }
    InterfacePtr<IMrvCustomComponentAttr> Attr(const QString& name)
    {
        return List().GetDataSetAttrByObj(Component(name));
    }
};

}

TEST_F(LookingUpNodes, ByNameAmongChildrenWithoutRegardToCase)
{
    EXPECT_EQ(Tree().FindChildNodeByName(nullptr, u"SHOP.DPROJ"_qs), Node({}));
    EXPECT_EQ(Tree().FindChildNodeByName(Node({}), u"data"_qs), Node(u"Data"_qs));
    EXPECT_EQ(Tree().FindChildNodeByName(Node({}), u"Books"_qs), nullptr);
}

TEST_F(LookingUpNodes, ByNameInTheWholeTreeWithRegardToCaseAndFromTheGivenNodeOn)
{
    auto* first = Tree().FindNodeByName(u"Books"_qs);
    EXPECT_EQ(first, Node(u"Data/Authors/Master DataSet/Books"_qs));
    EXPECT_EQ(Tree().FindNodeByName(u"Books"_qs, first), first);
    EXPECT_EQ(Tree().FindNodeByName(u"Books"_qs, first->GetNext()), Node(u"Data/Books"_qs));
    EXPECT_EQ(Tree().FindNodeByName(u"books"_qs), nullptr);
}

TEST_F(LookingUpNodes, ByKind)
{
    EXPECT_EQ(Tree().FindNodeByType(ndtRoot), Node({}));
    EXPECT_EQ(Tree().FindNodeByType(ndtRoot, Node(u"Data"_qs)), nullptr);
    EXPECT_EQ(Tree().FindNodeByType(ndtForm), Node(u"Data"_qs));
    EXPECT_EQ(Tree().FindNodeByType(ndtForm, Node(u"Data"_qs)), Node(u"Data"_qs));
    EXPECT_EQ(Tree().FindChildNodeByType(Node(u"Data/Books"_qs), ndtBlank), Node(u"Data/Books/Fields"_qs));
    EXPECT_EQ(Tree().FindChildNodeByType(Node(u"Data/Books"_qs), ndtField), nullptr);
    EXPECT_EQ(Tree().FindChildNodeByType(nullptr, ndtRoot), Node({}));
}

TEST_F(LookingUpNodes, ByWrapperExclusivelyAndInTreeOrder)
{
    auto* master = Node(u"Data/Authors/Master DataSet/Books"_qs);
    auto* own = Node(u"Data/Books"_qs);
    EXPECT_EQ(Tree().FindNodeByDataRef(Attr(u"Data.Books"_qs)), master);
    EXPECT_EQ(Tree().FindNodeByDataRef(Attr(u"Data.Books"_qs), master), own);
    EXPECT_EQ(Tree().FindNodeByDataRef(Attr(u"Data.Books"_qs), own), nullptr);
    EXPECT_EQ(Tree().FindNodesByDataRef(Attr(u"Data.Books"_qs)), (QList<TTreeNode*> { master, own }));
    EXPECT_EQ(Tree().FindNodeByDataRef(InterfacePtr<IInterface>()), nullptr);
    EXPECT_EQ(Tree().FindNodeByDataRef(InterfacePtr<IInterface>(BorlandIDEServices)), nullptr);
    EXPECT_EQ(Tree().FindChildNodeByDataRef(Node(u"Data"_qs), Attr(u"Data.Books"_qs)), own);
    EXPECT_EQ(Tree().FindChildNodeByDataRef(Node({}), Attr(u"Data.Books"_qs)), nullptr);
}

TEST_F(LookingUpNodes, ByWhatANodeCarries)
{
    auto* own = Node(u"Data/Books"_qs);
    const auto* data = TMrvTreeView::NodeData(own);
    EXPECT_EQ(Tree().FindNodeByDataRef(data), own);
    EXPECT_EQ(Tree().FindNodeByDataRef(data, own), nullptr);
}

TEST_F(LookingUpNodes, ByHalvingTheSortedFirstLevel)
{
    EXPECT_EQ(Tree().FastFindNodeByName(u"MAINFORM"_qs), Node(u"MainForm"_qs));
    EXPECT_EQ(Tree().FastFindNodeByName(u"Data"_qs), Node(u"Data"_qs));
    EXPECT_EQ(Tree().FastFindNodeByName(u"Books"_qs), nullptr);
    Window().CleanDataSetView();
    EXPECT_EQ(Tree().FastFindNodeByName(u"Data"_qs), nullptr);
}

TEST_F(LookingUpNodes, RenamesEveryNodeOfACaptionExactly)
{
    Tree().RenameNodes(u"Books"_qs, u"Titles"_qs);
    EXPECT_NE(Node(u"Data/Titles"_qs), nullptr);
    EXPECT_NE(Node(u"Data/Authors/Master DataSet/Titles"_qs), nullptr);
    Tree().RenameNodes(u"titles"_qs, u"Else"_qs);
    EXPECT_NE(Node(u"Data/Titles"_qs), nullptr);
    EXPECT_THROW(Tree().RenameNodes(u"Titles"_qs, u"TITLES"_qs), EAssertionFailed);
    EXPECT_FALSE(Tree().Items().Updating());
}

TEST_F(LookingUpNodes, SortsFieldsByIndexAndTheRestByCaption)
{
    auto* fields = Node(u"Data/Books/Fields"_qs);
    fields->GetLastChild()->MoveTo(fields->GetFirstChild(), naInsert);
    Tree().AddNodeFirst(fields, u"zz"_qs, ndtFieldDef, nullptr);
    Node(u"MainForm"_qs)->MoveTo(Node(u"Data"_qs), naInsert);
    Tree().Sort();
    EXPECT_EQ(Node({})->GetFirstChild()->Text(), u"Data"_qs);
    EXPECT_EQ(fields->Item(0)->Text(), u"0 - Id{BooksId}"_qs);
    EXPECT_EQ(fields->Item(1)->Text(), u"1 - Title{BooksTitle}"_qs);
    EXPECT_EQ(fields->Item(2)->Text(), u"zz"_qs);
}

TEST_F(LookingUpNodes, MovesAnItemToWhereAnotherStands)
{
    auto* root = Node({});
    const auto order = [root] {
        QString text;
        for (auto* node = root->GetFirstChild(); node; node = node->GetNextSibling())
            text += node->Text().at(0);
        return text;
    };
    Tree().DeleteChildren(root);
    for (const auto& name : { u"A"_qs, u"B"_qs, u"C"_qs, u"D"_qs })
        Tree().AddNode(root, name, ndtBlank, nullptr);
    Tree().MoveItem(root->Item(0), root->Item(2));
    EXPECT_EQ(order(), u"BCAD"_qs);
    Tree().MoveItem(root->Item(2), root->Item(0));
    EXPECT_EQ(order(), u"ABCD"_qs);
    Tree().MoveItem(root->Item(0), root->Item(3));
    EXPECT_EQ(order(), u"BCDA"_qs);
}

TEST_F(LookingUpNodes, RefreshesFieldsAloneAndDropsDeletedOnes)
{
    auto* fields = Node(u"Data/Books/Fields"_qs);
    auto* other = Tree().AddNode(fields, u"other"_qs, ndtBlank, nullptr);
    fields->Item(1)->SetText(u"?"_qs);
    List().GetDataSetAttrByObj(Component(u"Data.Books"_qs))->GetField(0)->FDeleted = true;
    Tree().RefreshChildNodes(fields);
    EXPECT_EQ(fields->Count(), 2);
    EXPECT_EQ(fields->Item(0)->Text(), u"1 - Title{BooksTitle}"_qs);
    EXPECT_EQ(fields->Item(1), other);
    Tree().RefreshChildNodes(nullptr);
}

TEST_F(LookingUpNodes, AWrapperThatStandsTwiceComesBackSelectedTwice)
{
    Select(u"Data/Books"_qs);
    Tree().SaveSelections();
    Tree().ClearSelection(false);
    Tree().RestoreSelections();
    EXPECT_TRUE(Node(u"Data/Books"_qs)->Selected());
    EXPECT_TRUE(Node(u"Data/Authors/Master DataSet/Books"_qs)->Selected());
    EXPECT_EQ(Tree().SelectionCount(), 2);
}

TEST_F(LookingUpNodes, TheSelectedNodeIsForgottenWhenItGoes)
{
    Select(u"Data/Books"_qs);
    EXPECT_EQ(Window().FSelectedNode, Node(u"Data/Books"_qs));
    Tree().blockSignals(true);
    Tree().DeleteNode(Node(u"Data"_qs));
    Tree().blockSignals(false);
    for (auto* node = Tree().Items().GetFirstNode(); node; node = node->GetNext())
        if (node == Window().FSelectedNode)
            return;
    EXPECT_EQ(Window().FSelectedNode, nullptr);
}
