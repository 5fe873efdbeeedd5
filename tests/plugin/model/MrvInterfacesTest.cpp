#include "model/MrvInterfaces.h"
#include "rtl/TInterfacedObject.h"
#include "support/PrintQt.h"

#include <QStringList>

#include <gtest/gtest.h>

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
