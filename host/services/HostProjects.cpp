#include "projects/ProjectReader.h"
#include "rtl/SysUtils.h"
#include "services/Facades.h"
#include "services/Host.h"
#include "services/Module.h"
#include "services/Project.h"

#include <QFileInfo>

// Opening and closing projects and groups.

bool Host::Open(const QString& fileName, const QString& activeProject)
{
    CloseAll();
    const auto group = ReadProjectOrGroup(fileName);
    for (const auto& problem : group.AllProblems())
        Report(problem);
    const auto projects = group.AllProjects();
    if (std::none_of(projects.begin(), projects.end(), [](const auto& project) { return project.Readable; }))
        return false;
    OpenProjects(group, activeProject);
    Changed();
    return true;
}

void Host::OpenProjects(const ProjectGroupDescription& group, const QString& activeProject)
{
    FGroupFile = group.FileName;
    if (!FGroupFile.isEmpty())
        Notify(ofnBeginProjectGroupOpen, FGroupFile);
    Project* active = nullptr;
    for (const auto& description : group.AllProjects()) {
        if (!description.Readable || Notify(ofnFileOpening, description.FileName))
            continue;
        auto* project = MakeFacade<Project>(*this, description);
        FProjects << project;
        const bool named = SameText(description.DisplayName, activeProject)
            || SameText(QFileInfo(description.FileName).fileName(), activeProject)
            || SameText(description.FileName, activeProject);
        if (named && !activeProject.isEmpty())
            active = project;
        Notify(ofnFileOpened, description.FileName);
    }
    if (!active && !FProjects.isEmpty())
        active = FProjects.first();
    Activate(active);
    if (!FGroupFile.isEmpty())
        Notify(ofnEndProjectGroupOpen, FGroupFile);
}

void Host::SetActiveProject(Project& project)
{
    if (&project != FActive && project.IsOpen())
        Activate(&project);
}

void Host::Activate(Project* project)
{
    FActive = project;
    if (project)
        ActivateClassGroup(project->ClassGroup());
    Notify(ofnActiveProjectChanged, project ? project->GetFileName() : QString());
    AnnounceAgain();
    if (project && !std::exchange(project->DesktopIsOpen, true))
        OpenDesktop(*project);
    Changed();
}

// Where the attach does not read the modules that are open already, their files are announced once more.
void Host::AnnounceAgain()
{
    if (!FActive || FActive->GetPersonality() == QLatin1String("Delphi.Personality"))
        return;
    const auto modules = FModules;
    for (auto* module : modules)
        if (module->IsOpen() && module->OwningProject() == FActive)
            Notify(ofnFileOpened, module->PluginName());
}

void Host::OpenDesktop(Project& project)
{
    const auto& description = project.Description();
    QStringList files;
    const auto* mainForm = description.FindForm(description.MainForm);
    for (const auto& file : description.OpenFiles)
        if (const auto* module = description.FindFile(file); module && !files.contains(module->FileName))
            files << module->FileName;
    if (mainForm && !files.contains(mainForm->FileName))
        files.prepend(mainForm->FileName);
    for (const auto& file : std::as_const(files)) {
        try {
            if (auto* module = OpenModuleFile(file, &project); module && module->HasDesigner())
                module->BringToFront(Module::View::Form);
        } catch (const EFOpenError&) {
            // the project's reader told of the missing file
        }
    }
    if (mainForm && FindOpenModule(mainForm->FileName) && files.size() > 1)
        FindOpenModule(mainForm->FileName)->BringToFront(Module::View::Form);
}

namespace {

bool IsKnownAsProject(const QString& fileName)
{
    const auto extension = ExtractFileExt(fileName);
    return SameText(extension, u".dpr") || SameText(extension, u".bdsproj") || SameText(extension, u".dproj")
        || SameText(extension, u".dpk");
}

}

// The project is announced first, while a module is in front; then its modules go.
void Host::EndProject(Project& project)
{
    const auto fileName = project.GetFileName();
    Notify(ofnFileClosing, fileName);
    // Plug-ins tell a project by its extension, and know those of one personality; the others close under an alias.
    if (!IsKnownAsProject(fileName))
        Notify(ofnFileClosing, ChangeFileExt(fileName, QStringLiteral(".dproj")));
    const auto modules = FModules;
    for (auto* module : modules)
        if (module->OwningProject() == &project && module->IsOpen()) {
            NotifyClosing(*module);
            RemoveModule(*module);
        }
    if (FActive == &project)
        FActive = nullptr;
    FProjects.removeOne(&project);
    project.Close();
}

// Whatever project closes, a plug-in lets its model go: the active project is announced again, or the next one.
void Host::CloseProject(Project& project)
{
    if (!project.IsOpen())
        return;
    EndProject(project);
    Activate(FActive ? FActive : FProjects.value(0));
}

void Host::CloseAll()
{
    const auto group = std::exchange(FGroupFile, {});
    const bool any = !FProjects.isEmpty() || !FModules.isEmpty();
    if (!group.isEmpty())
        Notify(ofnBeginProjectGroupClose, group);
    while (!FProjects.isEmpty()) {
        auto* last = FProjects.last() == FActive && FProjects.size() > 1 ? FProjects.first() : FProjects.last();
        EndProject(*last);
    }
    const auto rest = FModules;
    for (auto* module : rest)
        if (module->IsOpen()) {
            NotifyClosing(*module);
            RemoveModule(*module);
        }
    if (!group.isEmpty())
        Notify(ofnEndProjectGroupClose, group);
    if (!any)
        return;
    FUndo->Clear();
    Changed();
}
