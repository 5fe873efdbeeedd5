#include "classes/TypInfo.h"

#include "classes/TClassBuilder.h"
#include "classes/TComponent.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace {

// The process's classes: those that are registered by name, and the descriptions that have no C++ class.
struct Registry {
    QList<TClass> Order;
    QHash<QString, QList<TClass>> ByName;
    std::vector<std::unique_ptr<TClassInfo>> Defined;
    QString ActiveGroup = QStringLiteral("VCL");
};

Registry& TheRegistry()
{
    static Registry registry;
    return registry;
}

}

TClassBuilderBase::TClassBuilderBase(TClassInfo& info, const QString& name, TClass parent)
    : FInfo(info)
{
    FInfo.Name = name;
    FInfo.Parent = parent;
    FInfo.Group = parent.Group();
}

void TClassBuilderBase::Index()
{
    for (const auto& property : FInfo.Properties)
        FInfo.FIndex.insert(property.Name.toLower(), &property);
}

const TPropInfo* TClassInfo::FindProperty(const QString& name) const
{
    const auto key = name.toLower();
    for (const auto* walk = this; walk; walk = walk->Parent.Info())
        if (const auto* found = walk->FIndex.value(key))
            return found;
    return nullptr;
}

namespace {

// Gives DefineClass the same indexing as the builder's classes have.
class DefinedClass : TClassBuilderBase {
public:
    explicit DefinedClass(TClassInfo& info)
        : TClassBuilderBase(info, info.Name, info.Parent)
    {
    }
    void Finish(const QString& group)
    {
        FInfo.Group = group;
        Index();
    }
};

}

TClass DefineClass(std::unique_ptr<TClassInfo> info)
{
    const auto group = info->Group;
    DefinedClass(*info).Finish(group);
    auto& defined = TheRegistry().Defined;
    defined.push_back(std::move(info));
    return TClass(defined.back().get());
}

void RegisterClass(TClass aClass)
{
    if (!aClass || TheRegistry().Order.contains(aClass))
        return;
    auto& named = TheRegistry().ByName[aClass.ClassName().toLower()];
    for (const auto other : QList(named))
        if (other.Group() == aClass.Group())
            UnRegisterClass(other);
    TheRegistry().ByName[aClass.ClassName().toLower()] << aClass;
    TheRegistry().Order << aClass;
}

void UnRegisterClass(TClass aClass)
{
    TheRegistry().Order.removeOne(aClass);
    const auto named = TheRegistry().ByName.find(aClass.ClassName().toLower());
    if (named != TheRegistry().ByName.end())
        named->removeOne(aClass);
}

TClass GetClassInGroup(const QString& className, const QString& group)
{
    TClass serving;
    for (const auto found : TheRegistry().ByName.value(className.toLower())) {
        if (found.Group() == group)
            return found;
        if (found.Group().isEmpty())
            serving = found;
    }
    return serving;
}

TClass GetClass(const QString& className)
{
    return GetClassInGroup(className, TheRegistry().ActiveGroup);
}

TClass FindClass(const QString& className)
{
    if (const auto found = GetClass(className))
        return found;
    throw EClassNotFound(QStringLiteral("Class %1 not found").arg(className));
}

QString ActivateClassGroup(const QString& group)
{
    return std::exchange(TheRegistry().ActiveGroup, group);
}

QString ActivateClassGroup(TClass aClass)
{
    return ActivateClassGroup(aClass.Group());
}

QString ActiveClassGroup()
{
    return TheRegistry().ActiveGroup;
}

QList<TClass> RegisteredClasses()
{
    return TheRegistry().Order;
}

const TPropInfo* GetPropInfo(TClass aClass, const QString& name)
{
    return aClass ? aClass.Info()->FindProperty(name) : nullptr;
}

const TPropInfo* GetPropInfo(const TPersistent* instance, const QString& name)
{
    return instance ? GetPropInfo(instance->ClassType(), name) : nullptr;
}

