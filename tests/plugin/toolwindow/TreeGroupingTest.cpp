#include "support/MrvConst.h"
#include "support/PrintQt.h"
#include "support/ToolWindowFixture.h"

namespace {

class GroupingTheTree : public ToolWindowFixture {
protected:
    void SetUp() override
    {
        StartShown();
        OpenShop();
    }
    static int Image(const QString& path) { return Node(path)->ImageIndex(); }
};

const std::string BooksFields = "      Fields\n        0 - Id{BooksId}\n        1 - Title{BooksTitle}\n";
const std::string AuthorsMaster = "      Master DataSet\n        Data.Books\n          Fields\n"
                                  "            0 - Id{BooksId}\n            1 - Title{BooksTitle}\n";

}

TEST_F(GroupingTheTree, ByNothingShowsDatasetsWithTheirForms)
{
    EXPECT_EQ(Text(),
        "Shop.dproj\n  Data.Authors\n    Master DataSet\n      Data.Books\n        Fields\n"
        "          0 - Id{BooksId}\n          1 - Title{BooksTitle}\n  Data.Books\n    Fields\n"
        "      0 - Id{BooksId}\n      1 - Title{BooksTitle}\n  Data.Loose\n  Data.Memory\n  MainForm.Local\n");
}

TEST_F(GroupingTheTree, ByFormShowsFormsWithTheirDatasets)
{
    Group(gmForm);
    EXPECT_EQ(Text(),
        "Shop.dproj\n  Data\n    Authors\n      Master DataSet\n        Books\n          Fields\n"
        "            0 - Id{BooksId}\n            1 - Title{BooksTitle}\n    Books\n"
            + BooksFields + "    Loose\n    Memory\n  MainForm\n    Local\n");
    EXPECT_EQ(TMrvTreeView::NodeType(Node(u"Data"_qs)), ndtForm);
}

TEST_F(GroupingTheTree, ByConnectionShowsEachConnectionAndTheRest)
{
    Group(gmSession);
    EXPECT_EQ(Text(),
        "Shop.dproj\n  Archive {Data}\n    MainForm.Local\n  Others\n    Data.Memory\n  Shop {Data}\n"
        "    Data.Authors\n"
            + AuthorsMaster + "    Data.Books\n" + BooksFields + "  {Unassigned}\n    Data.Loose\n");
    EXPECT_EQ(TMrvTreeView::NodeType(Node(u"Shop {Data}"_qs)), ndtConnection);
    EXPECT_EQ(TMrvTreeView::NodeType(Node(u"{Unassigned}"_qs)), ndtBlank);
    EXPECT_EQ(TMrvTreeView::NodeType(Node(u"Others"_qs)), ndtBlank);
}

TEST_F(GroupingTheTree, ShowsAConnectionWithoutDatasetsInItsOwnGroupingAlone)
{
    Delete({ u"Data.Books"_qs, u"Data.Authors"_qs, u"Data.Loose"_qs, u"Data.Memory"_qs });
    DesignerOf(u"MainForm"_qs).DeleteComponents({ Component(u"MainForm.Local"_qs) });
    Settle();
    EXPECT_EQ(Text(), "Shop.dproj\n");
    Group(gmForm);
    EXPECT_EQ(Text(), "Shop.dproj\n");
    Group(gmSession);
    EXPECT_EQ(Text(), "Shop.dproj\n  Archive {Data}\n  Shop {Data}\n");
}

TEST_F(GroupingTheTree, GivesNodesTheirPictures)
{
    EXPECT_EQ(Image({}), 1);
    Group(gmForm);
    EXPECT_EQ(Image(u"Data"_qs), 10);
    EXPECT_EQ(Image(u"Data/Books/Fields"_qs), -1);
    EXPECT_EQ(Image(u"Data/Authors/Master DataSet"_qs), -1);
    Group(gmSession);
    EXPECT_EQ(Image(u"Shop {Data}"_qs), 11);
    EXPECT_EQ(Image(u"{Unassigned}"_qs), 11);
    EXPECT_GE(Image(u"Shop {Data}/Data.Books"_qs), 15);
    EXPECT_EQ(Image(u"Shop {Data}/Data.Books"_qs), Image(u"{Unassigned}/Data.Loose"_qs));
    EXPECT_EQ(Node(u"Shop {Data}/Data.Books"_qs)->SelectedIndex(), Image(u"Shop {Data}/Data.Books"_qs));
}

