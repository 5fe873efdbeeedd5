#include "packages/CatalogueScope.h"

#include "classes/TComponent.h"
#include "rtl/SysUtils.h"

PlatformClasses RegisteredPlatformClasses()
{
    PlatformClasses classes;
    for (const auto aClass : RegisteredClasses())
        classes.insert(aClass.ClassName().toLower(), aClass);
    return classes;
}

CatalogueScope::CatalogueScope(const QList<const Catalogue*>& visible, const PlatformClasses& platform)
    : FVisible(visible)
    , FPlatform(platform)
{
    // The first that declares a name counts: walk from the farthest to the nearest.
    for (auto catalogue = visible.crbegin(); catalogue != visible.crend(); ++catalogue) {
        for (const auto& type : (*catalogue)->Types)
            FTypes.insert(type.Name.toLower(), &type);
        for (const auto& described : (*catalogue)->Classes)
            FClasses.insert(described.Name.toLower(), &described);
        const auto& sets = (*catalogue)->PropertySets;
        for (auto set = sets.cbegin(); set != sets.cend(); ++set)
            FSets.insert(set.key(), &set.value());
    }
}

const CatalogueType* CatalogueScope::FindType(const QString& name) const
{
    return FTypes.value(name.toLower());
}

const CatalogueClass* CatalogueScope::FindDeclared(const QString& name) const
{
    return FClasses.value(name.toLower());
}

const QList<CatalogueProperty>* CatalogueScope::FindSet(const QString& name) const
{
    return FSets.value(name);
}

TClass CatalogueScope::FindPlatformClass(const QString& name) const
{
    return FPlatform.value(name.toLower());
}

bool CatalogueScope::IsComponent(const QString& name) const
{
    auto walk = name;
    for (qsizetype steps = 0; steps <= FClasses.size(); ++steps) {
        const auto* declared = FindDeclared(walk);
        if (!declared || declared->BuiltIn || SameText(declared->Parent, walk))
            return FindPlatformClass(walk).InheritsFrom(TComponent::Class());
        walk = declared->Parent;
    }
    return false;
}
