#include "classes/TClassBuilder.h"
#include "data/DataClasses.h"
#include "data/TCustomZAConnection.h"
#include "data/TCustomZASQL.h"
#include "data/TDataSource.h"
#include "data/ZADataSets.h"
#include "design/DesignIntf.h"
#include "model/MrvCustomComponentAttr.h"
#include "rtl/SysUtils.h"
#include "support/MrvUtils.h"
#include "toolsapi/OTAModules.h"

#include <gtest/gtest.h>

namespace {

class TMrvUtilsComponents : public testing::Test {
protected:
    TMrvUtilsComponents()
    {
        RegisterDataClasses();
        Root.SetName(u"Data"_qs);
        Connection->SetName(u"Shop"_qs);
    }
    TComponent Root;
    TZAConnection* Connection = new TZAConnection(&Root);
};

// Publishes a reference to a class that nobody registered, and one that is no class, beside a data source.
class TwoSources : public TComponent {
    MRV_CLASS
    using TComponent::TComponent;
};

TClass TwoSources::Class()
{
    static TClassInfo info;
    static const TClass made = TClassBuilder<TwoSources>(info, u"TTwoSources"_qs, TComponent::Class())
                                   .Stored(u"ListSource"_qs, { tkClass, u"TDataSource"_qs, {} })
                                   .Stored(u"DataSource"_qs, { tkClass, u"TDataSource"_qs, {} })
                                   .Stored(u"Alien"_qs, { tkClass, u"TUnknownSource"_qs, {} })
                                   .Stored(u"Binding"_qs, { tkString, u"TDataSource"_qs, {} })
                                   .Made();
    return made;
}

}

TEST_F(TMrvUtilsComponents, TakesTheConnectionOfEachFamily)
{
    TZAQuery query;
    TZASQL sql;
    TZAScript script;
    for (auto* component : QList<TComponent*> { &query, &sql, &script }) {
        EXPECT_EQ(TMrvUtils::ExtractConnectionName(component), QString());
        TMrvUtils::AssignConnections(component, Connection);
        EXPECT_EQ(TMrvUtils::ExtractConnection(component), Connection);
        EXPECT_EQ(TMrvUtils::ExtractConnectionName(component), u"Shop"_qs);
        TMrvUtils::AssignConnections(component, nullptr);
        EXPECT_EQ(TMrvUtils::ExtractConnection(component), nullptr);
    }
}

TEST_F(TMrvUtilsComponents, FindsNoConnectionOnAPlainDataset)
{
    TDataSet dataSet;
    EXPECT_EQ(TMrvUtils::ExtractConnectionName(&dataSet), QString());
    EXPECT_EQ(TMrvUtils::ExtractConnection(nullptr), nullptr);
}

TEST_F(TMrvUtilsComponents, RefusesToConnectAnythingElseWithTheAgreedText)
{
    TDataSource source(&Root);
    source.SetName(u"Books"_qs);
    try {
        TMrvUtils::AssignConnections(&source, Connection);
        FAIL();
    } catch (const EAssertionFailed& failure) {
        EXPECT_EQ(
            failure.Message(), u"Component Books is not descendant TCustomZADataSet or TCustomZASQL or TZAScript"_qs);
        EXPECT_EQ(failure.Unit(), u"MrvUtils"_qs);
    }
}

TEST_F(TMrvUtilsComponents, GivesNoOwnersNameWithoutAnOwner)
{
    EXPECT_EQ(TMrvUtils::GetOwnerName(&Root), QString());
    EXPECT_EQ(TMrvUtils::GetOwnerName(nullptr), QString());
    EXPECT_EQ(TMrvUtils::GetOwnerName(Connection), u"Data"_qs);
}

TEST_F(TMrvUtilsComponents, GivesNoUnitWithoutADesigner)
{
    EXPECT_EQ(TMrvUtils::ExtractUnitName(Connection), QString());
    EXPECT_EQ(TMrvUtils::ExtractUnitName(nullptr), QString());
}

TEST_F(TMrvUtilsComponents, FindsNoComponentBehindNothing)
{
    EXPECT_EQ(TMrvUtils::ExtractComponent(nullptr, nullptr), nullptr);
}

TEST_F(TMrvUtilsComponents, FindsTheFirstPropertyOfARegisteredClassInNameOrder)
{
    TwoSources two;
    EXPECT_EQ(TMrvUtils::GetPropNameByClassType(&two, TDataSource::Class()), u"DataSource"_qs);
    EXPECT_EQ(TMrvUtils::GetPropNameByClassType(&two, TComponent::Class()), u"DataSource"_qs);
    EXPECT_EQ(TMrvUtils::GetPropNameByClassType(&two, TDataSet::Class()), QString());
    EXPECT_EQ(TMrvUtils::GetPropNameByClassType(&Root, TDataSource::Class()), QString());
}

TEST_F(TMrvUtilsComponents, MakesRoomForThePublishedProperties)
{
    EXPECT_EQ(TMrvUtils::AllocPropList(TPersistent::Class()), nullptr);
    const auto room = TMrvUtils::AllocPropList(&Root);
    ASSERT_NE(room, nullptr);
    EXPECT_EQ(room[0], nullptr);
}

TEST_F(TMrvUtilsComponents, TellsRealDatasetsFromStatementsAndFromDeletedWrappers)
{
    const auto isDataSet
        = [](const InterfacePtr<IMrvCustomComponentAttr>& attr) { return TMrvUtils::IsDataSetDescendant(attr); };
    const auto wrapperOf = [](TComponent* component) {
        const auto attr = New<TCustomComponentAttr>(nullptr, component->ClassType(), nullptr, nullptr);
        attr->SetComponent(component);
        return attr;
    };
    TZAQuery query;
    TZASQL sql;
    TZAScript script;
    const auto attr = wrapperOf(&query);
    EXPECT_TRUE(isDataSet(attr));
    attr->FDeleted = true;
    EXPECT_FALSE(isDataSet(attr));
    EXPECT_FALSE(isDataSet(wrapperOf(&sql)));
    EXPECT_FALSE(isDataSet(wrapperOf(&script)));
    EXPECT_FALSE(isDataSet(nullptr));
}

TEST_F(TMrvUtilsComponents, KnowsProjectsByTheirExtension)
{
    for (const auto& name : { u"a.dpr"_qs, u"b.bdsproj"_qs, u"c.DPROJ"_qs, u"/x/d.dpk"_qs })
        EXPECT_TRUE(TMrvUtils::IsProject(name)) << name.toStdString();
    for (const auto& name : { u"a.bpl"_qs, u"dproj"_qs, u""_qs, u"a.cbproj"_qs, u"a.lpi"_qs })
        EXPECT_FALSE(TMrvUtils::IsProject(name)) << name.toStdString();
}

TEST_F(TMrvUtilsComponents, ReadsNumbersStrictlyButForTheEmptyText)
{
    EXPECT_EQ(TMrvUtils::StrToInt(QString(), 7), 7);
    EXPECT_EQ(TMrvUtils::StrToInt(u"12"_qs, 7), 12);
    EXPECT_THROW(TMrvUtils::StrToInt(u"twelve"_qs, 7), EConvertError);
}

TEST_F(TMrvUtilsComponents, CountsEveryClassAsPresent)
{
    EXPECT_TRUE(TMrvUtils::ClassIsPresent(QString()));
    EXPECT_TRUE(TMrvUtils::ClassIsPresent(u"TNobodyKnows"_qs));
}
