#include "data/TCustomZAConnection.h"
#include "data/TDataSource.h"
#include "data/TField.h"
#include "support/MrvConst.h"
#include "support/PrintQt.h"
#include "support/ToolWindowFixture.h"

namespace {

// What stands in the tree because of another form: masters, connections, parent forms.
class RelationsInTheTree : public ToolWindowFixture, public testing::WithParamInterface<TGroupMode> {
protected:
    void Start()
    {
        StartShown();
        OpenShop();
        Group(GetParam());
    }
    void Set(const QString& component, const QString& property, const QString& value)
    {
        auto& designer = DesignerOf(component.section(u'.', 0, 0));
        designer.SelectComponent(Component(component));
        SetObjectProp(Component(component), property, value.isEmpty() ? nullptr : Component(value));
        designer.Modified();
        Settle();
    }
    // "Books" for the node below "Master DataSet" at the dataset's own place; empty for none.
    static QString MasterOf(const QString& name)
    {
        for (auto* node = Tree().Items().GetFirstNode(); node; node = node->GetNext())
            if (node->Text().endsWith(name) && node->Parent()->Text() != QString(sMasterDataSet))
                if (auto* group = Tree().FindChildNodeByName(node, sMasterDataSet))
                    return group->GetFirstChild()->Text().section(u'.', -1);
        return {};
    }
    // The caption of the node that the dataset stands below.
    QString GroupOf(const QString& formDotName)
    {
        return NodesOf(List().GetDataSetAttrByObj(Component(formDotName))).value(0)->Parent()->Text();
    }
};

std::string NameOf(const testing::TestParamInfo<TGroupMode>& info)
{
    static const char* const names[] = { "ByNothing", "ByForm", "ByConnection" };
    return names[info.param];
}

}

INSTANTIATE_TEST_SUITE_P(Grouped, RelationsInTheTree, testing::Values(gmNone, gmForm, gmSession), NameOf);

TEST_P(RelationsInTheTree, AMasterOnAFormThatIsOpenedLaterStandsBelowItsDetail)
{
    Shop.Form(u"Details"_qs, u"object Lines: TZAQuery\nMasterSource = Data.BooksSource\nend"_qs);
    Start();
    EXPECT_EQ(MasterOf(u"Lines"_qs), u"Books"_qs);
    TheHost->CloseModule(FormOf(u"Data"_qs));
    Settle();
    EXPECT_EQ(MasterOf(u"Lines"_qs), QString());
    EXPECT_EQ(Text(), FreshText());
    TheHost->OpenModuleFile(Shop.UnitOf(u"Data"_qs));
    Settle();
    EXPECT_EQ(MasterOf(u"Lines"_qs), u"Books"_qs);
    EXPECT_EQ(Text(), FreshText());
}

TEST_P(RelationsInTheTree, AMasterComesAndGoesWithTheMasterSource)
{
    Start();
    Set(u"Data.Loose"_qs, u"MasterSource"_qs, u"Data.BooksSource"_qs);
    EXPECT_EQ(MasterOf(u"Loose"_qs), u"Books"_qs);
    Set(u"Data.Loose"_qs, u"MasterSource"_qs, {});
    EXPECT_EQ(MasterOf(u"Loose"_qs), QString());
    EXPECT_EQ(Text(), FreshText());
}

TEST_P(RelationsInTheTree, AMasterFollowsTheDatasetOfItsDataSource)
{
    Start();
    Set(u"Data.BooksSource"_qs, u"DataSet"_qs, u"Data.Loose"_qs);
    EXPECT_EQ(MasterOf(u"Authors"_qs), u"Loose"_qs);
    Set(u"Data.BooksSource"_qs, u"DataSet"_qs, {});
    EXPECT_EQ(MasterOf(u"Authors"_qs), QString());
    EXPECT_EQ(Text(), FreshText());
}

TEST_P(RelationsInTheTree, AMasterGoesWithItsDataSourceAndComesBackByAnUndo)
{
    Start();
    Delete({ u"Data.BooksSource"_qs });
    Settle();
    EXPECT_EQ(MasterOf(u"Authors"_qs), QString());
    EXPECT_EQ(Text(), FreshText());
    TheHost->Undo().Undo();
    Settle();
    EXPECT_EQ(MasterOf(u"Authors"_qs), u"Books"_qs);
    EXPECT_EQ(Text(), FreshText());
}

TEST_P(RelationsInTheTree, AMasterGoesWithTheFormOfItsDataSourceAndComesBackWithIt)
{
    Shop.Form(u"Details"_qs, u"object Lines: TZAQuery\nMasterSource = Data.BooksSource\nend"_qs);
    Start();
    Set(u"Data.BooksSource"_qs, u"DataSet"_qs, u"MainForm.Local"_qs);
    ASSERT_EQ(MasterOf(u"Lines"_qs), u"Local"_qs);
    TheHost->SaveAll();
    const auto before = Text();
    const auto unit = Shop.UnitOf(u"Data"_qs);
    TheHost->CloseModule(FormOf(u"Data"_qs));
    Settle();
    EXPECT_EQ(MasterOf(u"Lines"_qs), QString());
    EXPECT_EQ(Text(), FreshText());
    TheHost->OpenModuleFile(unit);
    Settle();
    EXPECT_EQ(Text(), before);
}

