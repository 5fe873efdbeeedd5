#include "classes/Forms.h"
#include "designer/FormProperties.h"
#include "designer/FormValues.h"
#include "designer/LiveForm.h"
#include "rtl/SysUtils.h"

// How the live form writes the value of a property to its one line.

namespace {

// The published property of the owner that gives this object of its own.
QString NameOfSubObject(const TPersistent& owner, const TPersistent& object)
{
    for (const auto* property : GetPropList(owner.ClassType(), { tkClass }, false))
        if (property->IsSubObject && property->Get(&owner).value<TPersistent*>() == &object)
            return property->Name;
    return {};
}

TComponent* ComponentOfPart(TPersistent& instance)
{
    TPersistent* walk = &instance;
    while (walk && !dynamic_cast<TComponent*>(walk))
        walk = walk->GetOwner();
    return dynamic_cast<TComponent*>(walk);
}

// Where in the file an object that belongs to a component stands: a node (the component's or an item's) and what comes
// before the names of its properties.
struct Spot {
    FormNode* Node = nullptr;
    QString Prefix;
};

Spot SpotOf(LiveForm& form, TPersistent& instance)
{
    if (auto* component = dynamic_cast<TComponent*>(&instance))
        return { &form.NeedNode(*component), {} };
    auto* owner = instance.GetOwner();
    if (!owner)
        return {};
    if (auto* item = dynamic_cast<TCollectionItem*>(&instance)) {
        auto* collection = item->Collection();
        const auto spot = SpotOf(form, *collection);
        const auto* property = spot.Node ? spot.Node->Property(spot.Prefix.chopped(1)) : nullptr;
        const auto index = item->Index();
        const bool there = property && index >= 0 && size_t(index) < property->Items().size();
        return there ? Spot { property->Items()[size_t(index)], {} } : Spot();
    }
    auto spot = SpotOf(form, *owner);
    const auto* collection = dynamic_cast<TCollection*>(&instance);
    const auto name = collection ? collection->PropertyName() : NameOfSubObject(*owner, instance);
    if (name.isEmpty())
        return {};
    spot.Prefix += name + u'.';
    return spot;
}

bool IsEmpty(const QVariant& value)
{
    if (!value.isValid())
        return true;
    if (value.typeId() == qMetaTypeId<TPersistent*>())
        return value.value<TPersistent*>() == nullptr;
    if (value.typeId() == QMetaType::QStringList)
        return value.toStringList().isEmpty();
    return value.typeId() == QMetaType::QString && value.toString().isEmpty();
}

TComponent* RootOf(TPersistent& instance)
{
    auto* walk = ComponentOfPart(instance);
    while (walk && walk->Owner())
        walk = walk->Owner();
    return walk;
}

// Whether the form refers to what it would refer to if its file said nothing.
bool IsInheritedReference(TPersistent& inherited, const QVariant& old, const QVariant& value, TComponent& root)
{
    auto* target = dynamic_cast<TComponent*>(old.value<TPersistent*>());
    auto* expected = target ? FormLinks::InheritedTarget(*RootOf(inherited), *target, root) : nullptr;
    return dynamic_cast<TComponent*>(value.value<TPersistent*>()) == expected;
}

bool IsInherited(TPersistent& inherited, const TPropInfo& info, const QVariant& value, TComponent& root)
{
    const auto* there = GetPropInfo(&inherited, info.Name);
    if (!there)
        return false;
    const auto old = there->Get(&inherited);
    return info.PropType.Kind == tkClass ? IsInheritedReference(inherited, old, value, root) : old == value;
}

// The same property of the item in the file and of the live one.
bool Matches(const FormNode& node, TPersistent& item)
{
    for (const auto* property : node.Properties()) {
        const auto place = FormProperties::Find(item, property->Name());
        if (!place.Info || place.Info->IsSubObject || place.Info->PropType.Kind == tkClass || property->IsCollection())
            continue;
        if (place.Info->Get(place.Instance) != FormValues::ToVariant(property->Value(), &place.Info->PropType))
            return false;
    }
    return true;
}

int FirstDifference(const FormProperty& property, const TCollection& collection)
{
    const auto items = property.Items();
    int at = 0;
    while (size_t(at) < items.size() && at < collection.Count() && Matches(*items[size_t(at)], *collection.Item(at)))
        ++at;
    return at;
}

}

