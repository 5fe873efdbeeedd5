#include "model/MrvInterfaces.h"
#include "rtl/TInterfacedObject.h"
#include "support/PrintQt.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <cstring>
#include <numeric>

namespace {

QString Id(const TGUID& guid)
{
    return guid.toString().toUpper();
}

// A wrapper of two interfaces, as every wrapper has more than one.
class Form : public Implements<TInterfacedObject, IMrvFormAttr, IMrvMenuItem2> {
public:
    void ClickItem() override { }
};

}

TEST(ModelInterfaces, BearTheirIdentifiers)
{
    const QStringList identifiers { Id(IMrvEvents::IID), Id(IMrvCustomComponentAttr::IID), Id(IMrvDataSetAttr::IID),
        Id(IMrvCommonFieldAttr::IID), Id(IMrvFieldAttr::IID), Id(IMrvFieldDefAttr::IID), Id(IMrvFormAttr::IID),
        Id(IMrvConnectionAttr::IID), Id(IMrvDataSetList::IID), Id(IMrvSelectionList::IID), Id(IMrvMenu::IID),
        Id(IMrvIDEControlItem::IID), Id(IMrvIDEControlList::IID), Id(IMrvInteropServices::IID),
        Id(IMrvBindableControlInfo::IID), Id(IMrvBindableControlInfoList::IID), Id(IMrvPreferences::IID),
        Id(IMrvPersonalityUISettings::IID), Id(IMrvConfigurationService::IID), Id(IMrvMenuItem2::IID) };
    EXPECT_EQ(identifiers.join(u'\n'), uR"({05F552FB-F90A-4CE2-81A4-80A4F3784A5A}
{DBBF71C3-B6EE-44F3-8427-8165F265FF94}
{05372C3E-4623-479C-AC56-55E391A0D6DF}
{9A2839E0-9074-4C83-BC52-AF8F078F4592}
{DDF54C59-DB9E-4E1C-B439-1B574A56D66F}
{46C9D4CC-D800-4D4E-B6CD-989BF20AABDB}
{A3771107-ECB4-448E-853C-85F8026B09EF}
{22F27F55-B982-4C67-AEA4-BCC117264CAF}
{B2619360-C353-4A73-AD30-FC81315C344C}
{53907A1B-85B8-4B12-BA9E-80E135C8B621}
{2010B1C4-4BC0-4995-BA7A-27C000E2CA61}
{E5EFF654-522E-4172-BC97-886F17B28516}
{E7477215-9624-4CDE-BE1F-10B1201C0D40}
{9D29FEB2-BE9D-4112-ABA1-F5F831E6F2C9}
{2D08AF96-C32F-41DB-B942-1DF121E12F69}
{E486592A-4CEC-4DC4-8283-995AEF3B4802}
{25528AAD-BDA0-4478-B4A5-0BCAE6FD31B8}
{2D6613F5-7E43-4CFB-A9DB-CEE280A24460}
{B45E38A3-44FC-4514-80A1-82C912510BD6}
{F158180E-1723-41CB-8DA7-387E481B0679})"_qs);
}

#if defined(__x86_64__) && defined(__GNUC__)

namespace {

// The place of a virtual operation in the table of its interface.
template <class Operation>
int Slot(Operation operation)
{
    std::ptrdiff_t raw[2];
    static_assert(sizeof raw == sizeof operation);
    std::memcpy(raw, &operation, sizeof raw);
    return int((raw[0] - 1) / std::ptrdiff_t(sizeof(void*)));
}

// Whether these are the operations of an interface in their order, right behind those of IInterface.
template <class... Operation>
testing::AssertionResult AreInOrder(Operation... operations)
{
    const QList<int> slots { Slot(operations)... };
    QList<int> expected(slots.size());
    std::iota(expected.begin(), expected.end(), Slot(&IInterface::Release) + 1);
    return slots == expected ? testing::AssertionSuccess()
                             : testing::AssertionFailure() << testing::PrintToString(slots);
}

}

#define OF(OPERATION) &I::OPERATION