TEST_P(RelationsInTheTree, AnExpandedMasterStaysExpandedWhenItIsAnother)
{
    Start();
    auto* authors = NodesOf(List().GetDataSetAttrByObj(Component(u"Data.Authors"_qs))).value(0);
    auto* group = Tree().FindChildNodeByName(authors, sMasterDataSet);
    authors->Expand(false);
    group->Expand(false);
    Set(u"Data.BooksSource"_qs, u"DataSet"_qs, u"Data.Loose"_qs);
    EXPECT_TRUE(Tree().FindChildNodeByName(authors, sMasterDataSet)->Expanded());
}

TEST_P(RelationsInTheTree, OtherFormsLoseAConnectionWhoseFormClosesAndHaveItAgain)
{
    Shop.Form(u"Other"_qs,
        u"object Clean: TZASQL\nConnection = Data.Shop\nend\nobject Fill: TZAScript\nConnection = Data.Shop\nend"_qs);
    Start();
    const auto before = Text();
    TheHost->CloseModule(FormOf(u"Data"_qs));
    Settle();
    EXPECT_EQ(Text(), FreshText());
    if (GetParam() == gmSession) {
        for (const auto* name : { u"MainForm.Local", u"Other.Clean", u"Other.Fill" })
            EXPECT_EQ(GroupOf(QString::fromUtf16(name)), u"{Unassigned}"_qs);
    }
    TheHost->OpenModuleFile(Shop.UnitOf(u"Data"_qs));
    Settle();
    EXPECT_EQ(Text(), before);
}

TEST_P(RelationsInTheTree, AConnectionOfTheSameNameOnAnotherFormIsAnother)
{
    Shop.DataModule(u"Other"_qs, u"object Shop: TZAConnection\nend"_qs);
    Start();
    Set(u"Data.Books"_qs, u"Connection"_qs, u"Other.Shop"_qs);
    EXPECT_EQ(Text(), FreshText());
    if (GetParam() == gmSession) {
        EXPECT_EQ(List().GetDataSetAttrByObj(Component(u"Data.Books"_qs))->FSessionConnection.get(),
            Component(u"Other.Shop"_qs));
    }
}

TEST_P(RelationsInTheTree, ARenamedConnectionIsSortedIn)
{
    Start();
    Rename(u"Data.Shop"_qs, u"AAA"_qs);
    Settle();
    EXPECT_EQ(Text(), FreshText());
    if (GetParam() == gmSession) {
        EXPECT_EQ(Node({})->GetFirstChild()->Text(), u"AAA {Data}"_qs);
    }
}

TEST_P(RelationsInTheTree, ADatasetThatBearsTheNameOfARenamedFormKeepsIt)
{
    Start();
    Rename(u"Data.Loose"_qs, u"MainForm"_qs);
    DesignerOf(u"MainForm"_qs).RenameComponent(*DesignerOf(u"MainForm"_qs).Root(), u"Front"_qs);
    Settle();
    EXPECT_EQ(Text(), FreshText());
    const auto name = GetParam() == gmForm ? u"MainForm"_qs : u"Data.MainForm"_qs;
    EXPECT_EQ(NodesOf(List().GetDataSetAttrByObj(Component(u"Data.MainForm"_qs))).value(0)->Text(), name);
}

TEST_P(RelationsInTheTree, FieldsOfAllInheritingFormsFollowADragOfTheParentsField)
{
    Shop.DataModule(u"Base"_qs,
        u"object Stock: TZAQuery\nobject StockNo: TIntegerField\nFieldName = 'No'\nend\n"
        "object StockName: TStringField\nFieldName = 'Name'\nend\nend"_qs);
    Shop.InheritedForm(u"Heir"_qs, u"Base"_qs);
    Shop.InheritedForm(u"Twin"_qs, u"Base"_qs);
    Start();
    auto* fields = NodesOf(List().GetDataSetAttrByObj(Component(u"Base.Stock"_qs))).value(0)->GetFirstChild();
    auto* no = fields->Item(0);
    auto* name = fields->Item(1);
    Tree().MoveItem(no, name);
    Tree().FOnItemMoved(&Tree(), no, name);
    Settle();
    EXPECT_EQ(Text(), FreshText());
    const auto heir = NodesOf(List().GetDataSetAttrByObj(Component(u"Heir.Stock"_qs))).value(0);
    EXPECT_EQ(heir->GetFirstChild()->GetFirstChild()->Text(), u"0 - Name{StockName}"_qs);
    TheHost->Undo().Undo();
    Settle();
    EXPECT_EQ(Text(), FreshText());
    EXPECT_EQ(heir->GetFirstChild()->GetFirstChild()->Text(), u"0 - No{StockNo}"_qs);
}

