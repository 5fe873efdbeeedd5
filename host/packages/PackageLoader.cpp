#include "packages/PackageLoader.h"

#include "packages/CatalogueReader.h"
#include "packages/ClassMaker.h"
#include "packages/SubObjects.h"

#include <QDir>
#include <QFile>

namespace {

// No catalogue is as large as that.
constexpr qint64 largestFile = 16 * 1024 * 1024;

}

void PackageLoader::Load(const QString& folder)
{
    const QDir place(folder);
    if (!place.exists()) {
        Found << FileError(folder, QStringLiteral("The folder of the component catalogues is not there"));
        return;
    }
    FPlatform = RegisteredPlatformClasses();
    for (const auto& name : place.entryList({ QStringLiteral("*.json") }, QDir::Files, QDir::Name))
        ReadFile(place.filePath(name));
    QStringList path;
    for (const auto& read : FRead)
        Install(read.first, path);
}

void PackageLoader::ReadFile(const QString& fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        Found << FileError(fileName, file.errorString());
        return;
    }
    if (file.size() > largestFile) {
        Found << FileError(fileName, QStringLiteral("Too large for a catalogue"));
        return;
    }
    auto tree = std::make_unique<JsonTree>(fileName, file.readAll(), Found);
    auto content = CatalogueReader(*tree, Found).Read(fileName);
    if (!content)
        return;
    const auto key = content->Package.toLower();
    if (const auto earlier = FRead.find(key); earlier != FRead.end()) {
        Found << tree->ProblemAt(0,
            QStringLiteral("The package %1 is in %2 already")
                .arg(content->Package, QFileInfo(earlier->second.Content->FileName).fileName()),
            Problem::Error);
        return;
    }
    FRead[key] = { std::move(tree), std::make_unique<Catalogue>(std::move(*content)) };
}

void PackageLoader::Tell(const Catalogue& catalogue, qsizetype offset, const QString& text)
{
    Found << FRead[catalogue.Package.toLower()].Tree->ProblemAt(offset, text);
}

// Installs what a package requires, then itself.
void PackageLoader::Install(const QString& package, QStringList& path)
{
    if (FInstalled.contains(package) || path.contains(package))
        return;
    path << package;
    auto& content = FRead[package].Content;
    const auto& catalogue = *content;
    for (const auto& needed : catalogue.Requires) {
        const auto key = needed.toLower();
        if (FRead.count(key) == 0)
            Tell(catalogue, 0, QStringLiteral("The package %1, which this one requires, is not there").arg(needed));
        else if (path.contains(key))
            Tell(catalogue, 0, QStringLiteral("This package and %1 require each other").arg(needed));
        else
            Install(key, path);
    }
    path.removeLast();
    Packages.push_back(std::move(content));
    FInstalled.insert(package, &catalogue);
    MakeClasses(catalogue);
}

QList<const Catalogue*> PackageLoader::VisibleFrom(const Catalogue& catalogue) const
{
    QList<const Catalogue*> visible { &catalogue };
    for (qsizetype i = 0; i < visible.size(); ++i)
        for (const auto& needed : visible[i]->Requires)
            if (const auto* other = FInstalled.value(needed.toLower()); other && !visible.contains(other))
                visible << other;
    return visible;
}

void PackageLoader::MakeClasses(const Catalogue& catalogue)
{
    const CatalogueScope scope(VisibleFrom(catalogue), FPlatform);
    for (const auto& described : catalogue.Classes) {
        const auto key = std::pair(catalogue.Group, described.Name.toLower());
        const auto declared = FDeclaredBy.constFind(key);
        if (declared != FDeclaredBy.constEnd()) {
            Tell(catalogue, described.Offset,
                QStringLiteral("%1 is in the package %2 already").arg(described.Name, *declared));
            continue;
        }
        FDeclaredBy.insert(key, catalogue.Package);
        MakeClass(catalogue, scope, described);
    }
    for (const auto& described : catalogue.Classes) {
        const auto* item = described.Item.isEmpty() ? nullptr : scope.FindDeclared(described.Item);
        if (item && FMade.value(item) && FMade.value(&described))
            SetItemClass(FMade.value(&described), FMade.value(item));
        else if (!described.Item.isEmpty())
            Tell(catalogue, described.Offset, QStringLiteral("There is no item class %1").arg(described.Item));
    }
}

void PackageLoader::MakeClass(const Catalogue& catalogue, const CatalogueScope& scope, const CatalogueClass& described)
{
    const auto platform = scope.FindPlatformClass(described.Name);
    ClassMaker maker(scope, [&](qsizetype offset, const QString& text) { Tell(catalogue, offset, text); });
    const auto made = maker.Make(described, [this](const CatalogueClass& other) { return FMade.value(&other); });
    if (!made)
        return;
    FMade.insert(&described, made);
    Made.append({ made, &catalogue, &described });
    if (made == platform)
        return;
    Registered << made;
    if (platform && platform.Group() == made.Group())
        Replaced << platform;
}