TEST(ModelInterfaces, TheSinksOperationsStandInOrder)
{
    using I = IMrvEvents;
    EXPECT_TRUE(AreInOrder(OF(OnProjectOpened), OF(OnProjectClosed), OF(OnComponentDelete), OF(OnComponentInsert),
        OF(OnComponentRename), OF(OnRefreshDatasetList), OF(OnRefershChildObject), OF(OnRefreshFieldDefs),
        OF(OnFieldIndexModified), OF(OnProjectRenamed), OF(RegisterForm), OF(UnRegisterForm), OF(OnSessionChanged),
        OF(OnFormRenamed), OF(OnSessionRenamed), OF(OnSelectionChanged), OF(OnFormSelected), OF(SendRefreshMessage),
        OF(ShowMainForm), OF(DisableEvents), OF(EnableEvents), OF(BeginUpdate), OF(EndUpdate), OF(BeginDelete),
        OF(EndDelete)));
}

TEST(ModelInterfaces, TheWrappersOperationsStandInOrder)
{
    using I = IMrvCustomComponentAttr;
    EXPECT_TRUE(AreInOrder(OF(IntfInheritsFrom), OF(IntfComponentClassName), OF(IntfComponentName), OF(IntfFormName),
        OF(IntfUnitName), OF(IntfGetOwner), OF(IntfSelect), OF(IntfGetCtrlMenu), OF(IntfGetCtrlIndex),
        OF(IntfGetCurrentCtrlClassName), OF(IntfSetCtrlIndex), OF(IntfSetCtrlCreationMode), OF(IntfGetCtrlCreationMode),
        OF(IntfCreateControl), OF(IntfDotNetAcceptedDragAndDrop), OF(IntfDotNetCreateControl), OF(IntfGetControlType),
        OF(IntfGetMenu), OF(IntfExecuteVerb), OF(IntfEdit), OF(IntfGetPersistent), OF(GetGuid), OF(GetSelected),
        OF(IsDeleted), OF(IsInserted), OF(SetIsInserted)));
}

TEST(ModelInterfaces, TheOperationsOfDatasetsStandInOrder)
{
    using I = IMrvDataSetAttr;
    EXPECT_TRUE(AreInOrder(OF(IntfGetSessionName), OF(IntfFieldByName), OF(IntfFieldDefsByName),
        OF(IntfGetFieldByIndex), OF(IntfCreateFieldComponent), OF(AllowCreateField), OF(IntfDeleteFieldComponent),
        OF(IntfUpdateFieldDefs), OF(IntfGetField), OF(IntfGetFieldCount), OF(IntfGetFieldDef), OF(IntfGetFieldDefCount),
        OF(IntfPreviewData), OF(IntfUpdateFields), OF(IntfShowForm), OF(IntfSelectParent), OF(IntfSelectConnection),
        OF(IntfExecuteConnectionVerb), OF(IntfGetConnectionMenu), OF(IntfAddAllFields), OF(IntfCreateNewField),
        OF(IntfGetConnectionAttr), OF(IntfGetFormAttr), OF(GetFieldDefByFieldName), OF(ForceUpdateFieldDefs),
        OF(SetConnection), OF(IsSessionChanged), OF(SetSessionChanged)));
}

TEST(ModelInterfaces, TheOperationsOfFieldsDefinitionsAndConnectionsStandInOrder)
{
    {
        using I = IMrvCommonFieldAttr;
        EXPECT_TRUE(AreInOrder(OF(GetFieldType), OF(HasChild), OF(HasParent), OF(GetChildCount), OF(GetChild),
            OF(GetDataSet), OF(FieldNo)));
    }
    {
        using I = IMrvFieldAttr;
        EXPECT_TRUE(
            AreInOrder(OF(IntfGetDisplayName), OF(IntfGetFieldIndex), OF(IntfGetFieldName), OF(IntfSetFieldIndex)));
    }
    {
        using I = IMrvFieldDefAttr;
        EXPECT_TRUE(AreInOrder(OF(GetDisplayName), OF(SetDisplayName), OF(GetFieldType), OF(GetPrecision), OF(GetSize),
            OF(GetFieldNo), OF(IntfGetFormDesigner), OF(GetFieldDefsProxy), OF(EnableCreateControl)));
    }
    EXPECT_TRUE(AreInOrder(&IMrvConnectionAttr::GetSessionName));
}

