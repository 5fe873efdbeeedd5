#include "plugin/config/ConfigurationFixture.h"

namespace {

using TItem = InterfacePtr<IMrvBindableControlInfo>;
using TList = InterfacePtr<IMrvBindableControlInfoList>;

TItem Item(const QString& className)
{
    return New<TBindableControlInfo>(IsPseudoControl(className) ? className : className.mid(1), className);
}

TList List(const QString& classNames)
{
    TList list = New<TBindableControlInfoList>();
    for (const auto& name : classNames.split(u' ', Qt::SkipEmptyParts))
        list->Add(Item(name));
    return list;
}

TItem At(const TList& list, int index)
{
    TItem item;
    list->GetItem(index, item);
    return item;
}

}

TEST(BindableControlInfo, AssignCopiesCaptionAndClassName)
{
    const TItem from = New<TBindableControlInfo>(u"Grid"_qs, u"TDBGrid"_qs);
    const TItem to = Item(u"TOther"_qs);
    to->Assign(from);
    EXPECT_EQ(CaptionOf(to), u"Grid"_qs);
    EXPECT_EQ(ClassNameOf(to), u"TDBGrid"_qs);
}

TEST(BindableControlInfo, CaptionAndClassNameAreSetApart)
{
    const TItem item = New<TBindableControlInfo>();
    EXPECT_EQ(CaptionOf(item) + ClassNameOf(item), QString());
    item->SetClassName(u"TDBGrid"_qs);
    item->SetCaption(u"Table"_qs);
    EXPECT_EQ(CaptionOf(item), u"Table"_qs);
    EXPECT_EQ(ClassNameOf(item), u"TDBGrid"_qs);
}

TEST(BindableControlInfoList, AddAppendsAndGivesTheIndex)
{
    const auto list = List({});
    EXPECT_EQ(list->Add(Item(u"TA"_qs)), 0);
    EXPECT_EQ(list->Add(Item(u"TB"_qs)), 1);
    EXPECT_EQ(Text(list), u"TA TB"_qs);
}

TEST(BindableControlInfoList, NoneThenDetailsStandAsDetailsNone)
{
    EXPECT_EQ(Text(List(u"None Details"_qs)), u"Details None"_qs);
}

TEST(BindableControlInfoList, ARealControlAddedLaterLandsBeforeDetails)
{
    const auto list = List(u"TA None Details"_qs);
    EXPECT_EQ(list->Add(Item(u"TB"_qs)), 1);
    EXPECT_EQ(Text(list), u"TA TB Details None"_qs);
}

TEST(BindableControlInfoList, AddToAListThatHoldsOnlyNoneLandsBeforeNone)
{
    const auto list = List(u"None"_qs);
    EXPECT_EQ(list->Add(Item(u"TA"_qs)), 0);
    EXPECT_EQ(Text(list), u"TA None"_qs);
}

TEST(BindableControlInfoList, AddFindsThePseudoControlsInAnyCase)
{
    const auto list = List({});
    list->Add(New<TBindableControlInfo>(u"none"_qs, u"NONE"_qs));
    list->Add(Item(u"TA"_qs));
    EXPECT_EQ(ClassNameOf(At(list, 0)), u"TA"_qs);
}

TEST(BindableControlInfoList, AddTakesAClassASecondTime)
{
    EXPECT_EQ(Text(List(u"TA TB TA"_qs)), u"TA TB TA"_qs);
}

TEST(BindableControlInfoList, AddOfNilIsABrokenInvariant)
{
    const auto list = List(u"TA"_qs);
    EXPECT_THROW(list->Add(nullptr), EAssertionFailed);
    EXPECT_EQ(Text(list), u"TA"_qs);
}

TEST(BindableControlInfoList, IndexOfAClassNameIgnoresCaseAndGivesTheFirst)
{
    const auto list = List(u"TA tb TB"_qs);
    EXPECT_EQ(list->IndexOf(u"TB"_qs), 1);
    EXPECT_EQ(list->IndexOf(u"TC"_qs), -1);
}

