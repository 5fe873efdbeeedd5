#include "support/MrvObjectList.h"

#include "model/MrvCustomComponentAttr.h"
#include "rtl/SysUtils.h"
#include "support/MrvUtils.h"

#include <algorithm>

TMrvObjectList::~TMrvObjectList()
{
    TMrvObjectList::Clear();
}

int TMrvObjectList::Add(TCustomComponentAttr* item)
{
    FItems << item;
    const int position = Count() - 1;
    if (!item)
        return position;
    item->AddRef();
    item->FIndex = position;
    // A wrapper that stands in two slots is found as well as one that stands in one.
    if (!item->FHolders.contains(this))
        FKeys.Add(item);
    item->FHolders << this;
    return position;
}

void TMrvObjectList::Leave(TCustomComponentAttr* item)
{
    item->FHolders.removeOne(this);
    if (!item->FHolders.contains(this))
        FKeys.Remove(item);
}

void TMrvObjectList::Delete(int index)
{
    auto* item = Item(index);
    FItems.remove(index);
    if (!item)
        return;
    Leave(item);
    item->Release();
}

void TMrvObjectList::Put(int index, TCustomComponentAttr* item)
{
    if (auto* old = Item(index))
        Leave(old);
    FItems[index] = item;
    if (!item)
        return;
    if (!item->FHolders.contains(this))
        FKeys.Add(item);
    item->FHolders << this;
}

void TMrvObjectList::Clear()
{
    FSortPending = false;
    FKeys.Clear();
    const auto items = std::exchange(FItems, {});
    for (auto* item : items)
        if (item)
            item->FHolders.removeAll(this);
    for (auto* item : items) {
        if (!item)
            continue;
        try {
            item->Release();
        } catch (const std::exception& exception) {
            TMrvUtils::LogFailure(QStringLiteral("TMrvObjectList.Clear - failed!"), exception);
        }
    }
}

void TMrvObjectList::Sort()
{
    FSortPending = true;
}

namespace {

struct TSortKey {
    qint32 Low;
    quintptr Whole;
    TCustomComponentAttr* Item;
    friend bool operator<(const TSortKey& a, const TSortKey& b)
    {
        return a.Low != b.Low ? a.Low < b.Low : a.Whole < b.Whole;
    }
};

TSortKey SortKey(TCustomComponentAttr* item)
{
    const auto whole = quintptr(item ? item->FComponent.Address() : nullptr);
    return { qint32(quint32(whole)), whole, item };
}

}

void TMrvObjectList::Settle() const
{
    if (!FSortPending)
        return;
    FSortPending = false;
    std::vector<TSortKey> keys;
    keys.reserve(size_t(FItems.size()));
    for (auto* item : std::as_const(FItems))
        keys.push_back(SortKey(item));
    std::stable_sort(keys.begin(), keys.end());
    for (int i = 0; i < Count(); ++i) {
        auto* item = keys[size_t(i)].Item;
        FItems[i] = item;
        if (item)
            item->FIndex = i;
    }
}

void TMrvObjectList::ResyncIndex(int start)
{
    Settle();
    for (int i = start; i < Count(); ++i)
        if (FItems[i])
            FItems[i]->FIndex = i;
}

TCustomComponentAttr* TMrvObjectList::Item(int index) const
{
    if (index < 0 || index >= Count())
        throw EListError(QStringLiteral("List index out of bounds (%1)").arg(index));
    Settle();
    return FItems.at(index);
}

int TMrvObjectList::IndexOf(const TCustomComponentAttr* item) const
{
    Settle();
    if (item && item->FIndex >= 0 && item->FIndex < Count() && FItems.at(item->FIndex) == item)
        return item->FIndex;
    return int(FItems.indexOf(const_cast<TCustomComponentAttr*>(item)));
}

bool TMrvObjectList::Contains(const TCustomComponentAttr* item) const
{
    return item && item->FHolders.contains(const_cast<TMrvObjectList*>(this));
}

QList<InterfacePtr<TCustomComponentAttr>> TMrvObjectList::Held() const
{
    Settle();
    QList<InterfacePtr<TCustomComponentAttr>> held;
    held.reserve(FItems.size());
    for (auto* item : std::as_const(FItems))
        held << InterfacePtr<TCustomComponentAttr>(item);
    return held;
}

TCustomComponentAttr* TMrvObjectList::First(const QList<TCustomComponentAttr*>& found) const
{
    if (found.size() < 2)
        return found.value(0);
    Settle();
    return *std::min_element(
        found.begin(), found.end(), [this](auto* a, auto* b) { return FItems.indexOf(a) < FItems.indexOf(b); });
}

TCustomComponentAttr* TMrvObjectList::FindByComponent(const TComponent* component) const
{
    if (!component)
        return nullptr;
    auto found = FKeys.ByComponent(FItems, component);
    found.removeIf([component](auto* item) { return item->FComponent.get() != component; });
    return First(found);
}

TCustomComponentAttr* TMrvObjectList::FindByName(const QString& name, const TAttrFilter& fits) const
{
    auto found = FKeys.ByName(FItems, name);
    found.removeIf([&](auto* item) { return !SameText(item->LookupName(), name) || (fits && !fits(item)); });
    return First(found);
}

TCustomComponentAttr* TMrvObjectList::FindByFormAndName(
    const QString& formName, const QString& name, Qt::CaseSensitivity sensitivity, const TAttrFilter& fits) const
{
    const auto same = [sensitivity](const QString& a, const QString& b) { return a.compare(b, sensitivity) == 0; };
    auto found = FKeys.ByFormAndName(FItems, formName, name);
    found.removeIf([&](auto* item) {
        return !same(item->LookupName(), name) || !same(item->FFormName, formName) || (fits && !fits(item));
    });
    return First(found);
}