TEST(ModelInterfaces, TheListsOperationsStandInOrder)
{
    using I = IMrvDataSetList;
    EXPECT_TRUE(AreInOrder(OF(IntfGetItem), OF(GetCount), OF(RegisterEvents), OF(BuildDataSetList),
        OF(SetActiveDesignerModified), OF(EnableEvents), OF(DisableEvents), OF(IntfRegisterProjectNotifier),
        OF(IntfGetMasterDataSet), OF(SelectFieldDefs), OF(IntfDestroyObject), OF(IntfPreferencesWasChanged),
        OF(IntfGetClassTypeByName), OF(IntfRegisterConfigurationService), OF(IntfCreateSelectionList),
        OF(IntfSetSelections), OF(GetActiveProjectName), OF(IsModuleFromProject), OF(GoDormant), OF(Resurrect),
        OF(CreateDefaultControl), OF(GetConnectionCount), OF(GetConnectionItem)));
}

TEST(ModelInterfaces, TheOperationsOfMenusSelectionsAndControlsStandInOrder)
{
    {
        using I = IMrvSelectionList;
        EXPECT_TRUE(AreInOrder(OF(GetItem), OF(Add), OF(Count), OF(Clear)));
    }
    {
        using I = IMrvMenu;
        EXPECT_TRUE(AreInOrder(OF(Clear), OF(AddItem), OF(AddSubItem), OF(InsertItem), OF(Count), OF(SubItemsCount),
            OF(GetItem), OF(GetSubItem)));
    }
    {
        using I = IMrvIDEControlItem;
        EXPECT_TRUE(AreInOrder(OF(GetImage), OF(GetControlName), OF(GetPackageName)));
    }
    {
        using I = IMrvIDEControlList;
        EXPECT_TRUE(AreInOrder(OF(Load), OF(Clear), OF(GetImageByClassName), OF(GetFieldCtrl), OF(GetFieldCtrlCount),
            OF(GetDataSetCtrl), OF(GetDataSetCtrlCount), OF(IsLoaded), OF(ImageHeight), OF(ImageWidth),
            OF(IsVisualControl)));
    }
    {
        using I = IMrvInteropServices;
        EXPECT_TRUE(AreInOrder(OF(GetDataSetList), OF(GetIDECtrlList), OF(GetConfigurationService),
            OF(RegisterConfigurationService), OF(CreateObjects)));
    }
}

TEST(ModelInterfaces, TheOperationsOfTheConfigurationStandInOrder)
{
    {
        using I = IMrvBindableControlInfo;
        EXPECT_TRUE(AreInOrder(OF(GetClassName), OF(GetCaption), OF(SetClassName), OF(SetCaption), OF(Assign)));
    }
    {
        using I = IMrvBindableControlInfoList;
        EXPECT_TRUE(AreInOrder(OF(GetItem), OF(GetDefaultItem), OF(SetDefaultItem), OF(Assign),
            static_cast<int (I::*)(const InterfacePtr<IMrvBindableControlInfo>&)>(OF(IndexOf)),
            static_cast<int (I::*)(const QString&)>(OF(IndexOf)), OF(GetCount), OF(Add),
            static_cast<void (I::*)(int)>(OF(Delete)), static_cast<void (I::*)(const QString&)>(OF(Delete)), OF(Clear),
            OF(ItemByClassName)));
    }
    {
        using I = IMrvPreferences;
        EXPECT_TRUE(AreInOrder(OF(GetValueByName), OF(SetValueByName), OF(Modified), OF(Load), OF(LoadDefault),
            OF(InternalSave), OF(Clear)));
    }
    {
        using I = IMrvPersonalityUISettings;
        EXPECT_TRUE(AreInOrder(OF(GetDefaultBindClassName), OF(EnumBindClassList), OF(GetDataSetCtrlCount),
            OF(GetFieldCtrlCount), OF(FieldGroupCount), OF(GetFieldGroup), OF(GetDataSetBindCtrlInfoList),
            OF(GetFieldBindCtrlInfoList), OF(DeleteDataSetInfo), OF(DeleteFieldInfo), OF(AddDataSetInfo),
            OF(AddFieldInfo), OF(SetDefaultDataSetInfo), OF(SetDefaultFieldInfo), OF(Modified), OF(Load),
            OF(LoadDefault), OF(GetFieldGroupIndex), OF(InternalSave), OF(Clear)));
    }
    {
        using I = IMrvConfigurationService;
        EXPECT_TRUE(AreInOrder(OF(GetPreferences), OF(GetCurrentPersonality), OF(Load), OF(LoadDefault), OF(Save),
            OF(Modified), OF(SetAcitvePersonality), OF(GetActivePersonality)));
    }
}

