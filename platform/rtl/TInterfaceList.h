#pragma once

#include "rtl/SysUtils.h"
#include "rtl/TInterfacedObject.h"

#include <QList>

// A list of references, itself counted. An entry may be nil. An index out of range raises EListError.
template <class I>
class TInterfaceList : public TInterfacedObject {
public:
    int Count() const { return int(FList.size()); }
    const InterfacePtr<I>& Items(int index) const
    {
        CheckIndex(index, Count());
        return FList.at(index);
    }
    void PutItems(int index, const InterfacePtr<I>& item)
    {
        CheckIndex(index, Count());
        FList[index] = item;
    }
    int Add(const InterfacePtr<I>& item)
    {
        FList.append(item);
        return Count() - 1;
    }
    // The index may be the count: the item goes to the end.
    void Insert(int index, const InterfacePtr<I>& item)
    {
        CheckIndex(index, Count() + 1);
        FList.insert(index, item);
    }
    void Delete(int index)
    {
        CheckIndex(index, Count());
        // Taken out first: what its end calls back finds the list without it.
        const auto last = FList.takeAt(index);
    }
    void Clear() { const auto last = std::exchange(FList, {}); }
    // The first place that holds this very reference; -1 without one.
    int IndexOf(const InterfacePtr<I>& item) const { return int(FList.indexOf(item)); }

    auto begin() const { return FList.begin(); }
    auto end() const { return FList.end(); }

protected:
    static void CheckIndex(int index, int count)
    {
        if (index < 0 || index >= count)
            throw EListError(QStringLiteral("List index out of bounds (%1)").arg(index));
    }

private:
    QList<InterfacePtr<I>> FList;
};
