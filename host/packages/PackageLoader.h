#pragma once

#include "packages/CatalogueScope.h"
#include "packages/JsonTree.h"

#include <map>
#include <memory>
#include <vector>

// Does the loading of a PackageList: reads the files, puts them in order, makes the classes.
class PackageLoader {
public:
    struct MadeClass {
        TClass Class;
        const Catalogue* Package;
        const CatalogueClass* Described;
    };

    void Load(const QString& folder);

    Problems Found;
    // In the order of installation: required packages first.
    std::vector<std::unique_ptr<Catalogue>> Packages;
    QList<MadeClass> Made;
    QList<TClass> Registered;
    // Classes of the platform whose name a catalogue's class took over.
    QList<TClass> Replaced;

private:
    void ReadFile(const QString& fileName);
    void Install(const QString& package, QStringList& path);
    QList<const Catalogue*> VisibleFrom(const Catalogue& catalogue) const;
    void MakeClasses(const Catalogue& catalogue);
    void MakeClass(const Catalogue& catalogue, const CatalogueScope& scope, const CatalogueClass& described);
    void Tell(const Catalogue& catalogue, qsizetype offset, const QString& text);

    struct ReadCatalogue {
        std::unique_ptr<JsonTree> Tree;
        std::unique_ptr<Catalogue> Content;
    };
    // By package name in small letters, in the order of the names.
    std::map<QString, ReadCatalogue> FRead;
    // Catalogues that were installed, by package name in small letters.
    QHash<QString, const Catalogue*> FInstalled;
    QHash<const CatalogueClass*, TClass> FMade;
    // Who declares a class, by group and name.
    QHash<std::pair<QString, QString>, QString> FDeclaredBy;
    PlatformClasses FPlatform;
};