TEST(BindableControlInfoList, IndexOfAnItemComparesTheClassNameWithCaseAndNotTheIdentity)
{
    const auto list = List(u"TA tb TB"_qs);
    EXPECT_EQ(list->IndexOf(Item(u"TB"_qs)), 2);
    EXPECT_EQ(list->IndexOf(Item(u"Tb"_qs)), -1);
    EXPECT_EQ(list->IndexOf(New<TBindableControlInfo>(u"other caption"_qs, u"TA"_qs)), 0);
}

TEST(BindableControlInfoList, ItemByClassNameIgnoresCaseAndGivesNilForNone)
{
    const auto list = List(u"TA TB"_qs);
    TItem item;
    list->ItemByClassName(u"tb"_qs, item);
    EXPECT_EQ(item, At(list, 1));
    list->ItemByClassName(u"TC"_qs, item);
    EXPECT_EQ(item, nullptr);
}

TEST(BindableControlInfoList, AnEmptyListHasNoDefault)
{
    EXPECT_EQ(DefaultText(List({})), u"nil"_qs);
}

TEST(BindableControlInfoList, TheFirstLookFixesTheFirstItemAsDefault)
{
    const auto list = List(u"TA TB"_qs);
    EXPECT_EQ(DefaultText(list), u"TA member"_qs);
    // In front of it by hand: Add puts nothing there.
    static_cast<TBindableControlInfoList*>(list.get())->Insert(0, Item(u"TC"_qs));
    EXPECT_EQ(DefaultText(list), u"TA member"_qs);
    EXPECT_EQ(Text(list), u"TC TA TB"_qs);
}

TEST(BindableControlInfoList, ADefaultThatWasNotLookedAtIsNotFixed)
{
    const auto list = List(u"TA TB"_qs);
    static_cast<TBindableControlInfoList*>(list.get())->Insert(0, Item(u"TC"_qs));
    EXPECT_EQ(DefaultText(list), u"TC member"_qs);
}

TEST(BindableControlInfoList, SetDefaultItemMovesTheMemberOfThatClassToTheFront)
{
    const auto list = List(u"A B Details None"_qs);
    const auto member = At(list, 1);
    const auto given = Item(u"b"_qs);
    list->SetDefaultItem(given);
    EXPECT_EQ(Text(list), Text(List(u"B A Details None"_qs)));
    TItem standard;
    list->GetDefaultItem(standard);
    EXPECT_EQ(standard, member);
    EXPECT_NE(standard, given);
}

TEST(BindableControlInfoList, SetDefaultItemMovesOnlyTheFirstMatch)
{
    const auto list = List(u"TA TB TC TB"_qs);
    list->SetDefaultItem(Item(u"TB"_qs));
    EXPECT_EQ(Text(list), u"TB TA TC TB"_qs);
}

TEST(BindableControlInfoList, SetDefaultItemTakesTheMemberItself)
{
    const auto list = List(u"TA TB"_qs);
    list->SetDefaultItem(At(list, 1));
    EXPECT_EQ(Text(list), u"TB TA"_qs);
    EXPECT_EQ(DefaultText(list), u"TB member"_qs);
}

TEST(BindableControlInfoList, SetDefaultItemWithAClassThatIsNotListedLeavesTheOrder)
{
    const auto list = List(u"TA TB None"_qs);
    list->SetDefaultItem(Item(u"TC"_qs));
    EXPECT_EQ(Text(list), u"TA TB None"_qs);
    EXPECT_EQ(DefaultText(list), u"TC detached"_qs);
}

TEST(BindableControlInfoList, SetDefaultItemWithNoneDoesNotReorder)
{
    const auto list = List(u"TA TB None"_qs);
    list->SetDefaultItem(Item(u"None"_qs));
    EXPECT_EQ(Text(list), u"TA TB None"_qs);
    EXPECT_EQ(DefaultText(list), u"None detached"_qs);
}

