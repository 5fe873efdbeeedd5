#include "plugin/config/ConfigurationFixture.h"
#include "plugin/config/FakeWrappers.h"

#include <QBuffer>

namespace {

constexpr auto Sample = R"(
  <DatasetSection DBGrid="TDBGrid" BKDBGrid="TBKDBGrid" DefaultClass="TDBGrid" />
  <FieldSection>
    <ftXML><CtrlClassNames DBMemo="TDBMemo" DefaultClass="TDBMemo" /></ftXML>
    <ftObject><CtrlClassNames Obj="TObj" DefaultClass="TObj" /></ftObject>
    <ftMSXML><CtrlClassNames Ms="TMs" DefaultClass="TMs" /></ftMSXML>
    <ftString><CtrlClassNames DBEdit="TDBEdit" DBText="TDBText" DefaultClass="TDBText" /></ftString>
  </FieldSection>)";

class PersonalityBindings : public ConfigurationFixture {
protected:
    InterfacePtr<TMrvConfigurationService> Config = ServiceOverVcl(Sample);
    InterfacePtr<IMrvPersonalityUISettings> Vcl = Current(Config);

    QString DefaultOf(const InterfacePtr<IMrvCustomComponentAttr>& attr) const
    {
        InterfacePtr<IMrvBindableControlInfo> item = New<TBindableControlInfo>();
        Vcl->GetDefaultBindClassName(attr, item);
        return item ? CaptionOf(item) + u'=' + ClassNameOf(item) : u"nil"_qs;
    }
    QString ListOf(const InterfacePtr<IMrvCustomComponentAttr>& attr) const
    {
        InterfacePtr<IMrvBindableControlInfoList> list = New<TBindableControlInfoList>();
        Vcl->EnumBindClassList(attr, list);
        return list ? Text(list) : u"nil"_qs;
    }
    int Group(const QString& name) const { return Vcl->GetFieldGroupIndex(name); }
};

const QStringList DataSetClass { u"TZAQuery"_qs, u"TCustomZADataSet"_qs, u"TDataSet"_qs };

}

TEST_F(PersonalityBindings, ADatasetGetsTheDatasetSectionsDefaultAndList)
{
    const auto dataSet = New<FakeDataSet>(DataSetClass);
    EXPECT_EQ(DefaultOf(dataSet), u"DBGrid=TDBGrid"_qs);
    EXPECT_EQ(ListOf(dataSet), u"TDBGrid TBKDBGrid Details None"_qs);
}

TEST_F(PersonalityBindings, AStatementIsServedByItsOwnClassWithAnEmptyCaption)
{
    EXPECT_EQ(DefaultOf(New<FakeDataSet>(QStringList { u"TZASQL"_qs, u"TCustomZASQL"_qs })), u"=TZASQL"_qs);
}

TEST_F(PersonalityBindings, AScriptIsServedByItsOwnClass)
{
    EXPECT_EQ(DefaultOf(New<FakeDataSet>(QStringList { u"TMyScript"_qs, u"TZAScript"_qs })), u"=TMyScript"_qs);
}

TEST_F(PersonalityBindings, AStatementIsOfferedTheDatasetList)
{
    EXPECT_EQ(ListOf(New<FakeDataSet>(QStringList { u"TZASQL"_qs, u"TCustomZASQL"_qs })),
        u"TDBGrid TBKDBGrid Details None"_qs);
}

TEST_F(PersonalityBindings, AFieldGetsTheListOfItsTypesGroup)
{
    const auto field = New<FakeField>(1);
    EXPECT_EQ(DefaultOf(field), u"DBText=TDBText"_qs);
    EXPECT_EQ(ListOf(field), u"TDBText TDBEdit None"_qs);
    EXPECT_EQ(Vcl->GetFieldCtrlCount(field), 3);
}

TEST_F(PersonalityBindings, AFieldTypeBeyondTheEnumerationFindsItsExtraGroup)
{
    EXPECT_EQ(ListOf(New<FakeField>(108)), u"TDBMemo None"_qs);
}

TEST_F(PersonalityBindings, AFieldWhoseGroupHasNoElementHasAnEmptyList)
{
    for (int type = 42; type <= 49; ++type) {
        const auto field = New<FakeField>(type);
        EXPECT_EQ(DefaultOf(field), u"nil"_qs);
        EXPECT_EQ(ListOf(field), QString());
        EXPECT_EQ(Vcl->GetFieldCtrlCount(field), 0);
    }
}

