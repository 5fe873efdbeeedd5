#pragma once

#include "rtl/Guard.h"
#include "rtl/InterfacePtr.h"

#include <QList>

#include <algorithm>

// The listeners of one thing. Indexes stay as they were given: a removed listener leaves a gap. A listener may remove
// itself or others, and add new ones, while it is called: removed ones are skipped, new ones are called from the next
// walk on. A reference is held for each call; an exception stops at the call.
template <class I>
class NotifierList {
public:
    int Add(const InterfacePtr<I>& listener)
    {
        FItems << listener;
        return int(FItems.size()) - 1;
    }
    // Nothing happens for an index that is none or was removed.
    void Remove(int index)
    {
        if (index >= 0 && index < FItems.size())
            FItems[index].Clear();
    }
    template <class Call>
    void Walk(Call&& call)
    {
        const auto count = FItems.size();
        for (qsizetype i = 0; i < count; ++i)
            if (const auto listener = FItems.value(i))
                AtEventBorder([&] { call(*listener); });
    }
    // The watched thing goes: tells each listener so and forgets it.
    void Destroy()
    {
        Walk([](I& listener) { listener.Destroyed(); });
        for (auto& item : FItems)
            item.Clear();
    }
    template <class Predicate>
    void RemoveIf(Predicate&& predicate)
    {
        for (auto& item : FItems)
            if (item && predicate(item.get()))
                item.Clear();
    }
    bool IsEmpty() const
    {
        return std::none_of(FItems.begin(), FItems.end(), [](const InterfacePtr<I>& item) { return bool(item); });
    }

private:
    QList<InterfacePtr<I>> FItems;
};
