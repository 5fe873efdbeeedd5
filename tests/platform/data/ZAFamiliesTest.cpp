#include "classes/TypInfo.h"
#include "data/DataClasses.h"
#include "data/TCustomZAConnection.h"
#include "data/TCustomZASQL.h"
#include "data/ZADataSets.h"

#include <gtest/gtest.h>

namespace {

// What the class publishes beside its events, in name order.
std::string Published(TClass aClass)
{
    QStringList names;
    for (const auto* property : GetPropList(aClass))
        if (property->PropType.Kind != tkMethod)
            names << property->Name;
    return names.join(u' ').toStdString();
}

}

TEST(ZAFamilies, PublishWhatSaysWhereTheirRowsComeFrom)
{
    EXPECT_EQ(Published(TZAConnection::Class()),
        "Connected Database LoginPrompt Password Port ProviderName Server Tag Username");
    EXPECT_EQ(Published(TZAQuery::Class()),
        "Active Connection DetailFields FieldDefs MasterFields MasterSource Params SQL Tag");
    EXPECT_EQ(Published(TZATable::Class()),
        "Active Connection DetailFields FieldDefs MasterFields MasterSource TableName Tag");
    EXPECT_EQ(Published(TZAStoredProc::Class()),
        "Active Connection DetailFields FieldDefs MasterFields MasterSource Params StoredProcName Tag");
    EXPECT_EQ(Published(TZAScratchTable::Class()),
        "Active Connection DetailFields FieldDefs MasterFields MasterSource TableName Tag");
    EXPECT_EQ(Published(TZASQL::Class()), "Connection Params SQL Tag");
    EXPECT_EQ(Published(TZAScript::Class()), "Connection Params SQL Tag");
}

TEST(ZAFamilies, StandUnderTheClassesThatPlugInsKnow)
{
    EXPECT_TRUE(TZAConnection::Class().InheritsFrom(TCustomZAConnection::Class()));
    for (const auto aClass : { TZAQuery::Class(), TZATable::Class(), TZAStoredProc::Class(), TZAScratchTable::Class() })
        EXPECT_EQ(aClass.ClassParent(), TCustomZADataSet::Class());
    EXPECT_EQ(TZASQL::Class().ClassParent(), TCustomZASQL::Class());
    EXPECT_EQ(TZAScript::Class().ClassParent(), TComponent::Class());
}
