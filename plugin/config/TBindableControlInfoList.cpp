#include "config/TBindableControlInfoList.h"

#include "config/TBindableControlInfo.h"
#include "support/MrvConst.h"

namespace {

const auto UnitName = QStringLiteral("MrvCfgIntf");

}

void TBindableControlInfoList::GetItem(int index, TItem& item)
{
    item = nullptr;
    item = GetItems(index);
}

TBindableControlInfoList::TItem TBindableControlInfoList::GetItems(int index) const
{
    if (index < 0 || index >= Count())
        throw EListError(QStringLiteral("List index out of bounds (%1) in %2").arg(index).arg(FGroupName));
    return Items(index);
}

void TBindableControlInfoList::PutItems(int index, const TItem& item)
{
    GetItems(index)->Assign(item);
}

QString TBindableControlInfoList::ExtractClassName(const TItem& item)
{
    return ClassNameOf(item);
}

TBindableControlInfoList::TItem TBindableControlInfoList::GetDefItem()
{
    // The first look fixes the default; later sorting does not change it.
    if (!FDefaultItem && Count() > 0)
        FDefaultItem = GetItems(0);
    return FDefaultItem;
}

void TBindableControlInfoList::GetDefaultItem(TItem& item)
{
    item = GetDefItem();
}

void TBindableControlInfoList::SetDefaultItem(const TItem& item)
{
    ::Assert(bool(item), UnitName);
    FDefaultItem = item;
    if (!IsPseudoControl(ExtractClassName(item)))
        SortList();
}

void TBindableControlInfoList::SortList()
{
    if (!FDefaultItem)
        return;
    const auto className = ExtractClassName(FDefaultItem);
    if (className.isEmpty() || IsPseudoControl(className))
        return;
    const int index = IndexOf(className);
    if (index < 0)
        return;
    const auto member = GetItems(index);
    Delete(index);
    Insert(0, member);
    FDefaultItem = member;
}

void TBindableControlInfoList::Assign(const InterfacePtr<IMrvBindableControlInfoList>& source)
{
    ::Assert(bool(source), UnitName);
    if (source == static_cast<IMrvBindableControlInfoList*>(this))
        return;
    Clear();
    TItem item;
    for (int i = 0; i < source->GetCount(); ++i) {
        source->GetItem(i, item);
        Add(item);
    }
    // Read after the copy, so it can be fixed at this moment; stored as it is, without sorting.
    source->GetDefaultItem(FDefaultItem);
}

int TBindableControlInfoList::IndexOf(const TItem& item)
{
    const auto className = ExtractClassName(item);
    for (int i = 0; i < Count(); ++i)
        if (ExtractClassName(Items(i)) == className)
            return i;
    return -1;
}

int TBindableControlInfoList::IndexOf(const QString& className)
{
    for (int i = 0; i < Count(); ++i)
        if (SameText(ExtractClassName(Items(i)), className))
            return i;
    return -1;
}

int TBindableControlInfoList::Add(const TItem& item)
{
    ::Assert(bool(item), UnitName);
    int position = IndexOf(DetailsClassName);
    if (position == -1)
        position = IndexOf(NoneClassName);
    if (position == -1)
        return TInterfaceList::Add(item);
    Insert(position, item);
    return position;
}

void TBindableControlInfoList::AddPseudoControl(const QString& name)
{
    if (IndexOf(name) == -1)
        Add(New<TBindableControlInfo>(name, name));
}

void TBindableControlInfoList::Delete(int index)
{
    if (GetItems(index) == FDefaultItem)
        FDefaultItem.Clear();
    TInterfaceList::Delete(index);
}

void TBindableControlInfoList::Delete(const QString& className)
{
    const int index = IndexOf(className);
    // Looking at the default gives one to a list that had none, also when nothing is deleted.
    const auto current = GetDefItem();
    if (current && SameText(ExtractClassName(current), className))
        FDefaultItem.Clear();
    if (index >= 0)
        Delete(index);
}

void TBindableControlInfoList::Clear()
{
    FDefaultItem.Clear();
    TInterfaceList::Clear();
}

void TBindableControlInfoList::ItemByClassName(const QString& className, TItem& item)
{
    const int index = IndexOf(className);
    item = index < 0 ? TItem() : GetItems(index);
}
