#include "support/MrvAttrIndex.h"

#include "model/MrvCustomComponentAttr.h"
#include "support/MrvObjectList.h"

namespace {

// Texts that are the same without regard to case fold to one text; the finder compares again.
QString NameKey(const QString& name)
{
    return name.toCaseFolded();
}

QString FormAndNameKey(const QString& formName, const QString& name)
{
    return NameKey(formName) + QChar(0) + NameKey(name);
}

const void* ComponentKeyOf(const TCustomComponentAttr* item)
{
    return item->FComponent.Address();
}

QString NameKeyOf(const TCustomComponentAttr* item)
{
    return NameKey(item->LookupName());
}

QString FormAndNameKeyOf(const TCustomComponentAttr* item)
{
    return FormAndNameKey(item->FFormName, item->LookupName());
}

template <class Table, class KeyOf>
void Make(Table& table, const QList<TCustomComponentAttr*>& items, KeyOf keyOf)
{
    if (table.Made)
        return;
    table.Items.reserve(items.size());
    for (auto* item : items)
        if (item)
            table.Items.insert(keyOf(item), item);
    table.Made = true;
}

}

void TAttrIndex::Add(TCustomComponentAttr* item)
{
    if (FByComponent.Made)
        FByComponent.Items.insert(ComponentKeyOf(item), item);
    if (FByName.Made)
        FByName.Items.insert(NameKeyOf(item), item);
    if (FByFormAndName.Made)
        FByFormAndName.Items.insert(FormAndNameKeyOf(item), item);
}

void TAttrIndex::Remove(TCustomComponentAttr* item)
{
    if (FByComponent.Made)
        FByComponent.Items.remove(ComponentKeyOf(item), item);
    if (FByName.Made)
        FByName.Items.remove(NameKeyOf(item), item);
    if (FByFormAndName.Made)
        FByFormAndName.Items.remove(FormAndNameKeyOf(item), item);
}

void TAttrIndex::Clear()
{
    FByComponent = {};
    FByName = {};
    FByFormAndName = {};
}

QList<TCustomComponentAttr*> TAttrIndex::ByComponent(
    const QList<TCustomComponentAttr*>& items, const TComponent* component) const
{
    Make(FByComponent, items, ComponentKeyOf);
    return FByComponent.Items.values(component);
}

QList<TCustomComponentAttr*> TAttrIndex::ByName(const QList<TCustomComponentAttr*>& items, const QString& name) const
{
    Make(FByName, items, NameKeyOf);
    return FByName.Items.values(NameKey(name));
}

QList<TCustomComponentAttr*> TAttrIndex::ByFormAndName(
    const QList<TCustomComponentAttr*>& items, const QString& formName, const QString& name) const
{
    Make(FByFormAndName, items, FormAndNameKeyOf);
    return FByFormAndName.Items.values(FormAndNameKey(formName, name));
}

TAttrKeyChange::TAttrKeyChange(TCustomComponentAttr* item)
    : FItem(item)
{
    for (auto* list : item->FHolders)
        list->FKeys.Remove(item);
}

TAttrKeyChange::~TAttrKeyChange()
{
    for (auto* list : FItem->FHolders)
        list->FKeys.Add(FItem);
}