TEST(BindableControlInfoList, SetDefaultItemWithDetailsInAnyCaseDoesNotReorder)
{
    const auto list = List(u"TA None Details"_qs);
    list->SetDefaultItem(New<TBindableControlInfo>(u"etails"_qs, u"details"_qs));
    EXPECT_EQ(Text(list), u"TA Details None"_qs);
    EXPECT_EQ(DefaultText(list), u"details detached"_qs);
}

TEST(BindableControlInfoList, SetDefaultItemWithAnEmptyClassNameDoesNotReorder)
{
    const auto list = List(u"TA TB"_qs);
    list->SetDefaultItem(New<TBindableControlInfo>());
    EXPECT_EQ(Text(list), u"TA TB"_qs);
    EXPECT_EQ(DefaultText(list), u" detached"_qs);
}

TEST(BindableControlInfoList, SetDefaultItemOfNilIsABrokenInvariant)
{
    const auto list = List(u"TA TB"_qs);
    list->SetDefaultItem(At(list, 0));
    EXPECT_THROW(list->SetDefaultItem(nullptr), EAssertionFailed);
    EXPECT_EQ(DefaultText(list), u"TA member"_qs);
}

TEST(BindableControlInfoList, AfterDeletingTheDefaultTheNextReadTakesTheNewFirst)
{
    const auto list = List(u"TB TA None"_qs);
    EXPECT_EQ(DefaultText(list), u"TB member"_qs);
    list->Delete(u"tb"_qs);
    EXPECT_EQ(Text(list), u"TA None"_qs);
    EXPECT_EQ(DefaultText(list), u"TA member"_qs);
}

TEST(BindableControlInfoList, DeletingAClassThatIsNotListedFixesAnUnsetDefault)
{
    const auto list = List(u"TA TB"_qs);
    list->Delete(u"TC"_qs);
    static_cast<TBindableControlInfoList*>(list.get())->Insert(0, Item(u"TC"_qs));
    EXPECT_EQ(Text(list), u"TC TA TB"_qs);
    EXPECT_EQ(DefaultText(list), u"TA member"_qs);
}

TEST(BindableControlInfoList, DeletingTheClassOfADetachedDefaultClearsIt)
{
    const auto list = List(u"TA"_qs);
    list->SetDefaultItem(Item(u"TC"_qs));
    list->Delete(u"tc"_qs);
    EXPECT_EQ(Text(list), u"TA"_qs);
    EXPECT_EQ(DefaultText(list), u"TA member"_qs);
}

TEST(BindableControlInfoList, DeletingANonDefaultKeepsTheDefault)
{
    const auto list = List(u"TA TB TC"_qs);
    EXPECT_EQ(DefaultText(list), u"TA member"_qs);
    list->Delete(u"TB"_qs);
    EXPECT_EQ(Text(list), u"TA TC"_qs);
    EXPECT_EQ(DefaultText(list), u"TA member"_qs);
}

TEST(BindableControlInfoList, DeleteByIndexClearsADefaultThatIsThatItem)
{
    const auto list = List(u"TA TB"_qs);
    EXPECT_EQ(DefaultText(list), u"TA member"_qs);
    list->Delete(0);
    EXPECT_EQ(DefaultText(list), u"TB member"_qs);
}

TEST(BindableControlInfoList, DeleteByIndexKeepsADetachedDefaultOfTheSameClass)
{
    const auto list = List(u"TA"_qs);
    list->SetDefaultItem(Item(u"TB"_qs));
    list->Add(Item(u"TB"_qs));
    list->Delete(1);
    EXPECT_EQ(DefaultText(list), u"TB detached"_qs);
}

TEST(BindableControlInfoList, ANumberDeletesByIndexAndATextByClassName)
{
    const auto list = List(u"TA TB TC"_qs);
    list->Delete(1);
    list->Delete(u"TA"_qs);
    EXPECT_EQ(Text(list), u"TC"_qs);
}

