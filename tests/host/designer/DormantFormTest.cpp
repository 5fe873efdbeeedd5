#include "data/TDataSet.h"
#include "support/HostFixture.h"

// A form may lose its components and get them back from its document.

namespace {

class DormantForms : public PackagedHostFixture {
protected:
    void SetUp() override
    {
        Shop.Form(u"MainForm"_qs, u"object Source: TDataSource\nDataSet = Data.Books\nend"_qs)
            .DataModule(u"Data"_qs, u"object Books: TZAQuery\nobject BooksTitle: TStringField\nend\nend"_qs);
        Open(Shop);
        Recorder.Take();
    }

    ScriptedProject Shop;
    HostRecorder Recorder { *TheHost };
};

}

TEST_F(DormantForms, HaveNoComponentsAndChangeNoFile)
{
    auto& data = DesignerOf(u"Data"_qs);
    const auto form = FormText(u"Data"_qs);
    data.GoDormant();
    EXPECT_TRUE(data.IsDormant());
    EXPECT_EQ(data.GetRoot(), nullptr);
    EXPECT_EQ(data.GetComponent(u"Books"_qs), nullptr);
    EXPECT_EQ(data.RootName(), u"Data"_qs);
    EXPECT_EQ(FormOf(u"Data"_qs).FormEditor().FindComponent(u"Books"_qs), nullptr);
    EXPECT_EQ(GetObjectProp(Component(u"MainForm.Source"_qs), u"DataSet"_qs), nullptr);
    EXPECT_EQ(FormText(u"Data"_qs), form);
    EXPECT_FALSE(TheHost->IsModified());
}

TEST_F(DormantForms, ComeBackWithTheirComponentsAndWithWhatRefersToThem)
{
    auto& data = DesignerOf(u"Data"_qs);
    data.GoDormant();
    data.Resurrect();
    EXPECT_EQ(Recorder.Take(), "dormant Data\nresurrected Data\n");
    auto* books = dynamic_cast<TDataSet*>(Component(u"Data.Books"_qs));
    ASSERT_NE(books, nullptr);
    EXPECT_EQ(books->FieldCount(), 1);
    EXPECT_EQ(GetObjectProp(Component(u"MainForm.Source"_qs), u"DataSet"_qs), books);
    EXPECT_FALSE(TheHost->IsModified());
    data.Resurrect();
    EXPECT_EQ(Recorder.Take(), "");
}

TEST_F(DormantForms, ComeBackWhenTheyAreBroughtToTheFront)
{
    DesignerOf(u"Data"_qs).GoDormant();
    TheHost->ShowModule(Shop.UnitOf(u"Data"_qs));
    EXPECT_EQ(Recorder.Take(), "dormant Data\nresurrected Data\nactivated DataUnit.dfm\n");
}

TEST_F(DormantForms, KeepWhatWasNotSavedAndCanStillBeUndone)
{
    auto& data = DesignerOf(u"Data"_qs);
    data.CreateComponent(GetClass(u"TDataSource"_qs), nullptr, 8, 8, 0, 0);
    const auto edited = FormText(u"Data"_qs);
    data.GoDormant();
    EXPECT_EQ(FormText(u"Data"_qs), edited);
    ASSERT_FALSE(TheHost->SaveAll());
    EXPECT_EQ(ScriptedProject::Read(Shop.FormOf(u"Data"_qs)), edited);
    data.Resurrect();
    EXPECT_NE(Component(u"Data.DataSource1"_qs), nullptr);
    ASSERT_TRUE(TheHost->Undo().Undo());
    EXPECT_EQ(Component(u"Data.DataSource1"_qs), nullptr);
}

TEST_F(DormantForms, FollowAnUndoInTheirTextAndComeBackAfterIt)
{
    auto& data = DesignerOf(u"Data"_qs);
    const auto form = FormText(u"Data"_qs);
    data.CreateComponent(GetClass(u"TDataSource"_qs), nullptr, 8, 8, 0, 0);
    data.GoDormant();
    ASSERT_TRUE(TheHost->Undo().Undo());
    EXPECT_EQ(FormText(u"Data"_qs), form);
    data.Resurrect();
    EXPECT_EQ(Component(u"Data.DataSource1"_qs), nullptr);
    EXPECT_NE(Component(u"Data.Books"_qs), nullptr);
}