namespace {

void CollectProperties(const TClassInfo* info, QList<const TPropInfo*>& found)
{
    if (!info)
        return;
    CollectProperties(info->Parent.Info(), found);
    for (const auto& property : info->Properties) {
        const auto again = std::find_if(found.begin(), found.end(),
            [&property](const TPropInfo* earlier) { return SameText(earlier->Name, property.Name); });
        if (again != found.end())
            *again = &property;
        else
            found << &property;
    }
}

}

QList<const TPropInfo*> GetPropList(TClass aClass, const QList<TTypeKind>& kinds, bool sorted)
{
    QList<const TPropInfo*> found;
    CollectProperties(aClass.Info(), found);
    if (!kinds.isEmpty())
        found.removeIf([&kinds](const TPropInfo* property) { return !kinds.contains(property->PropType.Kind); });
    if (sorted)
        std::stable_sort(found.begin(), found.end(),
            [](const TPropInfo* a, const TPropInfo* b) { return CompareText(a->Name, b->Name) < 0; });
    return found;
}

namespace {

const TPropInfo& NeedProperty(const TPersistent* instance, const QString& name)
{
    if (const auto* property = GetPropInfo(instance, name))
        return *property;
    throw EPropertyError(
        QStringLiteral("Property %1 does not exist in %2").arg(name, instance ? instance->ClassName() : QString()));
}

QVariant Converted(const TPropInfo& property, const QVariant& value)
{
    const auto refuse = [&property, &value]() -> QVariant {
        throw EConvertError(QStringLiteral("'%1' is no value for %2").arg(value.toString(), property.Name));
    };
    bool fits = true;
    switch (property.PropType.Kind) {
    case tkInteger:
    case tkInt64: {
        const auto number = value.toLongLong(&fits);
        return fits ? QVariant(number) : refuse();
    }
    case tkFloat: {
        const auto number = value.toDouble(&fits);
        return fits ? QVariant(number) : refuse();
    }
    case tkEnumeration:
        if (property.PropType.Name != QLatin1String("Boolean"))
            return value;
        return value.typeId() == QMetaType::QString ? QVariant(StrToBool(value.toString())) : QVariant(value.toBool());
    case tkString:
        return value.canConvert<QString>() ? QVariant(value.toString()) : refuse();
    default:
        return value;
    }
}

}

QVariant GetPropValue(const TPersistent* instance, const QString& name)
{
    return NeedProperty(instance, name).Get(instance);
}

void SetPropValue(TPersistent* instance, const QString& name, const QVariant& value)
{
    const auto& property = NeedProperty(instance, name);
    if (property.IsSubObject) {
        auto* target = property.Get(instance).value<TPersistent*>();
        auto* source = value.value<TPersistent*>();
        if (target && source)
            target->Assign(source);
        return;
    }
    if (!property.Set)
        throw EPropertyError(QStringLiteral("Property %1 is read-only").arg(property.Name));
    property.Set(instance, Converted(property, value));
}

TPersistent* GetObjectProp(const TPersistent* instance, const QString& name)
{
    return GetPropValue(instance, name).value<TPersistent*>();
}

void SetObjectProp(TPersistent* instance, const QString& name, TPersistent* value)
{
    SetPropValue(instance, name, QVariant::fromValue(value));
}

QString GetStrProp(const TPersistent* instance, const QString& name)
{
    return GetPropValue(instance, name).toString();
}

void SetStrProp(TPersistent* instance, const QString& name, const QString& value)
{
    SetPropValue(instance, name, value);
}

QString GetEnumName(const TTypeInfo& type, int value)
{
    return type.EnumNames.value(value);
}

namespace {

int IndexIgnoringCase(const QStringList& names, const QString& name)
{
    for (int i = 0; i < names.size(); ++i)
        if (SameText(names[i], name))
            return i;
    return -1;
}

}

int GetEnumValue(const TTypeInfo& type, const QString& name)
{
    return IndexIgnoringCase(type.EnumNames, name);
}

TPropInfo StoredProperty(const QString& name, const TTypeInfo& type, const QVariant& defaultValue)
{
    TPropInfo property { name, type, {}, {}, defaultValue, false };
    property.Get = [name, defaultValue](const TPersistent* object) { return object->StoredValue(name, defaultValue); };
    property.Set = [name](TPersistent* object, const QVariant& value) { object->SetStoredValue(name, value); };
    return property;
}
