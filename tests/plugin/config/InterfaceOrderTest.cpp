// The order of an interface's operations is a contract with packages that were built before.

#include "model/MrvInterfaces.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

namespace {

// Where an operation stands in its class's table: this platform's pointer to a virtual member is 1 + its offset.
template <class Operation>
int Place(Operation operation)
{
    static_assert(sizeof operation == 2 * sizeof(std::uintptr_t));
    std::uintptr_t words[2] = {};
    std::memcpy(words, &operation, sizeof operation);
    return int((words[0] - 1) / sizeof(void*));
}

// Whether the operations follow one another in the table, behind those of IInterface.
template <class... Operations>
testing::AssertionResult InOrder(Operations... operations)
{
    const int first = Place(&IInterface::Release) + 1;
    const std::vector<int> places { Place(operations)... };
    for (int i = 0; i < int(places.size()); ++i)
        if (places[size_t(i)] != first + i)
            return testing::AssertionFailure()
                << "operation " << i + 1 << " stands at " << places[size_t(i)] - first + 1;
    return testing::AssertionSuccess();
}

using Info = IMrvBindableControlInfo;
using List = IMrvBindableControlInfoList;
using Preferences = IMrvPreferences;
using Personality = IMrvPersonalityUISettings;
using Service = IMrvConfigurationService;

}

#if defined(__GXX_ABI_VERSION) && defined(__x86_64__)

TEST(InterfaceOrder, OfAControl)
{
    EXPECT_TRUE(InOrder(&Info::GetClassName, &Info::GetCaption, &Info::SetClassName, &Info::SetCaption, &Info::Assign));
}

TEST(InterfaceOrder, OfAListWithDeleteByIndexBeforeDeleteByClassName)
{
    using Item = InterfacePtr<Info>;
    EXPECT_TRUE(InOrder(&List::GetItem, &List::GetDefaultItem, &List::SetDefaultItem, &List::Assign,
        static_cast<int (List::*)(const Item&)>(&List::IndexOf),
        static_cast<int (List::*)(const QString&)>(&List::IndexOf), &List::GetCount, &List::Add,
        static_cast<void (List::*)(int)>(&List::Delete), static_cast<void (List::*)(const QString&)>(&List::Delete),
        &List::Clear, &List::ItemByClassName));
}

TEST(InterfaceOrder, OfThePreferences)
{
    EXPECT_TRUE(InOrder(&Preferences::GetValueByName, &Preferences::SetValueByName, &Preferences::Modified,
        &Preferences::Load, &Preferences::LoadDefault, &Preferences::InternalSave, &Preferences::Clear));
}

TEST(InterfaceOrder, OfAPersonality)
{
    EXPECT_TRUE(InOrder(&Personality::GetDefaultBindClassName, &Personality::EnumBindClassList,
        &Personality::GetDataSetCtrlCount, &Personality::GetFieldCtrlCount, &Personality::FieldGroupCount,
        &Personality::GetFieldGroup, &Personality::GetDataSetBindCtrlInfoList, &Personality::GetFieldBindCtrlInfoList,
        &Personality::DeleteDataSetInfo, &Personality::DeleteFieldInfo, &Personality::AddDataSetInfo,
        &Personality::AddFieldInfo, &Personality::SetDefaultDataSetInfo, &Personality::SetDefaultFieldInfo,
        &Personality::Modified, &Personality::Load, &Personality::LoadDefault, &Personality::GetFieldGroupIndex,
        &Personality::InternalSave, &Personality::Clear));
}

TEST(InterfaceOrder, OfTheService)
{
    EXPECT_TRUE(
        InOrder(&Service::GetPreferences, &Service::GetCurrentPersonality, &Service::Load, &Service::LoadDefault,
            &Service::Save, &Service::Modified, &Service::SetAcitvePersonality, &Service::GetActivePersonality));
}

#endif
