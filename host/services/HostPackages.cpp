#include "classes/Controls.h"
#include "classes/TClassBuilder.h"
#include "designer/DataKinds.h"
#include "designer/Designer.h"
#include "services/ComponentEditors.h"
#include "services/Host.h"
#include "services/PackageLibrary.h"

#include <QFileInfo>

// Design packages, and the drops that their targets take.

namespace {

auto Find(std::vector<std::unique_ptr<PackageLibrary>>& packages, const QString& fileName)
{
    const auto absolute = QFileInfo(fileName).absoluteFilePath();
    return std::find_if(
        packages.begin(), packages.end(), [&absolute](const auto& package) { return package->FileName() == absolute; });
}

}

bool Host::IsPackageLoaded(const QString& fileName) const
{
    const auto absolute = QFileInfo(fileName).absoluteFilePath();
    return std::any_of(FPackages.begin(), FPackages.end(),
        [&absolute](const auto& package) { return package->FileName() == absolute; });
}

QString Host::LoadPackage(const QString& fileName)
{
    if (IsPackageLoaded(fileName))
        return {};
    auto package = std::make_unique<PackageLibrary>(fileName);
    const auto name = package->FileName();
    FStarting = name;
    const auto failed = package->Start(*this);
    FStarting.clear();
    if (!failed.isEmpty()) {
        FWizards.removeIf(
            [&package](const InterfacePtr<IOTAWizard>& wizard) { return package->IsOfThis(wizard.get()); });
        package->Sweep(*this);
        return failed;
    }
    FPackages.push_back(std::move(package));
    Notify(ofnPackageInstalled, name);
    AnnounceAgain();
    return {};
}

// The wizard goes first, while the package is whole; then its units end, and what is left is swept.
void Host::UnloadPackage(const QString& fileName)
{
    if (Find(FPackages, fileName) == FPackages.end())
        return;
    Notify(ofnPackageUninstalled, QFileInfo(fileName).absoluteFilePath());
    const auto found = Find(FPackages, fileName);
    if (found == FPackages.end())
        return;
    const auto package = std::move(*found);
    FPackages.erase(found);
    FWizards.removeIf([&package](const InterfacePtr<IOTAWizard>& wizard) { return package->IsOfThis(wizard.get()); });
    package->Finalize();
    package->Sweep(*this);
}

// The verbs that a package's exports stand for, while a package has them.
void Host::AddPackageVerbs()
{
    const std::pair<QString, const char*> verbs[] = { { QStringLiteral("Show in Morvane"), "ShowMorvane" },
        { QStringLiteral("Create default control"), "CreateDefaultControl" } };
    for (const auto& [caption, name] : verbs) {
        const auto offers = [this, name = name](const TComponent& component) {
            return PackageExport(name) && (DataKinds::IsDataComponent(component) || DataKinds::IsField(component));
        };
        const auto execute = [this, name = name](TComponent& component, const InterfacePtr<IDesigner>&) {
            using Function = void (*)(const char16_t*, const char16_t*);
            const auto form = component.Owner() ? component.Owner()->Name() : QString();
            const auto own = component.Name();
            if (const auto run = reinterpret_cast<Function>(PackageExport(name)))
                run(reinterpret_cast<const char16_t*>(form.utf16()), reinterpret_cast<const char16_t*>(own.utf16()));
        };
        FEditors->RegisterForAll(offers, { caption, execute, {} });
    }
}

QFunctionPointer Host::PackageExport(const char* name) const
{
    for (const auto& package : FPackages)
        if (const auto found = package->Export(name))
            return found;
    return nullptr;
}

namespace {

// What a drag hovers over when it hovers over the form: a data module has a surface of its own.
class Surface {
public:
    Surface(Designer& designer, TPersistent* target);
    TPersistent* Target() const { return FTarget; }

private:
    std::unique_ptr<TComponent> FContainer;
    TPersistent* FTarget;
};

class TComponentContainer : public TWinControl {
    MRV_CLASS
    using TWinControl::TWinControl;
};

TClass TComponentContainer::Class()
{
    static TClassInfo info;
    static const TClass made
        = TClassBuilder<TComponentContainer>(info, QStringLiteral("TComponentContainer"), TWinControl::Class()).Made();
    return made;
}

Surface::Surface(Designer& designer, TPersistent* target)
    : FTarget(target ? target : designer.Root())
{
    if (FTarget != designer.Root() || dynamic_cast<TControl*>(FTarget))
        return;
    FContainer = std::make_unique<TComponentContainer>();
    FTarget = FContainer.get();
}

}

bool Host::AcceptsDrop(Designer& designer, TPersistent* target, TDragObject& object, int x, int y)
{
    const auto make = FindDragTarget(object.ClassName());
    if (!make || !designer.Root())
        return false;
    const Surface surface(designer, target);
    const auto taker = make(&designer);
    return taker->DragOver(surface.Target(), &object, x, y, dsDragMove);
}

bool Host::DropOnDesigner(Designer& designer, TPersistent* target, TDragObject& object, int x, int y)
{
    const auto make = FindDragTarget(object.ClassName());
    if (!make || !designer.Root())
        return false;
    const Surface surface(designer, target);
    const auto taker = make(&designer);
    if (!taker->DragOver(surface.Target(), &object, x, y, dsDragEnter))
        return false;
    UndoStack::Gesture gesture(*FUndo, QStringLiteral("Drop"));
    try {
        taker->DragDrop(surface.Target(), &object, x, y);
    } catch (...) {
        gesture.Rollback();
        throw;
    }
    return true;
}
