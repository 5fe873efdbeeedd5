#include "support/MrvObjectList.h"

#include "LogFixture.h"
#include "model/MrvCustomComponentAttr.h"
#include "rtl/SysUtils.h"

#include <QRandomGenerator>

#include <algorithm>

namespace {

// A wrapper of nothing, which counts those alive.
class Wrapper : public TCustomComponentAttr {
public:
    explicit Wrapper(const QString& name = {}, const QString& form = {})
        : TCustomComponentAttr(nullptr, TClass(), nullptr, nullptr, u"Wrapper")
    {
        SetComponentName(name);
        SetFormName(form);
        ++Alive;
    }
    ~Wrapper() override { --Alive; }
    static inline int Alive = 0;
};

class FailingWrapper : public Wrapper {
public:
    using Wrapper::Wrapper;
    void BeforeDestruction() override
    {
        TCustomComponentAttr::BeforeDestruction();
        throw Exception(u"cannot go"_qs);
    }
    void Free() { delete this; }
};

QList<int> Indexes(const TMrvObjectList& list)
{
    QList<int> indexes;
    for (int i = 0; i < list.Count(); ++i)
        indexes << list[i]->FIndex;
    return indexes;
}

qint32 LowHalf(const void* address)
{
    return qint32(quint32(quintptr(address)));
}

}

class TMrvObjectListTest : public LogFixture { };

TEST_F(TMrvObjectListTest, TakesAReferenceAndNumbersWhatIsAdded)
{
    const auto first = New<Wrapper>();
    const auto second = New<Wrapper>();
    TMrvObjectList list;
    EXPECT_EQ(list.Add(first.get()), 0);
    EXPECT_EQ(list.Add(second.get()), 1);
    EXPECT_EQ(second->RefCount(), 2);
    EXPECT_EQ(Indexes(list), (QList { 0, 1 }));
}

TEST_F(TMrvObjectListTest, HoldsAWrapperThatIsAddedTwiceTwice)
{
    const auto wrapper = New<Wrapper>();
    TMrvObjectList list;
    list.Add(wrapper.get());
    list.Add(wrapper.get());
    EXPECT_EQ(wrapper->RefCount(), 3);
    EXPECT_EQ(list.Count(), 2);
    EXPECT_EQ(wrapper->FIndex, 1);
    list.Delete(0);
    EXPECT_TRUE(list.Contains(wrapper.get()));
    EXPECT_EQ(wrapper->RefCount(), 2);
}

TEST_F(TMrvObjectListTest, LeavesTheIndexesBehindADeletionOneTooHighUntilItIsResynced)
{
    TMrvObjectList list;
    for (int i = 0; i < 3; ++i)
        list.Add(New<Wrapper>().get());
    list.Delete(0);
    EXPECT_EQ(Indexes(list), (QList { 1, 2 }));
    list.ResyncIndex(0);
    EXPECT_EQ(Indexes(list), (QList { 0, 1 }));
}

TEST_F(TMrvObjectListTest, LetsAWrapperDieWithTheLastListThatHoldsIt)
{
    TMrvObjectList one;
    TMrvObjectList other;
    one.Add(New<Wrapper>().get());
    other.Add(one[0]);
    one.Clear();
    EXPECT_EQ(Wrapper::Alive, 1);
    other.Delete(0);
    EXPECT_EQ(Wrapper::Alive, 0);
}

TEST_F(TMrvObjectListTest, SwapsASlotWithoutCountingOrNumbering)
{
    const auto first = New<Wrapper>();
    const auto second = New<Wrapper>();
    TMrvObjectList list;
    list.Add(first.get());
    list.Put(0, second.get());
    EXPECT_EQ(list[0], second.get());
    EXPECT_EQ(first->RefCount(), 2);
    EXPECT_EQ(second->RefCount(), 1);
    EXPECT_EQ(second->FIndex, -1);
    list.Put(0, first.get());
}

TEST_F(TMrvObjectListTest, SortsByTheLowHalfOfTheComponentsAddressAndRenumbers)
{
    TComponent root;
    TMrvObjectList list;
    QList<const void*> addresses;
    for (int i = 0; i < 50; ++i) {
        const auto wrapper = New<Wrapper>();
        wrapper->SetComponent(new TComponent(&root));
        addresses << wrapper->FComponent.Address();
        list.Add(wrapper.get());
    }
    std::sort(addresses.begin(), addresses.end(), [](const void* a, const void* b) { return LowHalf(a) < LowHalf(b); });
    list.Sort();
    for (int i = 0; i < list.Count(); ++i) {
        EXPECT_EQ(list[i]->FComponent.Address(), addresses[i]);
        EXPECT_EQ(list[i]->FIndex, i);
    }
}

