#include "rtl/TInterfaceList.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

class Thing : public TInterfacedObject {
public:
    explicit Thing(std::function<void()> atEnd = {})
        : AtEnd(std::move(atEnd))
    {
    }
    ~Thing() override
    {
        if (AtEnd)
            AtEnd();
    }
    std::function<void()> AtEnd;
};

using TThings = TInterfaceList<Thing>;

}

TEST(TInterfaceList, KeepsItsItemsInOrder)
{
    const auto list = New<TThings>();
    const auto a = New<Thing>();
    const auto b = New<Thing>();
    EXPECT_EQ(list->Add(a), 0);
    EXPECT_EQ(list->Add(nullptr), 1);
    list->Insert(0, b);
    list->Insert(3, a);
    EXPECT_EQ(
        (QList<Thing*> { list->Items(0).get(), list->Items(1).get(), list->Items(2).get(), list->Items(3).get() }),
        (QList<Thing*> { b.get(), a.get(), nullptr, a.get() }));
    EXPECT_EQ(list->IndexOf(a), 1);
    EXPECT_EQ(list->IndexOf(New<Thing>()), -1);
}

TEST(TInterfaceList, HoldsOneReferenceForEachEntry)
{
    const auto list = New<TThings>();
    const auto thing = New<Thing>();
    list->Add(thing);
    list->Add(thing);
    EXPECT_EQ(thing->RefCount(), 3);
    list->Delete(0);
    EXPECT_EQ(thing->RefCount(), 2);
    list->Clear();
    EXPECT_EQ(thing->RefCount(), 1);
    EXPECT_EQ(list->Count(), 0);
}

TEST(TInterfaceList, WhatTheEndOfAnItemCallsBackFindsTheListWithoutIt)
{
    const auto list = New<TThings>();
    int seen = -1;
    list->Add(New<Thing>([&] { seen = list->Count(); }));
    list->Delete(0);
    EXPECT_EQ(seen, 0);
}

TEST(TInterfaceList, PutItemsReplacesTheReference)
{
    const auto list = New<TThings>();
    const auto a = New<Thing>();
    list->Add(New<Thing>());
    list->PutItems(0, a);
    EXPECT_EQ(list->Items(0), a);
}

TEST(TInterfaceList, AnIndexOutOfRangeIsAListError)
{
    const auto list = New<TThings>();
    list->Add(nullptr);
    EXPECT_THROW(list->Items(1), EListError);
    EXPECT_THROW(list->Items(-1), EListError);
    EXPECT_THROW(list->PutItems(1, nullptr), EListError);
    EXPECT_THROW(list->Insert(2, nullptr), EListError);
    EXPECT_THROW(list->Delete(1), EListError);
}
