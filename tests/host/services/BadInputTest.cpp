#include "support/HostFixture.h"

namespace {

class BadInput : public PackagedHostFixture {
protected:
    HostRecorder Recorder { *TheHost };
    ScriptedProject Shop;

    void SetUp() override
    {
        Shop.Form(u"MainForm"_qs, u"object Query: TZAQuery\nend"_qs);
        Shop.DataModule(u"Data"_qs);
        Shop.Form(u"Last"_qs);
    }
    // Everything stands on disk as it was written.
    void ExpectUntouched(const QByteArray& formText)
    {
        EXPECT_EQ(ScriptedProject::Read(Shop.FormOf(u"Data"_qs)), formText);
        EXPECT_FALSE(TheHost->IsModified());
        EXPECT_NE(TheHost->FormModule(u"MainForm"_qs), nullptr);
        EXPECT_NE(TheHost->FormModule(u"Last"_qs), nullptr);
    }
};

}

TEST_F(BadInput, AFormThatIsCutOffLeavesTheOthersOpen)
{
    const QByteArray text("object Data: TData\r\n  Height = 10\r\n  object Query: TZAQuery\r\n");
    Shop.FormFile(u"Data"_qs, text);
    Open(Shop);
    EXPECT_EQ(TheHost->Reported().size(), 1);
    EXPECT_TRUE(QString::fromStdString(Problems()).startsWith(QLatin1String("DataUnit.dfm:4:1:"))) << Problems();
    auto* module = TheHost->FindOpenModule(Shop.UnitOf(u"Data"_qs));
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(module->GetModuleFileCount(), 1);
    EXPECT_EQ(TheHost->FormModule(u"Data"_qs), nullptr);
    ExpectUntouched(text);
}

TEST_F(BadInput, AWrongTokenIsToldWithItsPlace)
{
    const QByteArray text("object Data: TData\r\n  Height == 10\r\nend\r\n");
    Shop.FormFile(u"Data"_qs, text);
    Open(Shop);
    EXPECT_EQ(TheHost->Reported().size(), 1);
    EXPECT_TRUE(QString::fromStdString(Problems()).startsWith(QLatin1String("DataUnit.dfm:2:"))) << Problems();
    ExpectUntouched(text);
}

TEST_F(BadInput, AnEmptyFormFileIsToldOnce)
{
    Shop.FormFile(u"Data"_qs, "");
    Open(Shop);
    EXPECT_EQ(TheHost->Reported().size(), 1) << Problems();
    ExpectUntouched("");
}

TEST_F(BadInput, ANameUsedTwiceIsToldAndBothStayInTheFile)
{
    const QByteArray text("object Data: TData\r\n  Height = 10\r\n  Width = 10\r\n  object Query: TZAQuery\r\n  end\r\n"
                          "  object Query: TZATable\r\n  end\r\nend\r\n");
    Shop.FormFile(u"Data"_qs, text);
    Open(Shop);
    EXPECT_EQ(Problems(), "DataUnit.dfm:6:3: A component named Query already exists\n");
    EXPECT_EQ(Component(u"Data.Query"_qs)->ClassName(), u"TZAQuery"_qs);
    EXPECT_EQ(Component(u"Data"_qs)->ComponentCount(), 2);
    ExpectUntouched(text);
}

TEST_F(BadInput, AClassNobodyKnowsIsToldOnceAndKeepsAllItHad)
{
    const QByteArray text(
        "object Data: TData\r\n  Height = 10\r\n  Width = 10\r\n  object One: TNobodyKnows\r\n"
        "    Depth = 3\r\n    Inner.Text = 'x'\r\n    Items = <\r\n      item\r\n        A = 1\r\n"
        "      end>\r\n    Left = 5\r\n    Top = 6\r\n  end\r\n  object Two: TNobodyKnows\r\n  end\r\n"
        "end\r\n");
    Shop.FormFile(u"Data"_qs, text);
    Open(Shop);
    EXPECT_EQ(
        Problems(), "DataUnit.dfm:4:3: class TNobodyKnows is not installed; its components are kept as they are\n");
    auto* one = Component(u"Data.One"_qs);
    ASSERT_NE(one, nullptr);
    EXPECT_EQ(one->ClassName(), u"TNobodyKnows"_qs);
    EXPECT_EQ(one->DesignLeft(), 5);
    EXPECT_EQ(one->StoredValue(u"Depth"_qs), QVariant(3LL));
    EXPECT_EQ(FormText(u"Data"_qs), text);
    one->SetDesignPosition(9, 6);
    EXPECT_EQ(LineDifference(text, FormText(u"Data"_qs)), "-Left = 5\n+Left = 9\n");
}

