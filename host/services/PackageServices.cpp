#include "services/PackageServices.h"

#include "packages/PackageList.h"

namespace {

class PackageInfo : public Implements<TInterfacedObject, IOTAPackageInfo> {
public:
    explicit PackageInfo(QStringList required)
        : FRequired(std::move(required))
    {
    }
    QStringList GetRequiredPackages() override { return FRequired; }

private:
    QStringList FRequired;
};

// Classes of catalogues are registered from the start: there is nothing to load.
class PaletteComponent : public Implements<TInterfacedObject, IOTAComponentPaletteItem> {
public:
    explicit PaletteComponent(QString className)
        : FClassName(std::move(className))
    {
    }
    QString GetName() override { return FClassName; }
    void EnsurePackageLoaded() override { }
    QString GetClassName() override { return FClassName; }

private:
    QString FClassName;
};

class PaletteGroup : public Implements<TInterfacedObject, IOTAPaletteGroup> {
public:
    explicit PaletteGroup(QString name)
        : FName(std::move(name))
    {
    }
    void Add(const InterfacePtr<IOTABasePaletteItem>& item) { FItems << item; }
    QString GetName() override { return FName; }
    void EnsurePackageLoaded() override { }
    int GetCount() override { return int(FItems.size()); }
    InterfacePtr<IOTABasePaletteItem> GetItem(int index) override { return FItems.value(index); }

private:
    QString FName;
    QList<InterfacePtr<IOTABasePaletteItem>> FItems;
};

}

PackageServices::PackageServices(const PackageList& packages)
    : FPackages(&packages)
{
    for (int i = 0; i < packages.Count(); ++i)
        FComponents << packages.ComponentNames(i);
}

void PackageServices::Close()
{
    FPackages = nullptr;
    FComponents.clear();
}

bool PackageServices::Has(int package) const
{
    return FPackages && package >= 0 && package < FPackages->Count();
}

int PackageServices::GetPackageCount()
{
    return FPackages ? FPackages->Count() : 0;
}

QString PackageServices::GetPackageName(int package)
{
    return Has(package) ? FPackages->Package(package).Package : QString();
}

int PackageServices::GetComponentCount(int package)
{
    return int(FComponents.value(package).size());
}

QString PackageServices::GetComponentName(int package, int component)
{
    return FComponents.value(package).value(component);
}

InterfacePtr<IOTAPackageInfo> PackageServices::GetPackage(int package)
{
    return Has(package) ? InterfacePtr<IOTAPackageInfo>(New<PackageInfo>(FPackages->Package(package).Requires))
                        : nullptr;
}

InterfacePtr<IOTAPaletteGroup> PackageServices::GetBaseGroup()
{
    const auto base = New<PaletteGroup>(QString());
    QHash<QString, InterfacePtr<PaletteGroup>> pages;
    for (int i = 0; FPackages && i < FPackages->Count(); ++i)
        for (const auto& described : FPackages->Package(i).Classes) {
            if (described.Palette.isEmpty() || described.Abstract)
                continue;
            auto& page = pages[described.Palette];
            if (!page) {
                page = New<PaletteGroup>(described.Palette);
                base->Add(InterfacePtr<IOTABasePaletteItem>(page.get()));
            }
            page->Add(InterfacePtr<IOTABasePaletteItem>(New<PaletteComponent>(described.Name).get()));
        }
    return InterfacePtr<IOTAPaletteGroup>(base.get());
}

std::optional<qlonglong> PackageServices::IdentToInt(const QString& typeName, const QString& identifier) const
{
    return FPackages ? FPackages->IdentToInt(typeName, identifier) : std::nullopt;
}

QString PackageServices::IntToIdent(const QString& typeName, qlonglong value) const
{
    return FPackages ? FPackages->IntToIdent(typeName, value) : QString();
}
