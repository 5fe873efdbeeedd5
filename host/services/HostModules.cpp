#include "designer/Designer.h"
#include "rtl/SysUtils.h"
#include "services/Facades.h"
#include "services/Host.h"
#include "services/Module.h"
#include "services/Project.h"
#include "services/SaveAs.h"

#include <QFileInfo>
#include <QSet>

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
    if (Notify(ofnFileOpening, description.PluginName()))
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
    Notify(ofnFileOpened, description.PluginName());
    Changed();
    return module->IsOpen() ? module : nullptr;
}

// One that is open comes to the front; one that is just closing does not.
InterfacePtr<IOTAModule> Host::OpenModule(const QString& fileName, Project* project)
{
    auto* known = FindOpenModule(fileName);
    if (known && known != FClosing)
        SetFront(*known);
    return known ? known : OpenModuleFile(fileName, project);
}

bool Host::NotifyClosing(Module& module)
{
    FClosing = &module;
    const Finally closed([this] { FClosing = nullptr; });
    return Notify(ofnFileClosing, module.PluginName());
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
    Index(module);
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
    if (NotifyClosing(module))
        return false;
    // What is unsaved of one renaming goes together.
    const auto together = module.IsModified() ? SavedWith({ &module }) : QList<Module*>();
    auto* project = module.OwningProject();
    RemoveModule(module);
    if (together.size() > 1 && project->IsOpen())
        project->Text().Revert();
    for (auto* other : together)
        if (other != &module && other->IsModified())
            Reload(*other);
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
    const bool wasRenamed = module.IsRootRenamed();
    module.Close();
    quiet.clear();
    FModules.removeOne(&module);
    Unindex(module);
    if (project)
        project->ForgetForm(formClass);
    if (project && wasRenamed)
        project->ForgetFormClasses();
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

// A form that was renamed is saved with everything that refers to it: all that is unsaved in its project.
QList<Module*> Host::SavedWith(const QList<Module*>& modules) const
{
    QSet<const Project*> whole;
    for (const auto* module : FModules)
        if (module->OwningProject() && module->IsRootRenamed())
            whole << module->OwningProject();
    QList<Module*> together;
    for (auto* module : FModules) {
        const bool joins = whole.contains(module->OwningProject())
            && std::any_of(modules.begin(), modules.end(),
                [module](const Module* asked) { return asked->OwningProject() == module->OwningProject(); });
        if (joins || modules.contains(module))
            together << module;
    }
    return together;
}

QList<ProjectText*> Host::ProjectsSavedWith(const QList<Module*>& modules) const
{
    QList<ProjectText*> texts;
    for (auto* project : FProjects) {
        const bool asked
            = modules == FModules || std::any_of(modules.begin(), modules.end(), [project](const Module* module) {
                  return module->OwningProject() == project && module->IsRootRenamed();
              });
        if (asked && project->Text().IsModified())
            texts << &project->Text();
    }
    return texts;
}

QList<FileContent> Host::FilesOf(const QList<Module*>& modules, const QList<ProjectText*>& projects) const
{
    QList<FileContent> files;
    const auto add = [&files](const QList<FileContent>& changed) {
        for (const auto& file : changed)
            if (!files.contains(file))
                files << file;
    };
    for (auto* module : modules)
        add(module->ChangedFiles());
    for (auto* project : projects)
        add(project->ChangedFiles());
    return files;
}

Failure Host::Save(const QList<Module*>& modules)
{
    QList<Module*> changed;
    const auto together = SavedWith(modules);
    const auto projects = ProjectsSavedWith(together);
    for (auto* module : together)
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
    for (auto* project : projects)
        if (const auto failure = project->Refresh())
            return failure;
    for (auto* module : std::as_const(changed))
        module->TellBeforeSave();
    if (const auto failure = SaveTogether(FilesOf(changed, projects)))
        return failure;
    for (auto* project : projects)
        project->NoteSaved();
    for (auto* module : std::as_const(changed)) {
        module->NoteSaved();
        module->TellAfterSave();
    }
    Changed();
    return {};
}

QStringList Host::WrittenOverBySaveAs(Module& module, const QString& fileName)
{
    return ::SaveAs(*this, module, fileName).Overwritten();
}

Failure Host::SaveAs(Module& module, const QString& fileName)
{
    return ::SaveAs(*this, module, fileName).Run();
}

// The names are right everywhere before anybody hears of them.
void Host::ModuleRenamed(Module& module)
{
    Unindex(module, true);
    Index(module);
    module.TellRenamed();
    Changed();
}

Failure Host::Save(Module& module)
{
    return Save(QList<Module*> { &module });
}

Failure Host::SaveAll()
{
    return Save(FModules);
}