TEST_F(PersonalityBindings, AFieldTypeOutsideTheTableFindsNoGroup)
{
    const auto field = New<FakeField>(102);
    EXPECT_EQ(DefaultOf(field), u"nil"_qs);
    EXPECT_EQ(ListOf(field), u"nil"_qs);
    EXPECT_EQ(Vcl->GetFieldCtrlCount(field), 0);
}

TEST_F(PersonalityBindings, TheSharedValueReachesTheFirstOfTheTwoGroups)
{
    EXPECT_EQ(ListOf(New<FakeField>(50)), u"TObj None"_qs);
    EXPECT_EQ(Text(GroupList(Vcl, u"ftMSXML"_qs)), u"TMs None"_qs);
}

TEST_F(PersonalityBindings, AWrapperThatIsNeitherDatasetNorFieldFindsNothing)
{
    const auto form = New<FakeComponent>(QStringList(u"TForm"_qs));
    EXPECT_EQ(DefaultOf(form), u"nil"_qs);
    EXPECT_EQ(ListOf(form), u"nil"_qs);
    EXPECT_EQ(DefaultOf(nullptr), u"nil"_qs);
    EXPECT_EQ(Vcl->GetFieldCtrlCount(nullptr), 0);
}

TEST_F(PersonalityBindings, ThereAreSixtyGroups)
{
    EXPECT_EQ(Vcl->FieldGroupCount(), 60);
}

TEST_F(PersonalityBindings, TheGroupsStandInDescendingOrderOfTheirValues)
{
    auto& personality = static_cast<TMrvPersonality&>(*Vcl);
    QList<int> values;
    for (int i = 0; i < personality.FieldGroupCount(); ++i)
        values << personality.GroupValue(i);
    QList<int> expected { 108, 107, 106, 105, 104, 103, 100, 51, 50, 50 };
    for (int value = 49; value >= 0; --value)
        expected << value;
    EXPECT_EQ(values, expected);
}

TEST_F(PersonalityBindings, TheGroupsBearTheirNames)
{
    QStringList names;
    for (int i = 0; i < Vcl->FieldGroupCount(); ++i) {
        QString name;
        Vcl->GetFieldGroup(i, name);
        names << name;
    }
    EXPECT_EQ(names.join(u' '),
        u"ftXML ftNumber ftTimeStampLTZ ftTimeStampTZ ftIntervalDS ftIntervalYM ftBFile ftSingle ftObject ftMSXML "
        "ftTimeStampOffset ftStream ftParams ftConnection ftExtended ftByte ftShortint ftLongWord ftOraInterval "
        "ftOraTimeStamp ftWideMemo ftFixedWideChar ftFMTBcd ftTimeStamp ftGuid ftIDispatch ftInterface ftVariant "
        "ftOraClob ftOraBlob ftDataSet ftReference ftArray ftADT ftLargeint ftWideString ftFixedChar ftCursor "
        "ftTypedBinary ftDBaseOle ftParadoxOle ftFmtMemo ftGraphic ftMemo ftBlob ftAutoInc ftVarBytes ftBytes "
        "ftDateTime ftTime ftDate ftBCD ftCurrency ftFloat ftBoolean ftWord ftInteger ftSmallint ftString ftUnknown"_qs);
}

TEST_F(PersonalityBindings, AGroupIsFoundByItsNameInAnyCase)
{
    QString name;
    Vcl->GetFieldGroup(Vcl->GetFieldGroupIndex(u"FTSTRING"_qs), name);
    EXPECT_EQ(name, u"ftString"_qs);
}

TEST_F(PersonalityBindings, AnUnknownGroupNameIsABrokenInvariant)
{
    try {
        Vcl->GetFieldGroupIndex(u"ftNobody"_qs);
        FAIL();
    } catch (const EAssertionFailed& failure) {
        EXPECT_EQ(failure.Message(), u"TMrvPersonality.GetFieldGroupIndex: Unknown field group: ftNobody"_qs);
        EXPECT_EQ(failure.Unit(), u"MrvCfgIntf"_qs);
    }
}

