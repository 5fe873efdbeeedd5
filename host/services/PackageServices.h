#pragma once

#include "designer/FormValues.h"
#include "rtl/TInterfacedObject.h"
#include "toolsapi/ToolsAPI.h"

#include <memory>

class PackageList;

// The installed packages and the palette as plug-ins see them, out of the catalogues. A facade: after Close there are
// no packages.
class PackageServices : public Facade<IOTAPackageServices, IOTAPaletteServices>, public FormValues::IntegerNames {
public:
    explicit PackageServices(const PackageList& packages);
    void Close();

    int GetPackageCount() override;
    QString GetPackageName(int package) override;
    int GetComponentCount(int package) override;
    QString GetComponentName(int package, int component) override;
    InterfacePtr<IOTAPackageInfo> GetPackage(int package) override;
    // A group for each page of the palette, in order of first appearance, with its components.
    InterfacePtr<IOTAPaletteGroup> GetBaseGroup() override;

    std::optional<qlonglong> IdentToInt(const QString& typeName, const QString& identifier) const override;
    QString IntToIdent(const QString& typeName, qlonglong value) const override;

private:
    bool Has(int package) const;
    const PackageList* FPackages;
    QList<QStringList> FComponents;
};
