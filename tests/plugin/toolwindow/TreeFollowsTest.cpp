#include "data/TCustomZAConnection.h"
#include "data/TField.h"
#include "support/MrvConst.h"
#include "support/PrintQt.h"
#include "support/ToolWindowFixture.h"

namespace {

// The tree follows what happens in the designer; what it then holds is what it would hold if drawn anew.
class TheTreeFollows : public ToolWindowFixture, public testing::WithParamInterface<TGroupMode> {
protected:
    void SetUp() override
    {
        StartShown();
        OpenShop();
        Group(GetParam());
    }
    void Create(const QString& form, const QString& className)
    {
        DesignerOf(form).CreateComponent(GetClass(className), nullptr, 10, 10, 0, 0);
        Settle();
    }
    // As the object inspector does it: what is edited is selected.
    void Connect(const QString& dataSet, const QString& connection)
    {
        DesignerOf(dataSet.section(u'.', 0, 0)).SelectComponent(Component(dataSet));
        SetObjectProp(Component(dataSet), u"Connection"_qs, connection.isEmpty() ? nullptr : Component(connection));
        DesignerOf(dataSet.section(u'.', 0, 0)).Modified();
        Settle();
    }
    // Drops the group nodes that an update leaves on purpose and a fresh drawing has not.
    std::string Drawn() { return FreshText(); }
};

const auto Groupings = testing::Values(gmNone, gmForm, gmSession);
std::string NameOf(const testing::TestParamInfo<TGroupMode>& info)
{
    static const char* const names[] = { "ByNothing", "ByForm", "ByConnection" };
    return names[info.param];
}

}

INSTANTIATE_TEST_SUITE_P(Grouped, TheTreeFollows, Groupings, NameOf);

TEST_P(TheTreeFollows, AnInsertedDataset)
{
    Create(u"Data"_qs, u"TZAQuery"_qs);
    EXPECT_EQ(Text(), Drawn());
    EXPECT_NE(Text().find("ZAQuery1"), std::string::npos);
}

TEST_P(TheTreeFollows, AnInsertedDatasetOnAFormThatHadNone)
{
    DesignerOf(u"MainForm"_qs).DeleteComponents({ Component(u"MainForm.Local"_qs) });
    Settle();
    EXPECT_EQ(Text().find("MainForm"), std::string::npos);
    EXPECT_EQ(Text(), Drawn());
    Create(u"MainForm"_qs, u"TZAQuery"_qs);
    EXPECT_EQ(Text(), Drawn());
    EXPECT_NE(Text().find("ZAQuery1"), std::string::npos);
}

TEST_P(TheTreeFollows, AnInsertedConnection)
{
    Create(u"Data"_qs, u"TZAConnection"_qs);
    EXPECT_EQ(Text(), Drawn());
    EXPECT_EQ(Text().find("ZAConnection1 {Data}") != std::string::npos, GetParam() == gmSession);
}

TEST_P(TheTreeFollows, ADeletedDataset)
{
    Delete({ u"Data.Books"_qs });
    Settle();
    EXPECT_EQ(Text().find("Books"), std::string::npos);
    EXPECT_EQ(Text(), Drawn());
}

TEST_P(TheTreeFollows, TheLastDatasetOfAPlainGroup)
{
    Delete({ u"Data.Loose"_qs });
    Delete({ u"Data.Memory"_qs });
    Settle();
    EXPECT_EQ(Text().find("{Unassigned}"), std::string::npos);
    EXPECT_EQ(Text().find("Others"), std::string::npos);
    EXPECT_EQ(Text(), Drawn());
}

TEST_P(TheTreeFollows, ADeletedConnection)
{
    Delete({ u"Data.Shop"_qs });
    Settle();
    EXPECT_EQ(Text().find("Shop {Data}"), std::string::npos);
    EXPECT_EQ(Text(), Drawn());
}

TEST_P(TheTreeFollows, ARenamedDatasetWhereverItStands)
{
    Rename(u"Data.Books"_qs, u"Titles"_qs);
    Settle();
    EXPECT_EQ(Text().find("Data.Books\n"), std::string::npos);
    EXPECT_EQ(Text(), Drawn());
    EXPECT_EQ(NodesOf(List().GetDataSetAttrByObj(Component(u"Data.Titles"_qs))).size(), 2);
}

TEST_P(TheTreeFollows, ARenamedFormAndConnection)
{
    Rename(u"Data.Shop"_qs, u"Store"_qs);
    Settle();
    EXPECT_EQ(Text(), Drawn());
    DesignerOf(u"Data"_qs).RenameComponent(*DesignerOf(u"Data"_qs).Root(), u"Stock"_qs);
    Settle();
    EXPECT_EQ(Text().find("Data."), std::string::npos);
    EXPECT_EQ(Text(), Drawn());
}

