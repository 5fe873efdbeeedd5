#include "services/Host.h"

#include "design/DataControls.h"
#include "designer/Designer.h"
#include "designer/FormValues.h"
#include "packages/PackageList.h"
#include "rtl/TRegistry.h"
#include "rtl/TTimer.h"
#include "services/ComponentEditors.h"
#include "services/Facades.h"
#include "services/HostDesigns.h"
#include "services/IdeServices.h"
#include "services/Module.h"
#include "services/PackageLibrary.h"
#include "services/PackageServices.h"
#include "services/Project.h"

Host::Host(HostParts parts)
    : FParts(std::move(parts))
    , FUndo(std::make_unique<UndoStack>())
    , FEditors(std::make_unique<ComponentEditors>())
    , FDesigns(std::make_unique<HostDesigns>(*this))
    , FServices(MakeFacade<IdeServices>(*this))
{
    if (FParts.MessageBox)
        SetMessageDlgHandler(FParts.MessageBox);
    if (FParts.Exceptions)
        SetExceptionHandler(FParts.Exceptions);
    if (FParts.Clock)
        SetClock(FParts.Clock);
    if (FParts.Registry)
        TRegistryStore::SetDefault(FParts.Registry);
    BorlandIDEServices = static_cast<IOTAServices*>(FServices);
    SetDesignHost(FDesigns.get());
    SetWizardRegistrar([this](const InterfacePtr<IOTAWizard>& wizard) { FWizards << wizard; });
    if (FParts.Packages) {
        FPackageServices = MakeFacade<PackageServices>(*FParts.Packages);
        FormValues::SetIntegerNames(FPackageServices);
        AddService(static_cast<IOTAPackageServices*>(FPackageServices));
    }
    AddPackageVerbs();
    RegisterFieldControl(QStringLiteral("TField"), QStringLiteral("TDBEdit"));
    RegisterFieldControl(QStringLiteral("TBooleanField"), QStringLiteral("TDBCheckBox"));
    RegisterFieldControl(QStringLiteral("TMemoField"), QStringLiteral("TDBMemo"));
    RegisterFieldControl(QStringLiteral("TGraphicField"), QStringLiteral("TDBImage"));
}

Host::~Host()
{
    while (!FPackages.empty())
        UnloadPackage(FPackages.back()->FileName());
    CloseAll();
    FWizards.clear();
    Notifiers.Destroy();
    FServices->Close();
    FormValues::SetIntegerNames(nullptr);
    if (FPackageServices)
        FPackageServices->Close();
    SetWizardRegistrar({});
    SetDesignHost(nullptr);
    BorlandIDEServices.Clear();
    if (FParts.Registry)
        TRegistryStore::SetDefault(nullptr);
    if (FParts.Clock)
        SetClock(nullptr);
    if (FParts.Exceptions)
        SetExceptionHandler({});
    if (FParts.MessageBox)
        SetMessageDlgHandler({});
}

bool Host::Notify(TOTAFileNotification code, const QString& fileName)
{
    bool cancelled = false;
    Notifiers.Walk([&](IOTAIDENotifier& listener) {
        bool cancel = false;
        listener.FileNotification(code, fileName, cancel);
        cancelled = cancelled || cancel;
    });
    return cancelled;
}

void Host::AddService(IInterface* service)
{
    FServices->AddService(service);
}

void Host::Report(const Problem& problem)
{
    FReported << problem;
    if (FParts.OnProblem)
        FParts.OnProblem(problem);
}

void Host::Changed()
{
    if (FParts.OnChange)
        FParts.OnChange();
}

Module* Host::FindOpenModule(const QString& fileName) const
{
    if (fileName.isEmpty())
        return nullptr;
    if (auto* exact = FByFile.value(fileName))
        return exact;
    return FByLowerFile.value(fileName.toLower());
}

Module* Host::FormModule(const QString& formName, const Project* first) const
{
    if (formName.isEmpty())
        return nullptr;
    const auto* preferred = first ? first : FActive;
    Module* found = nullptr;
    for (auto* module : FModules) {
        if (!module->HasDesigner() || !SameText(module->FormName(), formName))
            continue;
        if (module->OwningProject() == preferred)
            return module;
        found = found ? found : module;
    }
    return found;
}

Module* Host::ModuleOfRoot(const TComponent* root) const
{
    for (auto* module : FModules)
        if (root && module->HasDesigner() && module->TheDesigner().Root() == root)
            return module;
    return nullptr;
}

namespace {

QStringList NamesOf(const Module& module)
{
    QStringList names { module.PluginName(), module.UnitFile(), module.FormFile() };
    names.removeAll(QString());
    names.removeDuplicates();
    return names;
}

}

void Host::Index(Module& module)
{
    for (const auto& name : NamesOf(module)) {
        FByFile.insert(name, &module);
        FByLowerFile.insert(name.toLower(), &module);
    }
}

// By the names that it has, or by those that it had.
void Host::Unindex(Module& module, bool isRenamed)
{
    if (isRenamed) {
        const auto isThis = [&module](auto entry) { return entry.value() == &module; };
        FByFile.removeIf(isThis);
        FByLowerFile.removeIf(isThis);
        return;
    }
    for (const auto& name : NamesOf(module)) {
        FByFile.remove(name, &module);
        FByLowerFile.remove(name.toLower(), &module);
    }
}

void Host::SetFront(Module& module)
{
    FCurrent = &module;
    ActivateClassGroup(module.ClassGroup());
    Changed();
}

void Host::ModuleChanged(Module&)
{
    Changed();
}

bool Host::IsModified() const
{
    return std::any_of(FModules.begin(), FModules.end(), [](Module* module) { return module->IsModified(); });
}

QList<UnitReference> Host::UnitsNeededBy(TClass aClass) const
{
    auto known = FParts.Packages ? FParts.Packages->Info(aClass).Units : QList<UnitReference>();
    if (!known.isEmpty() || aClass.UnitName().isEmpty())
        return known;
    return { UnitReference::FromName(aClass.UnitName()) };
}

const GeometryPlaces* Host::GeometryOf(TClass aClass) const
{
    if (!FParts.Packages)
        return nullptr;
    auto known = FGeometry.find(aClass);
    if (known == FGeometry.end()) {
        const auto places = FParts.Packages->Info(aClass).Geometry;
        known = FGeometry.insert(aClass, places.Left.isEmpty() ? std::nullopt : std::optional(places));
    }
    return *known ? &**known : nullptr;
}
