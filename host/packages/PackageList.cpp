#include "packages/PackageList.h"

#include "packages/PackageLoader.h"
#include "rtl/SysUtils.h"

#include <QCoreApplication>
#include <QDir>

PackageList::PackageList() = default;

PackageList::~PackageList()
{
    for (const auto aClass : std::as_const(FRegistered))
        UnRegisterClass(aClass);
    for (const auto aClass : std::as_const(FReplaced))
        RegisterClass(aClass);
}

Problems PackageList::Load(const QString& folder)
{
    PackageLoader loader;
    loader.Load(folder);
    FPackages = std::move(loader.Packages);
    FRegistered = loader.Registered;
    FReplaced = loader.Replaced;
    for (const auto& made : std::as_const(loader.Made))
        FEntries.insert(made.Class, { made.Package, made.Described });
    for (const auto& package : FPackages)
        for (const auto& type : package->Types)
            for (auto named = type.Values.cbegin(); named != type.Values.cend(); ++named)
                FNamedIntegers[type.Name.toLower()].insert(named.key().toLower(), named.value());
    return loader.Found;
}

int PackageList::Count() const
{
    return int(FPackages.size());
}

const Catalogue& PackageList::Package(int index) const
{
    return *FPackages.at(size_t(index));
}

int PackageList::IndexOf(const QString& package) const
{
    for (size_t i = 0; i < FPackages.size(); ++i)
        if (SameText(FPackages[i]->Package, package))
            return int(i);
    return -1;
}

QStringList PackageList::ComponentNames(int index) const
{
    QStringList names;
    for (const auto& described : Package(index).Classes)
        if (!described.Palette.isEmpty() && !described.Abstract)
            names << described.Name;
    return names;
}

namespace {

template <class Value>
void complete(Value& value, const std::optional<Value>& parents)
{
    if (parents && value == Value())
        value = *parents;
}

void complete(QString& value, const QString& parents)
{
    if (value.isEmpty())
        value = parents;
}

QList<UnitReference> unitsOf(const QStringList& scoped)
{
    QList<UnitReference> units;
    for (const auto& unit : scoped)
        units.append({ unit, PlainUnitName(unit) });
    return units;
}

}

ComponentInfo PackageList::Info(TClass aClass) const
{
    ComponentInfo info;
    std::optional<bool> container;
    for (auto walk = aClass; walk; walk = walk.ClassParent()) {
        const auto entry = FEntries.constFind(walk);
        const auto* described = entry == FEntries.constEnd() ? nullptr : entry->Class;
        if (info.Units.isEmpty() && !walk.UnitName().isEmpty())
            info.Units = unitsOf(QStringList(walk.UnitName()) + (described ? described->AlsoUses : QStringList()));
        if (!described)
            continue;
        if (walk == aClass) {
            info.Package = entry->Package->Package;
            info.Palette = described->Palette;
            info.Bitmap = described->Bitmap;
            info.Creates = described->Creates;
        }
        complete(info.Draw, described->Draw);
        complete(info.CaptionProperty, described->CaptionProperty);
        complete(info.Geometry, described->Geometry);
        complete(info.Bindings, described->Bindings);
        if (!container)
            container = described->Container;
    }
    info.Container = container.value_or(false);
    return info;
}

std::optional<qlonglong> PackageList::IdentToInt(const QString& typeName, const QString& identifier) const
{
    const auto names = FNamedIntegers.value(typeName.toLower());
    const auto found = names.constFind(identifier.toLower());
    return found == names.constEnd() ? std::nullopt : std::optional(*found);
}

QString PackageList::IntToIdent(const QString& typeName, qlonglong value) const
{
    for (const auto& package : FPackages)
        for (const auto& type : package->Types)
            if (SameText(type.Name, typeName))
                return type.Values.key(value);
    return {};
}

QString PlainUnitName(const QString& scoped)
{
    static const QStringList scopes { QStringLiteral("System"), QStringLiteral("Data"), QStringLiteral("Datasnap"),
        QStringLiteral("Vcl"), QStringLiteral("Winapi"), QStringLiteral("Xml"), QStringLiteral("Web"),
        QStringLiteral("Soap"), QStringLiteral("Bde"), QStringLiteral("IBX"), QStringLiteral("VCLTee") };
    // Younger than the scopes: these were never called otherwise.
    static const QStringList young { QStringLiteral("Bind"), QStringLiteral("Net"), QStringLiteral("Tether"),
        QStringLiteral("Bindings") };
    const auto parts = scoped.split(u'.');
    const bool hasScope = parts.size() > 1 && scopes.contains(parts.first(), Qt::CaseInsensitive)
        && !young.contains(parts.at(1), Qt::CaseInsensitive);
    return hasScope ? parts.last() : scoped;
}

QString PackagesFolder()
{
    const auto named = qEnvironmentVariable("MORVANE_PACKAGES");
    return named.isEmpty() ? QCoreApplication::applicationDirPath() + QStringLiteral("/packages") : named;
}
