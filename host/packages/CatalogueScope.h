#pragma once

#include "packages/Catalogue.h"

// The classes that the platform brings, by name in small letters. Taken before the first catalogue adds to them.
using PlatformClasses = QHash<QString, TClass>;
PlatformClasses RegisteredPlatformClasses();

// What the names in a catalogue mean: its own declarations first, then those of the packages that it requires, then
// the platform's classes. Names are compared without regard to case. The catalogues outlive the scope.
class CatalogueScope {
public:
    // `visible`: the catalogue itself first, then the required ones, directly or not.
    CatalogueScope(const QList<const Catalogue*>& visible, const PlatformClasses& platform);

    const Catalogue& Own() const { return *FVisible.first(); }
    // Nil for a name that no visible catalogue declares.
    const CatalogueType* FindType(const QString& name) const;
    const CatalogueClass* FindDeclared(const QString& name) const;
    // Nil for a name that no visible catalogue gives a property set.
    const QList<CatalogueProperty>* FindSet(const QString& name) const;
    TClass FindPlatformClass(const QString& name) const;

    bool IsClass(const QString& name) const { return FindDeclared(name) || FindPlatformClass(name); }
    // Whether objects of that class stand by themselves on a form; others belong to the object that publishes them.
    bool IsComponent(const QString& name) const;

private:
    QList<const Catalogue*> FVisible;
    const PlatformClasses& FPlatform;
    QHash<QString, const CatalogueType*> FTypes;
    QHash<QString, const CatalogueClass*> FClasses;
    QHash<QString, const QList<CatalogueProperty>*> FSets;
};