TEST_F(PersonalityBindings, AddGroupTakesNamesAndValuesInTurn)
{
    auto& personality = static_cast<TMrvPersonality&>(*Vcl);
    personality.AddGroup({ u"ftMine"_qs, 200, u"ftYours"_qs, 201 });
    EXPECT_EQ(personality.GroupValue(Group(u"ftYours"_qs)), 201);
    EXPECT_EQ(Text(GroupList(Vcl, u"ftMine"_qs)), QString());
}

TEST_F(PersonalityBindings, AddGroupWithAnOddCountIsABrokenInvariant)
{
    auto& personality = static_cast<TMrvPersonality&>(*Vcl);
    try {
        personality.AddGroup({ u"ftMine"_qs, 200, u"ftYours"_qs });
        FAIL();
    } catch (const EAssertionFailed& failure) {
        EXPECT_EQ(failure.Message(), u"Invalid Args count in AddGroup"_qs);
        EXPECT_EQ(failure.Unit(), u"MrvCfgIntf"_qs);
    }
    EXPECT_EQ(Vcl->FieldGroupCount(), 60);
}

TEST_F(PersonalityBindings, TheListsAreHandedOutAsTheVeryOnesItHolds)
{
    DataSetList(Config)->Add(New<TBindableControlInfo>(u"X"_qs, u"TX"_qs));
    GroupList(Vcl, u"ftString"_qs)->Delete(u"TDBEdit"_qs);
    EXPECT_EQ(ListOf(New<FakeDataSet>(DataSetClass)), u"TDBGrid TBKDBGrid TX Details None"_qs);
    EXPECT_EQ(ListOf(New<FakeField>(1)), u"TDBText None"_qs);
    EXPECT_EQ(DataSetList(Config), DataSetList(Config));
}

TEST_F(PersonalityBindings, AHundredWrappersLeaveTheBindingsAsTheyWere)
{
    const auto before = ListOf(New<FakeField>(1));
    for (int i = 0; i < 100; ++i) {
        const auto field = New<FakeField>(1);
        InterfacePtr<IMrvBindableControlInfoList> items;
        Vcl->EnumBindClassList(field, items);
        items.Clear();
        Vcl->EnumBindClassList(field, items);
    }
    EXPECT_EQ(ListOf(New<FakeField>(1)), before);
    EXPECT_FALSE(Vcl->Modified());
}

TEST_F(PersonalityBindings, TheDatasetListKeepsItsIdentityOverALoad)
{
    const auto before = DataSetList(Config);
    Vcl->Load();
    EXPECT_EQ(DataSetList(Config), before);
    EXPECT_EQ(Text(before), u"TDBGrid TBKDBGrid Details None"_qs);
}

TEST_F(PersonalityBindings, GetDataSetCtrlCountCountsThePseudoControlsToo)
{
    EXPECT_EQ(Vcl->GetDataSetCtrlCount(), 4);
}

TEST_F(PersonalityBindings, AddDataSetInfoAddsBeforeThePseudoControls)
{
    Vcl->AddDataSetInfo(u"Mine"_qs, u"TMyGrid"_qs);
    EXPECT_EQ(Text(DataSetList(Config)), u"TDBGrid TBKDBGrid Mine=TMyGrid Details None"_qs);
    EXPECT_TRUE(Vcl->Modified());
}

TEST_F(PersonalityBindings, AddFieldInfoAddsToItsGroup)
{
    Vcl->AddFieldInfo(Group(u"ftXML"_qs), u"Mine"_qs, u"TMyMemo"_qs);
    EXPECT_EQ(Text(GroupList(Vcl, u"ftXML"_qs)), u"TDBMemo Mine=TMyMemo None"_qs);
    EXPECT_TRUE(Vcl->Modified());
}

TEST_F(PersonalityBindings, DeleteDataSetInfoDeletesByClassName)
{
    Vcl->DeleteDataSetInfo(u"tbkdbgrid"_qs);
    EXPECT_EQ(Text(DataSetList(Config)), u"TDBGrid Details None"_qs);
    EXPECT_TRUE(Vcl->Modified());
}

TEST_F(PersonalityBindings, DeletingWhatIsNotThereMarksItAllTheSame)
{
    Vcl->DeleteDataSetInfo(u"TNobody"_qs);
    EXPECT_TRUE(Vcl->Modified());
}