void LiveForm::WriteProperty(TPersistent& instance, const QString& property, TPersistent* inherited)
{
    if (!ComponentOfPart(instance))
        return;
    OnEdit();
    auto* collection = dynamic_cast<TCollection*>(&instance);
    if (collection && SameText(property, collection->PropertyName())) {
        const auto spot = SpotOf(*this, instance);
        if (spot.Node)
            WriteCollection(*collection, *spot.Node, spot.Prefix.chopped(1));
        return;
    }
    const auto spot = SpotOf(*this, instance);
    if (!spot.Node)
        return;
    FLinks.Forget(&instance, property);
    const auto* info = GetPropInfo(&instance, property);
    auto* part = info && info->IsSubObject ? info->Get(&instance).value<TPersistent*>() : nullptr;
    if (auto* strings = dynamic_cast<TStrings*>(part))
        WriteStrings(*strings, *spot.Node, spot.Prefix + property + QLatin1String(".Strings"));
    else if (auto* items = dynamic_cast<TCollection*>(part))
        WriteCollection(*items, *spot.Node, spot.Prefix + property);
    else if (!part)
        WriteValue(instance, info, property, *spot.Node, spot.Prefix + property, inherited);
}

namespace {

// What the file does not say comes from another file, so that even a default value must be said.
bool IsSaidElsewhere(TPersistent& instance)
{
    const auto* component = ComponentOfPart(instance);
    return component->HasState(csAncestor) || component->HasState(csInline);
}

}

void LiveForm::WriteStrings(const TStrings& strings, FormNode& node, const QString& path)
{
    if (strings.Count() > 0 || IsSaidElsewhere(const_cast<TStrings&>(strings)))
        Write(node, path, FormValue::Strings(strings.Lines()));
    else
        Remove(node, path);
}

namespace {

QString PlaceOf(const GeometryPlaces& places, const QString& name)
{
    const std::pair<QLatin1String, QString> table[]
        = { { QLatin1String("Left"), places.Left }, { QLatin1String("Top"), places.Top },
              { QLatin1String("Width"), places.Width }, { QLatin1String("Height"), places.Height } };
    for (const auto& [property, place] : table)
        if (name.compare(property, Qt::CaseInsensitive) == 0)
            return place;
    return {};
}

}

void LiveForm::WriteValue(TPersistent& instance, const TPropInfo* info, const QString& name, FormNode& node,
    const QString& path, TPersistent* inherited)
{
    if (WritePlace(instance, info, name, node, path) || WriteFormSize(instance, info, name, node, path))
        return;
    if (!info)
        WriteUnknown(instance.StoredValue(name), node, path);
    else if (!info->IsStored || info->IsStored(&instance))
        WritePublished(instance, *info, node, path, inherited);
}

// The place of what is no control, and of controls that their class keeps elsewhere.
bool LiveForm::WritePlace(
    TPersistent& instance, const TPropInfo* info, const QString& name, FormNode& node, const QString& path)
{
    auto* component = dynamic_cast<TComponent*>(&instance);
    if (!info && component && (SameText(name, u"Left") || SameText(name, u"Top"))) {
        const auto place = SameText(name, u"Left") ? component->DesignLeft() : component->DesignTop();
        Write(node, path, FormValue::Integer(place));
        return true;
    }
    const auto* control = dynamic_cast<TControl*>(&instance);
    const auto* places = control ? FSource.GeometryOf(control->ClassType()) : nullptr;
    const auto there = places ? PlaceOf(*places, name) : QString();
    if (there.isEmpty())
        return false;
    Write(node, there, FormValue::Real(info->Get(&instance).toDouble()));
    return true;
}

