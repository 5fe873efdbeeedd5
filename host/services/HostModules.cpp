#include "designer/Designer.h"
#include "rtl/SysUtils.h"
#include "services/Facades.h"
#include "services/Host.h"
#include "services/Module.h"
#include "services/Project.h"

#include <QFileInfo>

// Opening, closing and saving modules.

namespace {

// A form file beside the unit, in the order in which designers name them.
QString FormBeside(const QString& unitFile)
{
    for (const auto* extension : { ".dfm", ".fmx", ".lfm", ".xfm", ".nfm" }) {
        const auto name = ChangeFileExt(unitFile, QString::fromLatin1(extension));
        if (QFileInfo::exists(name))
            return name;
    }
    return {};
}

}

ModuleDescription Host::DescriptionOf(const QString& fileName, Project*& project) const
{
    for (auto* candidate : project ? QList<Project*> { project } : FProjects)
        if (const auto* found = candidate->FindFile(fileName)) {
            project = candidate;
            return *found;
        }
    ModuleDescription description;
    description.FileName = QFileInfo(fileName).absoluteFilePath();
    description.FormFile = FormBeside(description.FileName);
    description.Exists = QFileInfo::exists(fileName);
    return description;
}

Module* Host::OpenModuleFile(const QString& fileName, Project* project)
{
    if (auto* open = FindOpenModule(fileName))
        return open;
    const auto description = DescriptionOf(fileName, project);
    if (FOpening.contains(description.FileName))
        return nullptr;
    if (!description.Exists && (description.FormFile.isEmpty() || !QFileInfo::exists(description.FormFile)))
        throw EFOpenError(QStringLiteral("%1: there is no such file").arg(description.FileName));
    if (Notify(ofnFileOpening, description.FileName))
        return nullptr;
    FOpening << description.FileName;
    const Finally opened([this, &description] { FOpening.removeOne(description.FileName); });
    auto* module = MakeFacade<Module>(*this, project, description);
    Problems problems;
    module->Load(problems);
    AddModule(*module);
    for (const auto& problem : std::as_const(problems))
        Report(problem);
    if (module->HasDesigner())
        for (const auto& listener : DesignNotifications())
            AtEventBorder([&] { listener->DesignerOpened(&module->TheDesigner(), false); });
    Notify(ofnFileOpened, description.FileName);
    Changed();
    return module->IsOpen() ? module : nullptr;
}

InterfacePtr<IOTAModule> Host::OpenModule(const QString& fileName, Project* project)
{
    return OpenModuleFile(fileName, project);
}

Module* Host::ShowModule(const QString& fileName, Project* project)
{
    auto* module = OpenModuleFile(fileName, project);
    if (module)
        module->BringToFront(Module::View::Form);
    return module;
}

Module* Host::OpenFormOfClass(Project* project, const QString& className)
{
    const auto* description = project ? project->FindFormClass(className) : nullptr;
    if (!description)
        return nullptr;
    try {
        auto* module = OpenModuleFile(description->FileName, project);
        return module && module->HasDesigner() ? module : nullptr;
    } catch (const EFOpenError&) {
        return nullptr; // the project's reader told of the missing file
    }
}

void Host::AddModule(Module& module)
{
    FModules << &module;
    IndexModules();
    if (!FCurrent)
        SetFront(module);
    if (!module.HasDesigner())
        return;
    for (auto* other : std::as_const(FModules))
        if (other != &module && other->HasDesigner())
            other->TheDesigner().ResolveLinks();
}

bool Host::CloseModule(Module& module)
{
    if (!module.IsOpen())
        return true;
    if (Notify(ofnFileClosing, module.UnitFile()))
        return false;
    RemoveModule(module);
    return true;
}

// References to components of the form that goes are cleared in the live forms that have them, but not in their files.
void Host::RemoveModule(Module& module)
{
    if (module.HasDesigner())
        for (const auto& listener : DesignNotifications())
            AtEventBorder([&] { listener->DesignerClosed(&module.TheDesigner(), false); });
    std::vector<std::unique_ptr<Designer::Quiet>> quiet;
    for (auto* other : std::as_const(FModules))
        quiet.push_back(std::make_unique<Designer::Quiet>(other->TheDesigner()));
    auto* project = module.OwningProject();
    const auto formClass = module.RootClass();
    module.Close();
    quiet.clear();
    FModules.removeOne(&module);
    IndexModules();
    if (project)
        project->ForgetForm(formClass);
    if (FCurrent == &module) {
        FCurrent = nullptr;
        if (!FModules.isEmpty())
            SetFront(*FModules.last());
    }
    Changed();
}

Module* Host::Reload(Module& module)
{
    const auto fileName = module.UnitFile();
    auto* project = module.OwningProject();
    const bool inFront = FCurrent == &module;
    if (!CloseModule(module))
        return &module;
    return inFront ? ShowModule(fileName, project) : OpenModuleFile(fileName, project);
}

QList<FileContent> Host::FilesOf(const QList<Module*>& modules) const
{
    QList<FileContent> files;
    for (auto* module : modules)
        for (const auto& file : module->ChangedFiles())
            if (!files.contains(file))
                files << file;
    return files;
}

Failure Host::Save(const QList<Module*>& modules)
{
    QList<Module*> changed;
    for (auto* module : modules)
        if (module->IsModified())
            changed << module;
    for (auto* module : std::as_const(changed)) {
        bool allowed = true;
        module->Notifiers.Walk([&](IOTAModuleNotifier& listener) { allowed = listener.CheckOverwrite() && allowed; });
        if (!allowed)
            return FileError(module->UnitFile(), QStringLiteral("a plug-in does not want the file to be overwritten"));
        if (const auto failure = module->ChangedOnDisk())
            return failure;
    }
    for (auto* module : std::as_const(changed)) {
        module->Notifiers.Walk([](IOTAModuleNotifier& listener) { listener.BeforeSave(); });
        module->FormEditor().Tell([](IOTAFormNotifier& listener) {
            listener.BeforeSave();
            listener.FormSaving();
        });
    }
    if (const auto failure = SaveTogether(FilesOf(changed)))
        return failure;
    for (auto* module : std::as_const(changed)) {
        module->NoteSaved();
        module->FormEditor().Tell([](IOTAFormNotifier& listener) { listener.AfterSave(); });
        module->Notifiers.Walk([](IOTAModuleNotifier& listener) { listener.AfterSave(); });
    }
    Changed();
    return {};
}

Failure Host::Save(Module& module)
{
    return Save(QList<Module*> { &module });
}

Failure Host::SaveAll()
{
    return Save(FModules);
}