TEST_F(TMrvObjectListTest, FindsAComponentOnlyWhileItLives)
{
    auto component = std::make_unique<TComponent>();
    const auto wrapper = New<Wrapper>();
    wrapper->SetComponent(component.get());
    TMrvObjectList list;
    list.Add(wrapper.get());
    const auto* address = component.get();
    EXPECT_EQ(list.FindByComponent(address), wrapper.get());
    component.reset();
    EXPECT_EQ(list.FindByComponent(address), nullptr);
    EXPECT_EQ(list.FindByComponent(nullptr), nullptr);
}

TEST_F(TMrvObjectListTest, LogsAWrapperThatFailsAndReleasesTheOthers)
{
    auto failing = New<FailingWrapper>();
    auto* left = failing.get();
    TMrvObjectList list;
    list.Add(New<Wrapper>().get());
    list.Add(failing.get());
    list.Add(New<Wrapper>().get());
    failing.Clear();
    ClearLog();
    list.Clear();
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(Wrapper::Alive, 1);
    EXPECT_TRUE(LogHolds({ u"Destroy Wrapper wrapper"_qs, u"TMrvObjectList.Clear - failed!"_qs,
        u"Exception.Message is 'cannot go'"_qs, u"Destroy Wrapper wrapper"_qs }));
    left->Free();
}

TEST_F(TMrvObjectListTest, RaisesForAPositionOutsideTheList)
{
    TMrvObjectList list;
    EXPECT_THROW(list.Item(0), EListError);
    EXPECT_THROW(list.Delete(-1), EListError);
}

namespace {

TCustomComponentAttr* Walk(const TMrvObjectList& list, const std::function<bool(const TCustomComponentAttr*)>& fits)
{
    for (int i = 0; i < list.Count(); ++i)
        if (fits(list[i]))
            return list[i];
    return nullptr;
}

// A list under random changes whose finders are held against a walk.
class RandomList {
public:
    explicit RandomList(quint32 seed)
        : FRandom(seed)
    {
        for (int i = 0; i < 12; ++i)
            FComponents << new TComponent(&FRoot);
    }
    void Step()
    {
        const int what = FList.Count() == 0 ? 0 : int(FRandom.bounded(7));
        if (what <= 1)
            FList.Add(New<Wrapper>(Name(), Name()).get());
        else if (what == 2)
            FList.Delete(Position());
        else if (what == 3)
            FList[Position()]->SetComponentName(Name());
        else if (what == 4)
            FList[Position()]->SetFormName(Name());
        else if (what == 5)
            FList[Position()]->SetComponent(FComponents[FRandom.bounded(FComponents.size())]);
        else
            FList.Sort();
    }
    void Compare()
    {
        const auto name = Name();
        const auto form = Name();
        const auto* component = FComponents[FRandom.bounded(FComponents.size())];
        EXPECT_EQ(FList.FindByComponent(component),
            Walk(FList, [&](auto* attr) { return attr->FComponent.get() == component; }));
        EXPECT_EQ(
            FList.FindByName(name), Walk(FList, [&](auto* attr) { return SameText(attr->FComponentName, name); }));
        EXPECT_EQ(FList.FindByFormAndName(form, name, Qt::CaseSensitive),
            Walk(FList, [&](auto* attr) { return attr->FFormName == form && attr->FComponentName == name; }));
        EXPECT_EQ(FList.FindByFormAndName(form, name, Qt::CaseInsensitive), Walk(FList, [&](auto* attr) {
            return SameText(attr->FFormName, form) && SameText(attr->FComponentName, name);
        }));
    }

private:
    int Position() { return FRandom.bounded(FList.Count()); }
    QString Name()
    {
        static const QStringList names { u"Query"_qs, u"QUERY"_qs, u"query"_qs, u"Straße"_qs, u"STRASSE"_qs, u""_qs };
        return names[FRandom.bounded(names.size())];
    }

    QRandomGenerator FRandom;
    TComponent FRoot;
    QList<TComponent*> FComponents;
    TMrvObjectList FList;
};

}

TEST_F(TMrvObjectListTest, FindsWhatAWalkFromTheFirstEntryFinds)
{
    MrvConfigurationService = nullptr; // no log of thousands of wrappers
    const auto seed = QRandomGenerator::global()->generate();
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    RandomList list(seed);
    for (int i = 0; i < 3000 && !HasFailure(); ++i) {
        list.Step();
        list.Compare();
    }
}
