#include "ModelFixture.h"

#include "data/TDataSetDesigner.h"
#include "data/TField.h"
#include "design/TDefineField.h"
#include "model/MrvDataSetDesigner.h"
#include "rtl/Dialogs.h"

namespace {

class EditingFields : public ModelFixture {
protected:
    // A dataset of each family with two definitions that its form file keeps.
    void OpenDefinitions()
    {
        const auto defs = u"FieldDefs = <\nitem\nName = 'Id'\nDataType = ftInteger\nend\n"
                          "item\nName = 'Title'\nDataType = ftString\nSize = 20\nend>\n"_qs;
        Shop.DataModule(u"Data"_qs,
            u"object Scratch: TZAScratchTable\n"_qs + defs + u"end\nobject Plain: TDataSet\n"_qs + defs + u"end"_qs);
        Shop.Form(u"MainForm"_qs);
        Open(Shop);
        Attach();
    }
    TDataSet* Rows(const QString& name) { return dynamic_cast<TDataSet*>(Component(name)); }
    InterfacePtr<IMrvFieldAttr> Create(const QString& dataSet, const QString& name)
    {
        InterfacePtr<IMrvFieldAttr> field;
        DataSet(dataSet)->IntfCreateFieldComponent(name, field);
        return field;
    }
    static QString NameOf(const InterfacePtr<IMrvFieldAttr>& field)
    {
        QString name;
        if (field)
            InterfaceCast<IMrvCustomComponentAttr>(field)->IntfComponentName(false, name);
        return name;
    }
};

}

TEST_F(EditingFields, CreatesAPersistentFieldOfADefinition)
{
    OpenDefinitions();
    EXPECT_EQ(NameOf(Create(u"Data.Scratch"_qs, u"Title"_qs)), u"ScratchTitle"_qs);
    EXPECT_EQ(Rows(u"Data.Scratch"_qs)->FieldCount(), 1);
    EXPECT_NE(FormText(u"Data"_qs).indexOf("object ScratchTitle: TStringField"), -1);
    EXPECT_EQ(Rows(u"Data.Scratch"_qs)->Designer(), nullptr);
    EXPECT_TRUE(List->FSvcManager->FDesignNotification->FEnableFieldSelections);
    Clock.Advance(200);
    EXPECT_EQ(Text(), FreshText());
}

TEST_F(EditingFields, GivesTheFieldThatIsThereAlready)
{
    OpenDefinitions();
    const auto first = Create(u"Data.Scratch"_qs, u"Title"_qs);
    EXPECT_EQ(Create(u"Data.Scratch"_qs, u"TITLE"_qs), first);
    EXPECT_EQ(Rows(u"Data.Scratch"_qs)->FieldCount(), 1);
}

TEST_F(EditingFields, KeepsTheChoicesOfTheDefinitionsOfAPlainDataset)
{
    OpenDefinitions();
    DataSet(u"Data.Plain"_qs)->FieldDefsByName(u"Title"_qs)->IntfSetCtrlIndex(1);
    EXPECT_TRUE(Create(u"Data.Plain"_qs, u"Id"_qs));
    QString control;
    DataSet(u"Data.Plain"_qs)->FieldDefsByName(u"Title"_qs)->IntfGetCurrentCtrlClassName(control);
    EXPECT_EQ(control, u"TDBMemo"_qs);
}

TEST_F(EditingFields, ShowsOrCollectsWhatGoesWrong)
{
    OpenDefinitions();
    QString error;
    EXPECT_FALSE(DataSet(u"Data.Scratch"_qs)->CreateFieldComponent(u"Nobody"_qs, true, error));
    EXPECT_FALSE(error.isEmpty());
    EXPECT_EQ(Questions, QStringList());
    const auto collected = error;
    EXPECT_FALSE(DataSet(u"Data.Scratch"_qs)->CreateFieldComponent(u"Nobody"_qs, false, error));
    EXPECT_EQ(Questions, QStringList({ collected }));
    EXPECT_EQ(error, QString());
    EXPECT_EQ(Rows(u"Data.Scratch"_qs)->Designer(), nullptr);
    EXPECT_TRUE(List->FSvcManager->FDesignNotification->FEnableFieldSelections);
}

TEST_F(EditingFields, StopsForAComponentThatIsNoDataset)
{
    Shop.DataModule(u"Data"_qs, u"object Update: TZASQL\nend"_qs);
    Open(Shop);
    Attach();
    QString error;
    try {
        DataSet(u"Data.Update"_qs)->CreateFieldComponent(u"Id"_qs, true, error);
        FAIL();
    } catch (const EAssertionFailed& failure) {
        EXPECT_EQ(failure.Message(), u"DataSet component not found"_qs);
    }
}

TEST_F(EditingFields, RefusesToAddToAFrame)
{
    OpenDefinitions();
    auto* root = Component(u"Data"_qs);
    root->SetComponentState(root->ComponentState() | csInline);
    QString error;
    EXPECT_THROW(DataSet(u"Data.Scratch"_qs)->CreateFieldComponent(u"Id"_qs, true, error), Exception);
    EXPECT_EQ(Rows(u"Data.Scratch"_qs)->FieldCount(), 0);
}