TEST(BindableControlInfoList, AnIndexOutOfRangeIsToldWithTheGroup)
{
    const auto list = New<TBindableControlInfoList>();
    list->SetGroupName(u"ftString"_qs);
    TItem item = Item(u"TA"_qs);
    EXPECT_EQ(MessageOf<EListError>([&] { list->GetItem(0, item); }), u"List index out of bounds (0) in ftString"_qs);
    EXPECT_EQ(item, nullptr);
    EXPECT_THROW(list->Delete(-1), EListError);
}

TEST(BindableControlInfoList, ClearTakesItemsAndDefault)
{
    const auto list = List(u"TA TB"_qs);
    list->SetDefaultItem(Item(u"None"_qs));
    list->Clear();
    EXPECT_EQ(list->GetCount(), 0);
    EXPECT_EQ(DefaultText(list), u"nil"_qs);
}

TEST(BindableControlInfoList, AssignSharesTheItemsOfTheSource)
{
    const auto source = List(u"TA TB"_qs);
    const auto list = List(u"TX"_qs);
    list->Assign(source);
    EXPECT_EQ(Text(list), u"TA TB"_qs);
    EXPECT_EQ(At(list, 0), At(source, 0));
    EXPECT_EQ(At(list, 1), At(source, 1));
}

TEST(BindableControlInfoList, AssignTakesTheSourcesDefaultWithoutSorting)
{
    const auto source = List(u"TA TB None"_qs);
    source->SetDefaultItem(Item(u"None"_qs));
    const auto list = List({});
    list->Assign(source);
    EXPECT_EQ(Text(list), u"TA TB None"_qs);
    EXPECT_EQ(DefaultText(list), u"None detached"_qs);
}

TEST(BindableControlInfoList, AssignFixesTheSourcesUnsetDefault)
{
    const auto source = List(u"TA TB"_qs);
    const auto list = List({});
    list->Assign(source);
    static_cast<TBindableControlInfoList*>(source.get())->Insert(0, Item(u"TC"_qs));
    EXPECT_EQ(DefaultText(source), u"TA member"_qs);
    EXPECT_EQ(DefaultText(list), u"TA member"_qs);
}

TEST(BindableControlInfoList, AssignAddsOneByOneSoThatThePseudoControlsChangePlaces)
{
    const auto list = List({});
    list->Assign(List(u"TA None Details"_qs));
    EXPECT_EQ(Text(list), u"TA None Details"_qs);
}

TEST(BindableControlInfoList, AssignOfAListToItselfKeepsIt)
{
    const auto list = List(u"TA TB"_qs);
    list->Assign(list);
    EXPECT_EQ(Text(list), u"TA TB"_qs);
}

TEST(BindableControlInfoList, AssignOfNilIsABrokenInvariant)
{
    EXPECT_THROW(List(u"TA"_qs)->Assign(nullptr), EAssertionFailed);
}

TEST(BindableControlInfoList, PutItemsCopiesIntoTheItemThatStandsThere)
{
    const auto list = New<TBindableControlInfoList>();
    list->Add(Item(u"TA"_qs));
    const auto member = list->GetItems(0);
    list->PutItems(0, Item(u"TB"_qs));
    EXPECT_EQ(list->GetItems(0), member);
    EXPECT_EQ(TBindableControlInfoList::ExtractClassName(member), u"TB"_qs);
}

TEST(BindableControlInfoList, SortListMovesTheDefaultAndSortsNothingElse)
{
    const auto list = New<TBindableControlInfoList>();
    for (const auto& name : { u"TC"_qs, u"TB"_qs, u"TA"_qs })
        list->Add(Item(name));
    list->SortList();
    EXPECT_EQ(Text(TList(list)), u"TC TB TA"_qs);
    EXPECT_EQ(ClassNameOf(list->GetDefItem()), u"TC"_qs);
    list->Insert(0, Item(u"TD"_qs));
    list->SortList();
    EXPECT_EQ(Text(TList(list)), u"TC TD TB TA"_qs);
}
