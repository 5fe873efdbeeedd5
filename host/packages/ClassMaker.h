#pragma once

#include "packages/CatalogueScope.h"

#include <functional>

// Makes run-time classes of what a catalogue describes, and registers them.
class ClassMaker {
public:
    using Tell = std::function<void(qsizetype offset, const QString& text)>;

    ClassMaker(const CatalogueScope& scope, Tell tell)
        : FScope(scope)
        , FTell(std::move(tell))
    {
    }

    // The class, registered. Nil, and the reason told, when its parent is not known (yet). A class that the platform
    // has is itself unless the catalogue adds properties to it; then it is a class of that name with it as parent.
    TClass Make(const CatalogueClass& described, const std::function<TClass(const CatalogueClass&)>& made);

private:
    TClass Parent(const CatalogueClass& described, const std::function<TClass(const CatalogueClass&)>& made) const;
    TClass Define(const CatalogueClass& described, TClass parent);
    QList<TPropInfo> Properties(const CatalogueClass& described, TClass base) const;
    void AddProperties(const QList<CatalogueProperty>& declared, TClass base, QList<TPropInfo>& properties) const;
    TClass PlatformBase(TClass aClass) const;

    const CatalogueScope& FScope;
    Tell FTell;
};