TEST_F(GroupingTheTree, ThreeClicksOfTheButtonComeBackAndEachIsSaved)
{
    QStringList saved;
    for (int i = 0; i < 3; ++i) {
        Window().tbGroupingClick(nullptr);
        const auto read = New<TMrvConfigurationService>();
        InterfacePtr<IMrvPreferences> preferences;
        read->GetPreferences(preferences);
        QString value;
        preferences->GetValueByName(u"GroupMode"_qs, value);
        saved << value;
        EXPECT_EQ(Window().acGroupByNone->Checked(), Window().FGroupMode == gmNone);
        EXPECT_EQ(Window().acGroupByForm->Checked(), Window().FGroupMode == gmForm);
        EXPECT_EQ(Window().acGroupByConnection->Checked(), Window().FGroupMode == gmSession);
        EXPECT_TRUE(Tree().Items().GetFirstNode()->Expanded());
        EXPECT_EQ(Tree().SelectionCount(), 0);
    }
    EXPECT_EQ(saved, QStringList({ u"1"_qs, u"2"_qs, u"0"_qs }));
}

TEST_F(GroupingTheTree, StartsWithTheGroupingThatWasSaved)
{
    Group(gmSession);
    const auto text = Text();
    StopPlugin();
    StartShown();
    bool cancel = false;
    MrvApiProxy->OnFileNotification(nullptr, ofnActiveProjectChanged, Shop.ProjectFile(), cancel);
    EXPECT_EQ(Text(), text);
    EXPECT_TRUE(Window().acGroupByConnection->Checked());
}

TEST_F(GroupingTheTree, LooksForGroupsAmongTheRootsChildrenOnly)
{
    // A dataset of a form and another form may bear one name.
    Rename(u"Data.Loose"_qs, u"MainForm"_qs);
    Group(gmForm);
    EXPECT_EQ(Text(),
        "Shop.dproj\n  Data\n    Authors\n      Master DataSet\n        Books\n          Fields\n"
        "            0 - Id{BooksId}\n            1 - Title{BooksTitle}\n    Books\n"
            + BooksFields + "    MainForm\n    Memory\n  MainForm\n    Local\n");
}

TEST_F(GroupingTheTree, CaptionsFollowThePreferences)
{
    SetPreference(u"ShowFieldType"_qs, u"True"_qs);
    SetPreference(u"ShowObjectName"_qs, u"False"_qs);
    Window().acRefresh->Execute();
    EXPECT_EQ(Node(u"Data.Books/Fields"_qs)->GetFirstChild()->Text(), u"0 - Id[Integer]"_qs);
    SetPreference(u"ShowObjectName"_qs, u"True"_qs);
    Window().acRefresh->Execute();
    EXPECT_EQ(Node(u"Data.Books/Fields"_qs)->GetFirstChild()->Text(), u"0 - Id[Integer]{BooksId}"_qs);
}

TEST_F(GroupingTheTree, ARefreshKeepsExpansionAndSelectionByWrapper)
{
    Group(gmForm);
    Node(u"Data"_qs)->Expand(false);
    Node(u"Data/Books"_qs)->Expand(false);
    Node(u"Data/Books/Fields"_qs)->Expand(false);
    Select(u"Data/Books"_qs);
    const auto marked = MarkedText();
    Window().acRefresh->Execute();
    // The master of the authors is the same wrapper.
    const std::string master = "        Books";
    auto expected = marked;
    const auto at = expected.find(master + "\n");
    ASSERT_NE(at, std::string::npos);
    expected.insert(at + master.size(), " *");
    EXPECT_EQ(MarkedText(), expected);
}

TEST_F(GroupingTheTree, AProjectFileWithAnotherNameIsTheRootsCaption)
{
    MrvApiProxy->FEvents->OnProjectRenamed(u"/somewhere/Other.dproj"_qs);
    EXPECT_EQ(Node({})->Text(), u"Shop.dproj"_qs);
    Window().CleanDataSetView();
    EXPECT_EQ(Text(), "");
    MrvApiProxy->FEvents->OnProjectRenamed(u"/somewhere/Other.dproj"_qs);
    EXPECT_EQ(Text(), "<No active projects>\n");
    EXPECT_EQ(Image({}), 1);
}
