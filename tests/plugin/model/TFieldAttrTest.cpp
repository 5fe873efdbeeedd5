#include "ModelFixture.h"

#include "data/TFieldDef.h"
#include "data/TextFields.h"

namespace {

class FieldWrappers : public ModelFixture {
protected:
    TField* TitleField() { return dynamic_cast<TField*>(Component(u"Data.BooksTitle"_qs)); }
    TFieldAttr* Title() { return Field(u"Data.Books"_qs, u"BooksTitle"_qs); }
};

}

TEST_F(FieldWrappers, ShowIndexAndNameAndWhatThePreferencesAskFor)
{
    OpenShop();
    SetPreference(u"ShowFieldType"_qs, QString());
    SetPreference(u"ShowObjectName"_qs, QString());
    EXPECT_EQ(Title()->GetDisplayName(), u"1 - Title{BooksTitle}"_qs);
    SetPreference(u"ShowFieldType"_qs, u"True"_qs);
    EXPECT_EQ(Title()->GetDisplayName(), u"1 - Title[String]{BooksTitle}"_qs);
    SetPreference(u"ShowObjectName"_qs, u"False"_qs);
    EXPECT_EQ(Title()->GetDisplayName(), u"1 - Title[String]"_qs);
    SetPreference(u"ShowFieldType"_qs, u"perhaps"_qs);
    EXPECT_EQ(Title()->GetDisplayName(), u"1 - Title"_qs);
}

TEST_F(FieldWrappers, ShowTheirComponentsNameWithoutAnyPreferences)
{
    OpenShop();
    List->FConfigurationService = nullptr;
    EXPECT_EQ(Title()->GetDisplayName(), u"1 - Title{BooksTitle}"_qs);
}

TEST_F(FieldWrappers, MoveTheirFieldInTheDataset)
{
    OpenShop();
    const auto before = FormText(u"Data"_qs);
    Title()->IntfSetFieldIndex(1);
    EXPECT_EQ(FormText(u"Data"_qs), before);
    Title()->IntfSetFieldIndex(0);
    EXPECT_EQ(TitleField()->Index(), 0);
    EXPECT_EQ(Title()->GetFieldIndex(), 0);
}

TEST_F(FieldWrappers, KeepTheirPlaceAndGiveNoNameOnceTheFieldIsGone)
{
    OpenShop();
    const InterfacePtr<TFieldAttr> title(Title());
    DesignerOf(u"Data"_qs).DeleteComponents({ TitleField() });
    QString name;
    title->IntfGetFieldName(name);
    EXPECT_EQ(name, QString());
    EXPECT_EQ(title->IntfGetFieldIndex(), 1);
    EXPECT_EQ(title->FieldNo(), -1);
}

TEST_F(FieldWrappers, GiveTheTypeTheNumberAndTheDataset)
{
    OpenShop();
    EXPECT_EQ(Title()->GetFieldType(), ftString);
    EXPECT_EQ(DataTypeToStr(ftTimeStampOffset), u"TimeStampOffset"_qs);
    InterfacePtr<IMrvDataSetAttr> dataSet;
    Title()->GetDataSet(dataSet);
    EXPECT_EQ(dataSet, InterfacePtr<IMrvDataSetAttr>(DataSet(u"Data.Books"_qs)));
    InterfacePtr<IMrvCommonFieldAttr> parent;
    EXPECT_FALSE(Title()->HasParent(parent));
    EXPECT_FALSE(Title()->HasChild());
}

TEST_F(FieldWrappers, HoldTheChildrenThatAreAddedToThem)
{
    OpenShop();
    Title()->AddChild(Component(u"Data.BooksId"_qs));
    EXPECT_TRUE(Title()->HasChild());
    InterfacePtr<IMrvCommonFieldAttr> child;
    Title()->GetChild(0, child);
    InterfacePtr<IMrvCommonFieldAttr> parent;
    EXPECT_TRUE(child->HasParent(parent));
    EXPECT_EQ(parent, InterfacePtr<IMrvCommonFieldAttr>(Title()));
    Title()->DeleteChild(0);
    EXPECT_EQ(Title()->GetChildCount(), 0);
}

TEST_F(FieldWrappers, RaiseForAComponentThatIsNoField)
{
    OpenShop();
    const InterfacePtr<TFieldAttr> title(Title());
    title->SetComponent(Component(u"Data.Books"_qs));
    title->SetComponentName(u"Books"_qs);
    EXPECT_THROW(title->GetFieldComponent(), EInvalidCast);
}

TEST_F(FieldWrappers, NeedADataset)
{
    EXPECT_THROW(New<TFieldAttr>(nullptr, nullptr, TStringField::Class(), nullptr, nullptr), EAssertionFailed);
}

