#pragma once

#include "files/Problem.h"
#include "packages/ComponentInfo.h"

#include <memory>

// The installed design packages: what the catalogues of a folder describe. It makes their classes known to the process
// and tells what else is in them. Classes are registered as long as it lives.
//
// RegisterStandardClasses and RegisterDataClasses come before Load.
class PackageList {
public:
    PackageList();
    ~PackageList();
    PackageList(const PackageList&) = delete;
    PackageList& operator=(const PackageList&) = delete;

    // Reads all catalogues of the folder, in name order, those that others require first. Called once. Whatever is
    // wrong in one is told with its place; the rest is installed.
    Problems Load(const QString& folder);

    int Count() const;
    const Catalogue& Package(int index) const;
    // Without regard to case; -1 where there is none.
    int IndexOf(const QString& package) const;
    // The classes that a person can put on a form, in the order of the catalogue.
    QStringList ComponentNames(int index) const;

    // Never fails: a class of which nothing is known has nothing.
    ComponentInfo Info(TClass aClass) const;

    // The number behind a name of an integer type ("clRed" of TColor, "crHandPoint" of TCursor); nothing when it is
    // none. The other way round the name, or an empty string. Names are compared without regard to case.
    std::optional<qlonglong> IdentToInt(const QString& typeName, const QString& identifier) const;
    QString IntToIdent(const QString& typeName, qlonglong value) const;

private:
    struct Entry {
        const Catalogue* Package;
        const CatalogueClass* Class;
    };

    std::vector<std::unique_ptr<Catalogue>> FPackages;
    QHash<TClass, Entry> FEntries;
    QList<TClass> FRegistered;
    QList<TClass> FReplaced;
    QHash<QString, QHash<QString, qlonglong>> FNamedIntegers;
};

// The folder of the catalogues beside the running program, or the one that MORVANE_PACKAGES names.
QString PackagesFolder();
