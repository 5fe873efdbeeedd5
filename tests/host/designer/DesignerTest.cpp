#include "data/TDataSource.h"
#include "data/TField.h"
#include "support/HostFixture.h"

namespace {

class DesignerTest : public PackagedHostFixture {
protected:
    HostRecorder Recorder { *TheHost };

    void OpenShop()
    {
        Shop.Form(u"MainForm"_qs);
        Shop.DataModule(u"Data"_qs,
            u"object Connection: TZAConnection\nLeft = 8\nTop = 8\nend\n"
            "object Books: TZAQuery\nConnection = Connection\nLeft = 8\nTop = 64\n"
            "object BooksId: TIntegerField\nFieldName = 'Id'\nend\n"
            "object BooksTitle: TStringField\nFieldName = 'Title'\nSize = 80\nend\nend"_qs);
        Open(Shop);
        Recorder.Take();
    }
    ScriptedProject Shop;
};

}

TEST_F(DesignerTest, FindsComponentsAndTheRootByName)
{
    OpenShop();
    auto& data = DesignerOf(u"Data"_qs);
    EXPECT_EQ(data.GetComponent(u"books"_qs)->ClassName(), u"TZAQuery"_qs);
    EXPECT_EQ(data.GetComponent(u"DATA"_qs), data.GetRoot());
    EXPECT_EQ(data.GetComponent(QString()), nullptr);
    EXPECT_EQ(data.GetComponent(u"Nobody"_qs), nullptr);
    EXPECT_EQ(FindRootDesigner(Component(u"Data.BooksTitle"_qs)).get(),
        InterfacePtr<IInterface>(static_cast<IDesigner*>(&data)).get());
    EXPECT_EQ(InterfaceCast<IDesigner>(FindRootDesigner(data.GetRoot())).get(), static_cast<IDesigner*>(&data));
}

TEST_F(DesignerTest, ReadsComponentsWithTheirFieldsAndLinks)
{
    OpenShop();
    auto* books = dynamic_cast<TDataSet*>(Component(u"Data.Books"_qs));
    ASSERT_NE(books, nullptr);
    EXPECT_EQ(GetObjectProp(books, u"Connection"_qs), Component(u"Data.Connection"_qs));
    ASSERT_EQ(books->FieldCount(), 2);
    EXPECT_EQ(books->Fields()[1]->FieldName(), u"Title"_qs);
    EXPECT_EQ(books->Fields()[1]->Size(), 80);
    EXPECT_EQ(books->DesignTop(), 64);
    EXPECT_EQ(books->ComponentState(), TComponentState(csDesigning));
    EXPECT_FALSE(FormOf(u"Data"_qs).IsModified());
}

TEST_F(DesignerTest, TellsOfAnInsertionInOrder)
{
    OpenShop();
    auto& data = DesignerOf(u"Data"_qs);
    TComponentState state;
    Recorder.OnLine = [&](const QString& line) {
        if (line.startsWith(QLatin1String("renamed")))
            state = Component(u"Data.ZAQuery1"_qs)->ComponentState();
    };
    data.CreateComponent(GetClass(u"TZAQuery"_qs), nullptr, 40, 50, 0, 0);
    EXPECT_EQ(Recorder.Take(),
        "renamed DataUnit.dfm '' -> ZAQuery1\n"
        "inserted Data.ZAQuery1\n"
        "selection Data: ZAQuery1\n"
        "modified Data\n");
    EXPECT_EQ(state, TComponentState(csDesigning));
}

TEST_F(DesignerTest, WritesANewComponentToFormAndUnit)
{
    OpenShop();
    const auto form = FormText(u"Data"_qs);
    const auto unit = UnitText(u"Data"_qs);
    DesignerOf(u"Data"_qs).CreateComponent(GetClass(u"TDataSource"_qs), nullptr, 40, 50, 0, 0);
    SetObjectProp(Component(u"Data.DataSource1"_qs), u"DataSet"_qs, Component(u"Data.Books"_qs));
    EXPECT_EQ(LineDifference(form, FormText(u"Data"_qs)),
        "+object DataSource1: TDataSource\n+Left = 40\n+Top = 50\n+DataSet = Books\n+end\n");
    EXPECT_EQ(LineDifference(unit, UnitText(u"Data"_qs)),
        "-System.Classes, Vcl.Forms;\n+System.Classes, Vcl.Forms, Data.DB;\n+DataSource1: TDataSource;\n");
}

TEST_F(DesignerTest, GivesUniqueNames)
{
    OpenShop();
    auto& data = DesignerOf(u"Data"_qs);
    const auto query = GetClass(u"TZAQuery"_qs);
    EXPECT_EQ(data.CreateComponent(query, nullptr, 0, 0, 0, 0)->Name(), u"ZAQuery1"_qs);
    EXPECT_EQ(data.CreateComponent(query, nullptr, 0, 0, 0, 0)->Name(), u"ZAQuery2"_qs);
    data.DeleteComponents({ Component(u"Data.ZAQuery1"_qs) });
    EXPECT_EQ(data.CreateComponent(query, nullptr, 0, 0, 0, 0)->Name(), u"ZAQuery1"_qs);
}