namespace {

// A leaf of a kind that forgot to say its type.
class UntypedLeaf : public TCommonFieldAttr {
public:
    explicit UntypedLeaf(TDataSetAttr* dataSet)
        : TCommonFieldAttr(nullptr, dataSet, TClass(), nullptr, nullptr, u"UntypedLeaf")
    {
    }
    void AddChild(TPersistent*) override { }
    bool IsHasChild() override { return false; }
    bool IsHasParent(InterfacePtr<IMrvCommonFieldAttr>&) override { return false; }
    int IsGetFieldNo() override { return 0; }
};

class DefinitionWrappers : public ModelFixture {
protected:
    TFieldDefsAttr* OpenDefinition()
    {
        Shop.DataModule(u"Data"_qs,
            u"object Scratch: TZAScratchTable\nFieldDefs = <\nitem\nName = 'Price'\nDataType = ftBCD\n"
            "Precision = 12\nSize = 2\nend>\nend"_qs);
        Open(Shop);
        Attach();
        return DataSet(u"Data.Scratch"_qs)->GetFieldDefs(0);
    }
};

}

TEST_F(FieldWrappers, StopWhereAKindDoesNotSayItsType)
{
    OpenShop();
    try {
        New<UntypedLeaf>(DataSet(u"Data.Books"_qs))->GetFieldType();
        FAIL();
    } catch (const EAssertionFailed& failure) {
        EXPECT_EQ(failure.Message(), u"Must be overriden"_qs);
    }
}

TEST_F(DefinitionWrappers, ShowTheirTypeWhenThePreferencesAskForIt)
{
    auto* price = OpenDefinition();
    QString name;
    price->GetDisplayName(name, false);
    EXPECT_EQ(name, u"Price"_qs);
    SetPreference(u"ShowDataFieldType"_qs, u"True"_qs);
    price->GetDisplayName(name, false);
    EXPECT_EQ(name, u"Price[BCD]"_qs);
    price->GetDisplayName(name, true);
    EXPECT_EQ(name, u"Price"_qs);
    EXPECT_EQ(DataSet(u"Data.Scratch"_qs)->FieldDefsByName(u"price[bcd]"_qs), price);
}

TEST_F(DefinitionWrappers, GiveTheInspectorACurrentCopyThatItCannotChange)
{
    auto* price = OpenDefinition();
    TPersistent* prototype = nullptr;
    price->IntfGetPersistent(prototype);
    EXPECT_EQ(prototype->ClassName(), u"TFieldPrototype"_qs);
    EXPECT_EQ(GetStrProp(prototype, u"DataType"_qs), u"ftBCD"_qs);
    EXPECT_EQ(GetPropValue(prototype, u"Precision"_qs).toInt(), 12);
    EXPECT_EQ(GetPropValue(prototype, u"Size"_qs).toInt(), 2);
    SetStrProp(prototype, u"Name"_qs, u"Other"_qs);
    SetPropValue(prototype, u"Size"_qs, 9);
    SetPropValue(prototype, u"Tag"_qs, 9);
    SetPropValue(prototype, u"Precision"_qs, 9);
    SetPropValue(prototype, u"DataType"_qs, u"ftString"_qs);
    EXPECT_EQ(GetStrProp(prototype, u"Name"_qs), u"Price"_qs);
    EXPECT_EQ(GetPropValue(prototype, u"Size"_qs).toInt(), 2);
    EXPECT_EQ(GetPropValue(prototype, u"Tag"_qs).toInt(), 0);
    price->GetFieldDefComponent()->SetSize(4);
    price->IntfGetPersistent(prototype);
    EXPECT_EQ(GetPropValue(prototype, u"Size"_qs).toInt(), 4);
}

TEST_F(DefinitionWrappers, AnswerEmptyOnceTheirDefinitionIsGone)
{
    const InterfacePtr<TFieldDefsAttr> price(OpenDefinition());
    dynamic_cast<TDataSet*>(Component(u"Data.Scratch"_qs))->FieldDefs().Clear();
    int size = 7;
    price->GetSize(size);
    EXPECT_EQ(size, 0);
    EXPECT_EQ(price->GetFieldType(), ftUnknown);
    EXPECT_EQ(price->FieldNo(), -1);
    EXPECT_FALSE(price->HasChild());
    InterfacePtr<IDesigner> designer(&DesignerOf(u"Data"_qs));
    price->IntfGetFormDesigner(designer);
    EXPECT_FALSE(designer);
}

TEST_F(DefinitionWrappers, LetAControlBeMadeOnlyWhileTheDatasetHasNoFields)
{
    auto* price = OpenDefinition();
    EXPECT_TRUE(price->EnableCreateControl());
    QString error;
    DataSet(u"Data.Scratch"_qs)->CreateFieldComponent(u"Price"_qs, true, error);
    EXPECT_EQ(error, QString());
    EXPECT_FALSE(price->EnableCreateControl());
}

TEST_F(DefinitionWrappers, SelectTheirPrototypeInTheDesigner)
{
    auto* price = OpenDefinition();
    DesignerOf(u"Data"_qs).Activate();
    List->SelectFieldDefs(InterfacePtr<IMrvFieldDefAttr>(price), false);
    ASSERT_EQ(DesignerOf(u"Data"_qs).Selection().size(), 1);
    EXPECT_EQ(DesignerOf(u"Data"_qs).Selection()[0], price->FFieldDefProxy.get());
}
