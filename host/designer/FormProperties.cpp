#include "designer/FormProperties.h"

#include "classes/Controls.h"
#include "designer/FormValues.h"
#include "rtl/SysUtils.h"

namespace FormProperties {

namespace {

void SetValue(TPersistent& instance, const QString& name, const TPropInfo* info, const QVariant& value)
{
    if (!value.isValid())
        return;
    try {
        if (info)
            SetPropValue(&instance, name, value);
        else
            instance.SetStoredValue(name, value);
    } catch (const EConvertError&) {
        // A name that only the compiler knows the number of; the file keeps it.
    } catch (const EPropertyError&) {
    }
}

// A component without a place of its own stands where the file says.
bool ReadDesignPosition(TPersistent& instance, const QString& name, const FormValue& value)
{
    auto* component = dynamic_cast<TComponent*>(&instance);
    if (!component || value.TheKind() != FormValue::Kind::Integer)
        return false;
    const auto number = int(value.ToInteger());
    if (SameText(name, u"Left"))
        component->SetDesignPosition(number, component->DesignTop());
    else if (SameText(name, u"Top"))
        component->SetDesignPosition(component->DesignLeft(), number);
    else
        return false;
    return true;
}

bool ReadSubObject(const Place& place, const FormProperty& property, TComponent& scope, FormLinks& links)
{
    if (!place.Info || !place.Info->IsSubObject)
        return false;
    auto* object = place.Info->Get(place.Instance).value<TPersistent*>();
    if (auto* collection = dynamic_cast<TCollection*>(object); collection && property.IsCollection())
        ReadCollection(*collection, property, scope, links);
    return true;
}

bool IsReference(const Place& place, const FormValue& value)
{
    return place.Info && place.Info->PropType.Kind == tkClass && value.TheKind() == FormValue::Kind::Identifier;
}

}

Place Find(TPersistent& instance, const QString& path)
{
    const auto* whole = GetPropInfo(&instance, path);
    const auto dot = whole ? -1 : path.indexOf(u'.');
    if (dot < 0)
        return { &instance, path, whole };
    const auto* info = GetPropInfo(&instance, path.left(dot));
    auto* object = info && info->IsSubObject ? info->Get(&instance).value<TPersistent*>() : nullptr;
    return object ? Find(*object, path.mid(dot + 1)) : Place { &instance, path, nullptr };
}

Place FindWhole(TPersistent& instance, const QString& path)
{
    const QLatin1String lines(".Strings");
    const auto list = path.endsWith(lines, Qt::CaseInsensitive) ? Find(instance, path.chopped(lines.size())) : Place();
    return list.Info && list.Info->IsSubObject ? list : Find(instance, path);
}

Taking::Taking(TComponent& component)
    : FComponent(&component)
    , FWasLoading(component.HasState(csLoading))
{
    component.SetComponentState(component.ComponentState() | csLoading);
}

Taking::~Taking()
{
    auto* component = FComponent.get();
    if (component && !FWasLoading)
        component->SetComponentState(component->ComponentState() & ~TComponentState(csLoading));
}

void Read(TPersistent& instance, const FormProperty& property, TComponent& scope, FormLinks& links)
{
    const auto place = Find(instance, property.Name());
    if (ReadSubObject(place, property, scope, links) || property.IsCollection())
        return;
    const auto value = property.Value();
    if (auto* strings = dynamic_cast<TStrings*>(place.Instance); strings && SameText(place.Name, u"Strings"))
        strings->SetLines(value.ToStringList());
    else if (IsReference(place, value))
        links.Add({ place.Instance, place.Name, value.ToString(), &scope });
    else if (place.Info && place.Info->PropType.Kind == tkClass) {
        links.Add({ place.Instance, place.Name, {}, &scope });
        SetValue(*place.Instance, place.Name, place.Info, QVariant::fromValue<TPersistent*>(nullptr));
    } else if (place.Info || !ReadDesignPosition(*place.Instance, place.Name, value))
        SetValue(*place.Instance, place.Name, place.Info,
            FormValues::ToVariant(value, place.Info ? &place.Info->PropType : nullptr));
}

void ReadBounds(TControl& control, const FormNode& node, const GeometryPlaces& places)
{
    const auto at = [&node](const QString& path, int otherwise) {
        const auto* line = node.Property(path);
        return line ? qRound(double(line->Value().ToReal())) : otherwise;
    };
    control.SetBounds({ at(places.Left, control.Left()), at(places.Top, control.Top()),
        at(places.Width, control.Width()), at(places.Height, control.Height()) });
}

namespace {

// The value that an object has when it is made; invalid for one that cannot be made by itself.
QVariant ValueOfNew(const TPersistent& object, const TPropInfo& info)
{
    if (!dynamic_cast<const TComponent*>(&object) || object.ClassType().IsAbstract())
        return {};
    const std::unique_ptr<TPersistent> sample(object.ClassType().Create(nullptr));
    return info.Get(sample.get());
}

}

void Reset(TPersistent& instance, const QString& path)
{
    const auto place = Find(instance, path);
    if (auto* strings = dynamic_cast<TStrings*>(place.Instance); strings && SameText(place.Name, u"Strings")) {
        strings->SetLines({});
        return;
    }
    if (!place.Info) {
        if (!ReadDesignPosition(*place.Instance, place.Name, FormValue::Integer(0)))
            place.Instance->SetStoredValue(place.Name, {});
        return;
    }
    if (place.Info->IsSubObject) {
        if (auto* collection = dynamic_cast<TCollection*>(place.Info->Get(place.Instance).value<TPersistent*>()))
            collection->Clear();
        return;
    }
    auto value = place.Info->Default;
    if (!value.isValid() && place.Info->PropType.Kind == tkClass)
        value = QVariant::fromValue<TPersistent*>(nullptr);
    else if (!value.isValid() && place.Info->PropType.Kind == tkString)
        value = QString();
    else if (!value.isValid())
        value = ValueOfNew(*place.Instance, *place.Info);
    SetValue(*place.Instance, place.Name, place.Info, value);
}

void ReadCollection(TCollection& collection, const FormProperty& property, TComponent& scope, FormLinks& links)
{
    collection.Clear();
    for (const auto* node : property.Items()) {
        auto* item = collection.Add();
        for (const auto* inner : node->Properties())
            Read(*item, *inner, scope, links);
    }
}

}