// A form keeps the size of its client area; files of old have the outer one.
bool LiveForm::WriteFormSize(
    TPersistent& instance, const TPropInfo* info, const QString& name, FormNode& node, const QString& path)
{
    const auto* form = dynamic_cast<TCustomForm*>(&instance);
    if (!form || (!SameText(name, u"Width") && !SameText(name, u"Height")))
        return false;
    const auto size = FormValue::Integer(info->Get(form).toLongLong());
    const auto client = QLatin1String("Client") + name;
    if (node.Property(client) || !node.Property(path))
        Write(node, client, size);
    if (node.Property(path))
        Write(node, path, size);
    return true;
}

// A property that the class does not publish: kept as the file spelled it.
void LiveForm::WriteUnknown(const QVariant& value, FormNode& node, const QString& path)
{
    if (!value.isValid()) {
        Remove(node, path);
        return;
    }
    const auto* there = node.Property(path);
    const bool isName = there && there->Value().TheKind() == FormValue::Kind::Identifier;
    Write(node, path,
        isName ? FormValue::Identifier(value.toString())
               : FormValues::ToFormValue(value, TTypeInfo { tkUnknown, {}, {} }));
}

void LiveForm::WritePublished(
    TPersistent& instance, const TPropInfo& info, FormNode& node, const QString& path, TPersistent* inherited)
{
    const auto value = info.Get(&instance);
    const bool isDefault = inherited ? IsInherited(*inherited, info, value, *FRoot)
        : IsSaidElsewhere(instance)  ? false
        : info.Default.isValid()     ? value == info.Default || (IsEmpty(value) && IsEmpty(info.Default))
                                     : IsEmpty(value);
    if (isDefault || !value.isValid()) {
        Remove(node, path);
        return;
    }
    const auto written = ValueOf(instance, info, value);
    Write(node, path, written);
    const auto* target
        = info.PropType.Kind == tkClass ? dynamic_cast<TComponent*>(value.value<TPersistent*>()) : nullptr;
    if (target && !Holds(target))
        FLinks.Add({ &instance, info.Name, written.ToString(), FRoot.get() });
}

FormValue LiveForm::ValueOf(const TPersistent& instance, const TPropInfo& info, const QVariant& value) const
{
    if (info.PropType.Kind != tkClass)
        return FormValues::ToFormValue(value, info.PropType);
    const auto* target = dynamic_cast<TComponent*>(value.value<TPersistent*>());
    if (!target)
        return FormValue::Nil();
    const auto* component = ComponentOfPart(const_cast<TPersistent&>(instance));
    const auto* scope = component->Owner() ? component->Owner() : component;
    return FormValue::Identifier(FormLinks::NameFrom(*FRoot, *scope, *target));
}

void LiveForm::WriteCollection(TCollection& collection, FormNode& node, const QString& path)
{
    const auto fileCount = [&node, &path] {
        const auto* property = node.Property(path);
        return property ? int(property->Items().size()) : 0;
    };
    Touch(node, path);
    if (collection.Count() == 0) {
        Remove(node, path);
        return;
    }
    while (fileCount() > collection.Count()) {
        const auto* property = node.Property(path);
        FDocument->Remove(*property->Items()[size_t(FirstDifference(*property, collection))]);
    }
    while (fileCount() < collection.Count()) {
        const auto* property = node.Property(path);
        const auto at = property ? FirstDifference(*property, collection) : 0;
        FDocument->AddItem(node, path, at);
        auto* item = collection.Item(at);
        for (const auto* published : GetPropList(item->ClassType(), {}, false))
            WriteProperty(*item, published->Name, nullptr);
    }
}