TEST_P(TheTreeFollows, AChangedConnection)
{
    Connect(u"Data.Loose"_qs, u"Data.Archive"_qs);
    EXPECT_EQ(Text(), Drawn());
    Connect(u"MainForm.Local"_qs, {});
    EXPECT_EQ(Text(), Drawn());
    Connect(u"Data.Books"_qs, u"Data.Archive"_qs);
    EXPECT_EQ(Text(), Drawn());
}

TEST_P(TheTreeFollows, AnAddedFieldInEveryPlaceItsDatasetStands)
{
    AddField(u"Data.Books"_qs, u"Isbn"_qs);
    AddField(u"Data.Books"_qs, u"Price"_qs);
    Settle();
    EXPECT_EQ(Text(), Drawn());
    auto* attr = List().GetDataSetAttrByObj(Component(u"Data.Books"_qs));
    EXPECT_EQ(NodesOf(attr->FieldByName(u"BooksPrice"_qs, smName)).size(), 2);
}

TEST_P(TheTreeFollows, TheFirstFieldOfADatasetOpensItsNode)
{
    AddField(u"Data.Loose"_qs, u"Name"_qs);
    Settle();
    EXPECT_EQ(Text(), Drawn());
    auto* node = NodesOf(List().GetDataSetAttrByObj(Component(u"Data.Loose"_qs))).value(0);
    EXPECT_TRUE(node->Expanded());
    EXPECT_TRUE(node->GetFirstChild()->Expanded());
}

TEST_P(TheTreeFollows, DeletedFieldsAndDropsTheEmptyNode)
{
    Delete({ u"Data.BooksTitle"_qs });
    Settle();
    EXPECT_EQ(Text(), Drawn());
    Delete({ u"Data.BooksId"_qs });
    Settle();
    EXPECT_EQ(Text(), Drawn());
    EXPECT_EQ(Text().find("Fields"), std::string::npos);
}

TEST_P(TheTreeFollows, ARenamedField)
{
    Rename(u"Data.BooksTitle"_qs, u"BooksName"_qs);
    Settle();
    EXPECT_NE(Text().find("1 - Title{BooksName}"), std::string::npos);
    EXPECT_EQ(Text(), Drawn());
}

TEST_P(TheTreeFollows, AMovedField)
{
    auto* title = dynamic_cast<TField*>(Component(u"Data.BooksTitle"_qs));
    DesignerOf(u"Data"_qs).SelectComponent(title);
    title->SetIndex(0);
    DesignerOf(u"Data"_qs).Modified();
    Settle();
    EXPECT_EQ(Text(), Drawn());
    EXPECT_NE(Text().find("0 - Title{BooksTitle}"), std::string::npos);
}

TEST_P(TheTreeFollows, AClosedFormAndItsReturn)
{
    const auto before = Text();
    TheHost->CloseModule(FormOf(u"MainForm"_qs));
    Settle();
    EXPECT_EQ(Text().find("Local"), std::string::npos);
    EXPECT_EQ(Text(), Drawn());
    TheHost->OpenModuleFile(Shop.UnitOf(u"MainForm"_qs));
    Settle();
    EXPECT_EQ(Text(), before);
}

TEST_P(TheTreeFollows, AHiddenWindowThatIsShownAgain)
{
    Window().hide();
    Settle();
    EXPECT_TRUE(List().FDormant);
    const auto before = Text();
    Delete({ u"Data.Books"_qs });
    Create(u"MainForm"_qs, u"TZAQuery"_qs);
    EXPECT_EQ(Text(), before);
    Window().show();
    Settle();
    EXPECT_EQ(Text(), Drawn());
    EXPECT_EQ(Text().find("Books"), std::string::npos);
}

TEST_P(TheTreeFollows, ADatasetDeletedTogetherWithButtonsInAnyOrder)
{
    QStringList names { u"Sold"_qs, u"Button1"_qs, u"Button2"_qs };
    std::sort(names.begin(), names.end());
    do {
        SCOPED_TRACE(names.join(u' ').toStdString());
        auto& designer = DesignerOf(u"MainForm"_qs);
        QList<TComponent*> made;
        for (const auto& name : std::as_const(names)) {
            const auto className = name.startsWith(u"Button"_qs) ? u"TButton"_qs : u"TZAQuery"_qs;
            made << designer.CreateComponent(GetClass(className), nullptr, 10, 10, 0, 0);
            designer.RenameComponent(*made.last(), name);
        }
        Settle();
        ASSERT_NE(Text().find("Sold"), std::string::npos);
        designer.DeleteComponents(made);
        Settle();
        EXPECT_EQ(Text().find("Sold"), std::string::npos);
        EXPECT_EQ(Text(), Drawn());
        DesignerOf(u"Data"_qs).SelectComponent(Component(u"Data.Books"_qs));
        Settle();
        ASSERT_NE(Tree().GetSelectedNode(), nullptr);
        EXPECT_TRUE(Tree().GetSelectedNode()->Text().endsWith(u"Books"_qs));
    } while (std::next_permutation(names.begin(), names.end()));
}
