#include "packages/ClassMaker.h"

#include "classes/Controls.h"
#include "packages/PropertyMaker.h"
#include "rtl/SysUtils.h"

TClass ClassMaker::Make(const CatalogueClass& described, const std::function<TClass(const CatalogueClass&)>& made)
{
    if (described.BuiltIn) {
        const auto platform = FScope.FindPlatformClass(described.Name);
        if (!platform)
            FTell(described.Offset, QStringLiteral("There is no built-in class %1").arg(described.Name));
        const bool asItIs = described.Properties.isEmpty() && described.Includes.isEmpty();
        return !platform || asItIs ? platform : Define(described, platform);
    }
    if (described.Parent.isEmpty())
        return nullptr; // the reader told of it
    const auto parent = Parent(described, made);
    if (!parent) {
        const bool comesLater = FScope.FindDeclared(described.Parent) && !SameText(described.Name, described.Parent);
        FTell(described.Offset,
            (comesLater ? QStringLiteral("%1 stands before its parent %2")
                        : QStringLiteral("%1 has the unknown parent %2"))
                .arg(described.Name, described.Parent));
        return nullptr;
    }
    return Define(described, parent);
}

TClass ClassMaker::Parent(
    const CatalogueClass& described, const std::function<TClass(const CatalogueClass&)>& made) const
{
    const auto* declared = FScope.FindDeclared(described.Parent);
    if (declared && !SameText(described.Name, described.Parent))
        return made(*declared);
    return FScope.FindPlatformClass(described.Parent);
}

TClass ClassMaker::Define(const CatalogueClass& described, TClass parent)
{
    auto info = std::make_unique<TClassInfo>();
    info->Name = described.Name;
    info->Parent = parent;
    info->Unit = described.Unit;
    info->Group = FScope.Own().Group;
    info->Abstract = described.Abstract;
    info->Properties = Properties(described, PlatformBase(parent));
    if (described.DefaultSize && parent.InheritsFrom(TControl::Class()))
        info->Init = [size = *described.DefaultSize](
                         TPersistent* made) { static_cast<TControl*>(made)->SetBounds(QRect(QPoint(), size)); };
    const auto defined = DefineClass(std::move(info));
    if (described.Connection)
        SetConnectionRoles(defined, *described.Connection);
    if (described.DataSet)
        SetDataSetRoles(defined, *described.DataSet);
    RegisterClass(defined);
    return defined;
}

TClass ClassMaker::PlatformBase(TClass aClass) const
{
    auto walk = aClass;
    while (walk && FScope.FindPlatformClass(walk.ClassName()) != walk)
        walk = walk.ClassParent();
    return walk;
}

QList<TPropInfo> ClassMaker::Properties(const CatalogueClass& described, TClass base) const
{
    QList<TPropInfo> properties;
    for (const auto& include : described.Includes) {
        if (const auto* set = FScope.FindSet(include.Name))
            AddProperties(*set, base, properties);
        else
            FTell(include.Offset, QStringLiteral("There is no property set %1").arg(include.Name));
    }
    AddProperties(described.Properties, base, properties);
    return properties;
}

// What stands later replaces what an included set declared.
void ClassMaker::AddProperties(
    const QList<CatalogueProperty>& declared, TClass base, QList<TPropInfo>& properties) const
{
    const PropertyMaker maker(FScope);
    for (const auto& property : declared) {
        QString why;
        auto made = maker.Make(property, base, why);
        if (!made) {
            FTell(property.Offset, why);
            continue;
        }
        const auto earlier = std::find_if(properties.begin(), properties.end(),
            [&property](const TPropInfo& other) { return SameText(other.Name, property.Name); });
        if (earlier == properties.end())
            properties << std::move(*made);
        else
            *earlier = std::move(*made);
    }
}