TEST_F(EditingFields, CreatesFieldsForAllDefinitionsThatHaveNone)
{
    OpenDefinitions();
    Create(u"Data.Scratch"_qs, u"Title"_qs);
    DataSet(u"Data.Scratch"_qs)->IntfAddAllFields();
    EXPECT_EQ(Rows(u"Data.Scratch"_qs)->FieldCount(), 2);
    DataSet(u"Data.Scratch"_qs)->IntfAddAllFields();
    EXPECT_EQ(Rows(u"Data.Scratch"_qs)->FieldCount(), 2);
    Clock.Advance(200);
    EXPECT_EQ(Text(), FreshText());
}

TEST_F(EditingFields, DeletesAFieldByItsComponentsName)
{
    OpenShop();
    EXPECT_EQ(DataSet(u"Data.Books"_qs)->IntfDeleteFieldComponent(u"bookstitle"_qs), 0);
    EXPECT_EQ(Component(u"Data.BooksTitle"_qs), nullptr);
    Clock.Advance(200);
    EXPECT_EQ(Text(), FreshText());
}

TEST_F(EditingFields, DeletesNothingForAnUnknownName)
{
    OpenShop();
    EXPECT_EQ(DataSet(u"Data.Books"_qs)->IntfDeleteFieldComponent(u"Nobody"_qs), 0);
    EXPECT_EQ(Rows(u"Data.Books"_qs)->FieldCount(), 2);
}

TEST_F(EditingFields, RefusesToDeleteAFieldOfTheParentForm)
{
    Shop.DataModule(
        u"Base"_qs, u"object Books: TZAQuery\nobject BooksTitle: TStringField\nFieldName = 'Title'\nend\nend"_qs);
    Shop.InheritedForm(u"Child"_qs, u"Base"_qs);
    Open(Shop);
    Attach();
    EXPECT_EQ(DataSet(u"Child.Books"_qs)->IntfDeleteFieldComponent(u"BooksTitle"_qs), 1);
    EXPECT_NE(Component(u"Child.BooksTitle"_qs), nullptr);
}

namespace {

class DialogText : public TDefineField {
public:
    DialogText(QStringList& log, int result)
        : FLog(log)
        , FResult(result)
    {
    }
    ~DialogText() override { FLog << u"released with %1 columns"_qs.arg(FColumns); }
    void SetDSDesigner(TDSDesigner* designer) override { FDesigner = designer; }
    void SetDesigner(const InterfacePtr<IDesigner>& designer) override { FLog << designer->GetRoot()->Name(); }
    void SetDataset(TDataSet* dataSet) override { FLog << dataSet->Name(); }
    int Columns() const override { return FColumns; }
    void SetColumns(int columns) override { FColumns = columns; }
    void AddKind(const QString& text) override { FLog << text; }
    int ShowModal() override
    {
        if (FResult == mrOk)
            FField = FDesigner->DoCreateField(u"Title"_qs, QString());
        return FResult;
    }
    TField* Field() const override { return FField; }

private:
    QStringList& FLog;
    int FResult;
    int FColumns = 3;
    TDSDesigner* FDesigner = nullptr;
    TField* FField = nullptr;
};

}

TEST_F(EditingFields, OpensTheDialogThatDefinesAField)
{
    OpenDefinitions();
    QStringList log;
    SetDefineFieldMaker([&log] { return std::make_unique<DialogText>(log, mrOk); });
    DataSet(u"Data.Scratch"_qs)->IntfCreateNewField();
    SetDefineFieldMaker({});
    EXPECT_EQ(log.mid(0, 2), QStringList({ u"Data"_qs, u"Scratch"_qs }));
    EXPECT_EQ(log.last(), u"released with %1 columns"_qs.arg(log.size()));
    EXPECT_EQ(DesignerOf(u"Data"_qs).Selection(), (QList<TPersistent*> { Component(u"Data.ScratchTitle"_qs) }));
    EXPECT_EQ(Rows(u"Data.Scratch"_qs)->Designer(), nullptr);
}

TEST_F(EditingFields, ChangesNothingWhenTheDialogIsCancelledOrThereIsNone)
{
    OpenDefinitions();
    const auto before = FormText(u"Data"_qs);
    QStringList log;
    SetDefineFieldMaker([&log] { return std::make_unique<DialogText>(log, mrCancel); });
    DataSet(u"Data.Scratch"_qs)->IntfCreateNewField();
    SetDefineFieldMaker({});
    DataSet(u"Data.Scratch"_qs)->IntfCreateNewField();
    EXPECT_EQ(FormText(u"Data"_qs), before);
}

TEST_F(EditingFields, UsesTheFieldsEditorThatIsOpen)
{
    OpenDefinitions();
    TMrvDataSetDesigner editor(Rows(u"Data.Scratch"_qs));
    int changes = 0;
    editor.FOnDataEvent = [&changes](TDataEvent event, qintptr) { changes += event == deFieldListChange; };
    Create(u"Data.Scratch"_qs, u"Title"_qs);
    EXPECT_GE(changes, 1);
    EXPECT_EQ(Rows(u"Data.Scratch"_qs)->Designer(), &editor);
}