TEST_F(DesignerTest, DeletesFieldsBeforeTheirDatasetAndShrinksTheSelectionFirst)
{
    OpenShop();
    auto& data = DesignerOf(u"Data"_qs);
    const auto list = CreateSelectionList();
    for (const auto* name : { "Data.Books", "Data.Connection" })
        list->Add(Component(QString::fromLatin1(name)));
    data.SetSelections(list);
    Recorder.Take();
    QStringList counts;
    Recorder.OnLine = [&](const QString& line) {
        if (line.startsWith(QLatin1String("deleted")))
            counts << QString::number(data.Selection().size());
    };
    data.DeleteSelection();
    EXPECT_EQ(Recorder.Take(),
        "renamed DataUnit.dfm BooksId -> ''\n"
        "deleted Data.BooksId\n"
        "renamed DataUnit.dfm BooksTitle -> ''\n"
        "deleted Data.BooksTitle\n"
        "renamed DataUnit.dfm Books -> ''\n"
        "deleted Data.Books\n"
        "renamed DataUnit.dfm Connection -> ''\n"
        "deleted Data.Connection\n"
        "selection Data:\n"
        "modified Data\n");
    EXPECT_EQ(counts, QStringList({ u"2"_qs, u"2"_qs, u"1"_qs, u"0"_qs }));
    EXPECT_EQ(data.GetRoot()->ComponentCount(), 0);
}

TEST_F(DesignerTest, RenamesInFormUnitAndReferences)
{
    OpenShop();
    const auto form = FormText(u"Data"_qs);
    const auto unit = UnitText(u"Data"_qs);
    DesignerOf(u"Data"_qs).RenameComponent(*Component(u"Data.Connection"_qs), u"Database"_qs);
    EXPECT_EQ(Recorder.Take(),
        "renamed DataUnit.dfm Connection -> Database\n"
        "selection Data: Database\n"
        "modified Data\n");
    EXPECT_EQ(LineDifference(form, FormText(u"Data"_qs)),
        "-object Connection: TZAConnection\n+object Database: TZAConnection\n"
        "-Connection = Connection\n+Connection = Database\n");
    EXPECT_EQ(LineDifference(unit, UnitText(u"Data"_qs)), "-Connection: TZAConnection;\n+Database: TZAConnection;\n");
}

TEST_F(DesignerTest, RefusesANameThatIsTaken)
{
    OpenShop();
    auto& data = DesignerOf(u"Data"_qs);
    EXPECT_THROW(data.RenameComponent(*Component(u"Data.Books"_qs), u"connection"_qs), EComponentError);
    EXPECT_THROW(data.RenameComponent(*Component(u"Data.Books"_qs), u"Data"_qs), EComponentError);
    EXPECT_THROW(data.RenameComponent(*Component(u"Data.Books"_qs), u"1st"_qs), EComponentError);
    EXPECT_EQ(Recorder.Take(), "");
    EXPECT_FALSE(FormOf(u"Data"_qs).IsModified());
}

TEST_F(DesignerTest, UndoRestoresFormAndUnitByteForByteAndTellsOfTheDeletion)
{
    OpenShop();
    const auto form = FormText(u"Data"_qs);
    const auto unit = UnitText(u"Data"_qs);
    DesignerOf(u"Data"_qs).CreateComponent(GetClass(u"TDataSource"_qs), nullptr, 40, 50, 0, 0);
    const auto made = FormText(u"Data"_qs);
    Recorder.Take();
    ASSERT_TRUE(TheHost->Undo().Undo());
    EXPECT_EQ(FormText(u"Data"_qs), form);
    EXPECT_EQ(UnitText(u"Data"_qs), unit);
    EXPECT_EQ(Component(u"Data.DataSource1"_qs), nullptr);
    EXPECT_EQ(Recorder.Take(),
        "renamed DataUnit.dfm DataSource1 -> ''\n"
        "deleted Data.DataSource1\n"
        "selection Data:\n"
        "modified Data\n");
    ASSERT_TRUE(TheHost->Undo().Redo());
    EXPECT_EQ(FormText(u"Data"_qs), made);
    EXPECT_EQ(Recorder.Take(),
        "renamed DataUnit.dfm '' -> DataSource1\n"
        "inserted Data.DataSource1\n"
        "selection Data: DataSource1\n"
        "modified Data\n");
}

TEST_F(DesignerTest, UndoBringsADeletedDatasetBackWithItsFieldsAndReferences)
{
    OpenShop();
    auto& data = DesignerOf(u"Data"_qs);
    data.CreateComponent(GetClass(u"TDataSource"_qs), nullptr, 40, 50, 0, 0);
    SetObjectProp(Component(u"Data.DataSource1"_qs), u"DataSet"_qs, Component(u"Data.Books"_qs));
    const auto form = FormText(u"Data"_qs);
    const auto unit = UnitText(u"Data"_qs);
    data.DeleteComponents({ Component(u"Data.Books"_qs) });
    EXPECT_EQ(GetObjectProp(Component(u"Data.DataSource1"_qs), u"DataSet"_qs), nullptr);
    ASSERT_TRUE(TheHost->Undo().Undo());
    EXPECT_EQ(FormText(u"Data"_qs), form);
    EXPECT_EQ(UnitText(u"Data"_qs), unit);
    auto* books = dynamic_cast<TDataSet*>(Component(u"Data.Books"_qs));
    ASSERT_NE(books, nullptr);
    EXPECT_EQ(books->FieldCount(), 2);
    EXPECT_EQ(GetObjectProp(Component(u"Data.DataSource1"_qs), u"DataSet"_qs), books);
}