TEST_F(PersonalityBindings, DeleteFieldInfoDeletesFromItsGroup)
{
    Vcl->DeleteFieldInfo(Group(u"ftString"_qs), u"TDBText"_qs);
    EXPECT_EQ(Text(GroupList(Vcl, u"ftString"_qs)), u"TDBEdit None"_qs);
    EXPECT_EQ(DefaultText(GroupList(Vcl, u"ftString"_qs)), u"TDBEdit member"_qs);
    EXPECT_TRUE(Vcl->Modified());
}

TEST_F(PersonalityBindings, SetDefaultDataSetInfoMovesTheClassToTheFront)
{
    Vcl->SetDefaultDataSetInfo(u"TBKDBGrid"_qs);
    EXPECT_EQ(Text(DataSetList(Config)), u"TBKDBGrid TDBGrid Details None"_qs);
    EXPECT_TRUE(Vcl->Modified());
}

TEST_F(PersonalityBindings, SetDefaultFieldInfoMovesTheClassToTheFrontOfItsGroup)
{
    Vcl->SetDefaultFieldInfo(Group(u"ftString"_qs), u"TDBEdit"_qs);
    EXPECT_EQ(Text(GroupList(Vcl, u"ftString"_qs)), u"TDBEdit TDBText None"_qs);
    EXPECT_TRUE(Vcl->Modified());
}

TEST_F(PersonalityBindings, ADefaultThatIsNotListedIsABrokenInvariantAndChangesNothing)
{
    EXPECT_THROW(Vcl->SetDefaultDataSetInfo(u"TNobody"_qs), EAssertionFailed);
    EXPECT_FALSE(Vcl->Modified());
    EXPECT_EQ(DefaultText(DataSetList(Config)), u"TDBGrid member"_qs);
}

TEST_F(PersonalityBindings, AGroupIndexOutOfRangeIsARangeError)
{
    QString name;
    InterfacePtr<IMrvBindableControlInfoList> list;
    EXPECT_THROW(Vcl->GetFieldGroup(60, name), EListError);
    EXPECT_THROW(Vcl->GetFieldBindCtrlInfoList(list, -1), EListError);
    EXPECT_THROW(Vcl->DeleteFieldInfo(60, u"TDBEdit"_qs), EListError);
    EXPECT_THROW(Vcl->AddFieldInfo(60, u"a"_qs, u"TA"_qs), EListError);
    EXPECT_THROW(Vcl->SetDefaultFieldInfo(60, u"TA"_qs), EListError);
    EXPECT_FALSE(Vcl->Modified());
}

TEST_F(PersonalityBindings, ClearEmptiesTheGroupsAndNotTheDatasetList)
{
    Vcl->Clear();
    EXPECT_EQ(Vcl->FieldGroupCount(), 0);
    EXPECT_EQ(Text(DataSetList(Config)), u"TDBGrid TBKDBGrid Details None"_qs);
}

TEST_F(PersonalityBindings, AfterLoadDefaultItIsModifiedAlthoughItsListsAreEmpty)
{
    Vcl->LoadDefault();
    EXPECT_TRUE(Vcl->Modified());
    EXPECT_EQ(Vcl->GetDataSetCtrlCount(), 0);
    EXPECT_EQ(Vcl->FieldGroupCount(), 60);
    for (int i = 0; i < Vcl->FieldGroupCount(); ++i) {
        InterfacePtr<IMrvBindableControlInfoList> list;
        Vcl->GetFieldBindCtrlInfoList(list, i);
        EXPECT_EQ(list->GetCount(), 0);
    }
}

TEST_F(PersonalityBindings, LoadClearsTheMark)
{
    Vcl->AddDataSetInfo(u"Mine"_qs, u"TMyGrid"_qs);
    Vcl->Load();
    EXPECT_FALSE(Vcl->Modified());
}

TEST_F(PersonalityBindings, InternalSaveTakesNothingButTheXmlWriter)
{
    QBuffer other;
    EXPECT_THROW(Vcl->InternalSave(&other), EInvalidCast);
}

TEST_F(PersonalityBindings, AListKeepsSayingItsGroupInMessages)
{
    InterfacePtr<IMrvBindableControlInfo> item;
    const auto list = GroupList(Vcl, u"ftObject"_qs);
    EXPECT_EQ(MessageOf<EListError>([&] { list->GetItem(9, item); }), u"List index out of bounds (9) in ftObject"_qs);
}