TEST_F(BadInput, AUnitWithoutTheClassOfItsFormIsTold)
{
    Shop.UnitFile(u"Data"_qs, "unit DataUnit;\r\n\r\ninterface\r\n\r\nimplementation\r\n\r\nend.\r\n");
    Open(Shop);
    EXPECT_EQ(Problems(), "DataUnit.pas: the unit does not declare TData, the class of its form\n");
    EXPECT_NE(TheHost->FormModule(u"Data"_qs), nullptr);
}

TEST_F(BadInput, AMissingUnitWithAFormIsShownAllTheSame)
{
    const auto file = Shop.Write();
    QFile::remove(Shop.UnitOf(u"Data"_qs));
    ASSERT_TRUE(TheHost->Open(file));
    EXPECT_NE(TheHost->FormModule(u"Data"_qs), nullptr);
    EXPECT_EQ(TheHost->Reported().size(), 1) << Problems();
}

TEST_F(BadInput, AMissingModuleRaisesWhenItIsAskedFor)
{
    const auto file = Shop.Write();
    QFile::remove(Shop.UnitOf(u"Data"_qs));
    QFile::remove(Shop.FormOf(u"Data"_qs));
    ASSERT_TRUE(TheHost->Open(file));
    EXPECT_EQ(TheHost->Modules().size(), 2);
    EXPECT_THROW(GetActiveProject()->GetModule(1)->OpenModule(), EFOpenError);
}

TEST_F(BadInput, AProjectThatIsNoXmlIsToldAndNothingOpens)
{
    Shop.Write();
    ScriptedProject::WriteFile(Shop.ProjectFile(), "this is no project");
    QFile::remove(Shop.Path(u"Shop.dpr"_qs));
    EXPECT_FALSE(TheHost->Open(Shop.ProjectFile()));
    EXPECT_NE(Problems(), "");
    EXPECT_EQ(GetActiveProject(), nullptr);
    EXPECT_EQ(Recorder.Take(), "");
}

TEST_F(BadInput, ASaveThatFailsLeavesTheOldFilesWholeAndSaysSo)
{
    Open(Shop);
    const auto form = ScriptedProject::Read(Shop.FormOf(u"Data"_qs));
    DesignerOf(u"Data"_qs).CreateComponent(GetClass(u"TZAQuery"_qs), nullptr, 1, 1, 0, 0);
    // Somebody put a folder in the place of the unit.
    QFile::remove(Shop.UnitOf(u"Data"_qs));
    QDir().mkpath(Shop.UnitOf(u"Data"_qs));
    const auto failure = TheHost->SaveAll();
    ASSERT_TRUE(failure);
    EXPECT_EQ(ScriptedProject::Read(Shop.FormOf(u"Data"_qs)), form);
    EXPECT_TRUE(TheHost->IsModified());
}

TEST_F(BadInput, AFileThatWasChangedOutsideIsNotOverwritten)
{
    Open(Shop);
    DesignerOf(u"Data"_qs).CreateComponent(GetClass(u"TZAQuery"_qs), nullptr, 1, 1, 0, 0);
    const auto unit = ScriptedProject::Read(Shop.UnitOf(u"Data"_qs)) + "// by hand\r\n";
    ScriptedProject::WriteFile(Shop.UnitOf(u"Data"_qs), unit);
    ASSERT_TRUE(TheHost->SaveAll());
    EXPECT_EQ(ScriptedProject::Read(Shop.UnitOf(u"Data"_qs)), unit);
}

TEST_F(BadInput, SavingWritesFormAndUnitAndNothingElse)
{
    Open(Shop);
    const auto untouched = ScriptedProject::Read(Shop.FormOf(u"MainForm"_qs));
    DesignerOf(u"Data"_qs).CreateComponent(GetClass(u"TZAQuery"_qs), nullptr, 1, 1, 0, 0);
    const auto form = FormText(u"Data"_qs);
    const auto unit = UnitText(u"Data"_qs);
    EXPECT_FALSE(TheHost->SaveAll());
    EXPECT_EQ(ScriptedProject::Read(Shop.FormOf(u"Data"_qs)), form);
    EXPECT_EQ(ScriptedProject::Read(Shop.UnitOf(u"Data"_qs)), unit);
    EXPECT_EQ(ScriptedProject::Read(Shop.FormOf(u"MainForm"_qs)), untouched);
    EXPECT_FALSE(TheHost->IsModified());
}