#endif

TEST(ModelInterfaces, ACastFromOneToAnotherYieldsTheSameObject)
{
    const InterfacePtr<IMrvFormAttr> form = New<Form>();
    const auto item = InterfaceCast<IMrvMenuItem2>(form);
    ASSERT_TRUE(item);
    EXPECT_EQ(InterfaceCast<IMrvFormAttr>(item), form);
    EXPECT_EQ(InterfaceCast<IInterface>(item), InterfaceCast<IInterface>(form));
    EXPECT_EQ(InterfaceCast<IMrvMenu>(form), nullptr);
}

TEST(ModelEnumerations, AreNumberedFromNull)
{
    EXPECT_EQ((QList<int> { prVCL, prCLR, prCLX }), (QList<int> { 0, 1, 2 }));
    EXPECT_EQ((QList<int> { smName, smDisplayName, smFieldName }), (QList<int> { 0, 1, 2 }));
    EXPECT_EQ((QList<int> { rmAdd, rmRemove, rmFullRefresh }), (QList<int> { 0, 1, 2 }));
    EXPECT_EQ((QList<int> { ccmDataGridView, ccmDetails, ccmNone }), (QList<int> { 0, 1, 2 }));
    EXPECT_EQ(
        (QList<int> { deComponentInserted, deComponentDeleted, deOnRefreshChildObject }), (QList<int> { 0, 1, 2 }));
    EXPECT_EQ((QList<int> { rmInclude, rmNone }), (QList<int> { 0, 1 }));
    EXPECT_EQ((QList<int> { ukFieldDefs, ukComponentName }), (QList<int> { 0, 1 }));
    EXPECT_EQ((QList<int> { ndtDataSet, ndtField, ndtFieldDef, ndtBlank, ndtRoot, ndtForm, ndtConnection }),
        (QList<int> { 0, 1, 2, 3, 4, 5, 6 }));
    EXPECT_EQ((QList<int> { ctDataSet, ctField, ctComponent, ctOther }), (QList<int> { 0, 1, 2, 3 }));
}

TEST(ModelEnumerations, TheHandlersThatCanBeSwitchedOffBearTheirNumbers)
{
    const QList<int> numbers { deDataSetListLoad, deComponentRename, deComponentInsert, deComponentDelete,
        deRefreshDataSetList, deOnItemModified, deOnItemInserted, deOnItemDeleted, deRefreshFieldAttr,
        deRefershChildObject, deRefreshFieldDefs, deNewSessionAdded, deFieldIndexModified, deComponentRenamed,
        dePackageInstalled, deFileNotification, deProjectClose, deSelectionChanged };
    QList<int> expected;
    for (int number = 0; number < 18; ++number)
        expected << number;
    EXPECT_EQ(numbers, expected);
}

TEST(ModelEnumerations, AHandlersNumberAboveThirtyOneChangesNoSet)
{
    TDsListDisabledEvents events { deOnItemModified };
    const auto beyond = TDsListDisabledEvent(32 + deOnItemDeleted);
    events.Include(beyond);
    EXPECT_EQ(events, TDsListDisabledEvents { deOnItemModified });
    EXPECT_FALSE(events.Contains(beyond));
}

TEST(ModelEnumerations, TheIndexesOfThePseudoControlsAreAgreed)
{
    EXPECT_EQ(DetailsCtrlIndex, 2024);
    EXPECT_EQ(NoneCtrlIndex, 2025);
}
