#include "packages/SubObjects.h"

#include "data/TParams.h"
#include "rtl/SysUtils.h"

namespace {

QHash<TClass, TClass>& itemClasses()
{
    static QHash<TClass, TClass> classes;
    return classes;
}

TClass itemClassOf(TClass collection)
{
    for (auto walk = collection; walk; walk = walk.ClassParent())
        if (const auto item = itemClasses().value(walk))
            return item;
    return nullptr;
}

std::unique_ptr<TPersistent> madeCollection(TClass aClass, TPersistent* owner, const QString& property)
{
    if (aClass.InheritsFrom(TParams::Class()))
        return std::make_unique<TParams>(owner, property);
    const auto makeItem = [item = itemClassOf(aClass)](TCollection* collection) {
        auto made = std::make_unique<TCollectionItem>(collection);
        if (item)
            made->SetDynamicClass(item);
        return made;
    };
    return std::make_unique<TCollection>(owner, property, makeItem);
}

std::unique_ptr<TPersistent> madeObject(TClass aClass, TPersistent* owner, const QString& property)
{
    if (aClass.InheritsFrom(TStrings::Class()))
        return std::make_unique<TStrings>(owner, property);
    if (aClass.InheritsFrom(TCollection::Class()))
        return madeCollection(aClass, owner, property);
    return std::make_unique<TPersistent>();
}

TPersistent* neededObject(TPersistent* owner, const QString& property, const QString& typeName, const QString& group)
{
    if (auto* object = owner->SubObject(property))
        return object;
    const auto aClass = GetClassInGroup(typeName, group);
    auto made = madeObject(aClass, owner, property);
    if (aClass)
        made->SetDynamicClass(aClass);
    owner->AdoptSubObject(property, std::move(made));
    return owner->SubObject(property);
}

}

TPropInfo SubObjectProperty(const QString& name, const TTypeInfo& type, const QString& group)
{
    TPropInfo property { name, type, {}, {}, {}, true };
    property.Get = [name, typeName = type.Name, group](const TPersistent* object) {
        return QVariant::fromValue(neededObject(const_cast<TPersistent*>(object), name, typeName, group));
    };
    return property;
}

void SetItemClass(TClass collection, TClass item)
{
    itemClasses().insert(collection, item);
}
