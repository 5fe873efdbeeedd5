#include "services/IdeServices.h"

#include "services/Host.h"
#include "services/Module.h"
#include "services/Project.h"

void* IdeServices::QueryInterface(const TGUID& iid)
{
    if (auto* found = Facade::QueryInterface(iid))
        return found;
    for (auto* service : std::as_const(FMore))
        if (auto* found = FHost ? service->QueryInterface(iid) : nullptr)
            return found;
    return nullptr;
}

int IdeServices::AddNotifier(const InterfacePtr<IOTAIDENotifier>& notifier)
{
    return FHost ? FHost->Notifiers.Add(notifier) : -1;
}

void IdeServices::RemoveNotifier(int index)
{
    if (FHost)
        FHost->Notifiers.Remove(index);
}

InterfacePtr<IOTAProject> IdeServices::GetActiveProject()
{
    return FHost ? InterfacePtr<IOTAProject>(FHost->ActiveProject()) : nullptr;
}

InterfacePtr<IOTAModule> IdeServices::CurrentModule()
{
    return FHost ? InterfacePtr<IOTAModule>(FHost->CurrentModule()) : nullptr;
}

InterfacePtr<IOTAModule> IdeServices::FindModule(const QString& fileName)
{
    if (!FHost)
        return nullptr;
    if (auto* module = FHost->FindOpenModule(fileName))
        return module;
    for (auto* project : FHost->Projects())
        if (SameText(project->GetFileName(), fileName) && !fileName.isEmpty())
            return project;
    return nullptr;
}

InterfacePtr<IOTAModule> IdeServices::FindFormModule(const QString& formName)
{
    return FHost ? InterfacePtr<IOTAModule>(FHost->FormModule(formName)) : nullptr;
}

int IdeServices::GetModuleCount()
{
    return FHost ? int(FHost->Modules().size()) : 0;
}

InterfacePtr<IOTAModule> IdeServices::GetModule(int index)
{
    return FHost ? InterfacePtr<IOTAModule>(FHost->Modules().value(index)) : nullptr;
}

InterfacePtr<IOTAModule> IdeServices::OpenModule(const QString& fileName)
{
    return FHost ? FHost->OpenModule(fileName) : nullptr;
}

TMainMenu* IdeServices::GetMainMenu()
{
    return FHost ? FHost->Parts().MainMenu : nullptr;
}

int IdeServices::AddProductInfo(const QString& companyName, const QString& legalLine, const QString& title,
    const QString& description, const QImage& aboutImage, const QImage&, bool, const QString&, const QString&, bool,
    bool)
{
    if (!FHost)
        return -1;
    FHost->Products << Host::ProductInfo { companyName, legalLine, title, description, aboutImage, FHost->FStarting };
    return int(FHost->Products.size()) - 1;
}