TEST_P(RelationsInTheTree, FieldsOfAllInheritingFormsFollowAMoveInTheDesigner)
{
    Shop.DataModule(u"Base"_qs,
        u"object Stock: TZAQuery\nobject StockNo: TIntegerField\nFieldName = 'No'\nend\n"
        "object StockName: TStringField\nFieldName = 'Name'\nend\n"
        "object StockCity: TStringField\nFieldName = 'City'\nend\nend"_qs);
    Shop.InheritedForm(u"Heir"_qs, u"Base"_qs);
    Shop.InheritedForm(u"Twin"_qs, u"Base"_qs);
    Start();
    AddField(u"Twin.Stock"_qs, u"Note"_qs);
    DesignerOf(u"Twin"_qs).RenameComponent(*Component(u"Twin.StockNote"_qs), u"Remark"_qs);
    for (const int index : { 2, 0, 1 }) {
        auto* field = dynamic_cast<TField*>(Component(u"Base.StockNo"_qs));
        DesignerOf(u"Base"_qs).SelectComponent(field);
        field->SetIndex(index);
        DesignerOf(u"Base"_qs).Modified();
        Settle();
        EXPECT_EQ(Text(), FreshText());
    }
}

TEST_P(RelationsInTheTree, AConnectionGivenInTheTreeReachesAllInheritingForms)
{
    Shop.DataModule(u"Base"_qs, u"object Stock: TZAQuery\nend"_qs);
    Shop.InheritedForm(u"Heir"_qs, u"Base"_qs);
    Shop.InheritedForm(u"Twin"_qs, u"Base"_qs);
    Start();
    List().GetDataSetAttrByObj(Component(u"Base.Stock"_qs))->SetConnection(u"Data"_qs, u"Shop"_qs);
    Settle();
    EXPECT_EQ(Text(), FreshText());
    EXPECT_EQ(GetObjectProp(Component(u"Twin.Stock"_qs), u"Connection"_qs), Component(u"Data.Shop"_qs));
}

TEST_P(RelationsInTheTree, ADefinitionComesBackInItsOrderInEveryPlace)
{
    Shop.DataModule(u"Store"_qs,
        u"object Scratch: TZAScratchTable\nFieldDefs = <\nitem\nName = 'City'\nDataType = ftString\nSize = 20\nend\n"
        "item\nName = 'Name'\nDataType = ftString\nSize = 20\nend>\n"
        "object ScratchCity: TStringField\nFieldName = 'City'\nend\nend\n"
        "object Source: TDataSource\nDataSet = Scratch\nend\n"
        "object Detail: TZAQuery\nMasterSource = Source\nend"_qs);
    Start();
    Delete({ u"Store.ScratchCity"_qs });
    Settle();
    EXPECT_EQ(Text(), FreshText());
    const auto nodes = NodesOf(List().GetDataSetAttrByObj(Component(u"Store.Scratch"_qs)));
    ASSERT_EQ(nodes.size(), 2);
    for (const auto* node : nodes)
        EXPECT_EQ(node->GetFirstChild()->GetFirstChild()->Text(), u"City"_qs);
}

TEST_P(RelationsInTheTree, AFieldIsNotDroppedOntoItself)
{
    Start();
    auto* field = NodesOf(List().GetDataSetAttrByObj(Component(u"Data.Books"_qs))).value(0)->GetFirstChild()->Item(0);
    EXPECT_FALSE(Tree().FOnAcceptDragging(&Tree(), field, field));
}

TEST_P(RelationsInTheTree, AnUndoneRenameOnAParentFormLeavesItsHeirsWhereTheyStood)
{
    Shop.DataModule(u"Base"_qs, u"object Store: TZAConnection\nend\nobject Stock: TZAQuery\nConnection = Store\nend"_qs)
        .InheritedForm(u"Heir"_qs, u"Base"_qs);
    Start();
    const auto before = Text();
    for (const auto* name : { u"Base.Store", u"Base.Stock", u"Base" }) {
        SCOPED_TRACE(QString::fromUtf16(name).toStdString());
        const auto whole = QString::fromUtf16(name);
        auto& designer = DesignerOf(u"Base"_qs);
        auto* component = whole.contains(u'.') ? Component(whole) : designer.Root();
        designer.RenameComponent(*component, u"Other"_qs);
        Settle();
        EXPECT_EQ(Text(), FreshText());
        TheHost->Undo().Undo();
        Settle();
        EXPECT_EQ(Text(), FreshText());
        EXPECT_EQ(Text(), before);
    }
}
