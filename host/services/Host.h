#pragma once

#include "designer/UndoStack.h"
#include "files/Problem.h"
#include "packages/ComponentInfo.h"
#include "projects/ProjectDescription.h"
#include "rtl/Dialogs.h"
#include "rtl/Guard.h"
#include "services/NotifierList.h"
#include "toolsapi/ToolsAPI.h"

#include <QHash>

#include <memory>

class ComponentEditors;
class Designer;
class HostDesigns;
class IClock;
class IdeServices;
class Module;
class PackageLibrary;
class PackageList;
class PackageServices;
class Project;
class ProjectText;
class TDragObject;
class TMainMenu;
class TRegistryStore;

// The parts of a host that its maker puts in. Nil and empty ones leave the platform's own in place. The maker owns what
// is pointed at and keeps it until the host is gone.
struct HostParts {
    MessageDlgHandler MessageBox;
    ExceptionHandler Exceptions;
    IClock* Clock = nullptr;
    TRegistryStore* Registry = nullptr;
    TMainMenu* MainMenu = nullptr;
    // The installed packages, loaded.
    PackageList* Packages = nullptr;
    // Hears of everything that is wrong in a user's file; also kept in Host::Reported.
    std::function<void(const Problem&)> OnProblem;
    // Another module, or none, is in front; a module changed or was saved; the list of modules or projects changed.
    std::function<void()> OnChange;
};

// The IDE without its windows: projects, modules, designers, and everything that a plug-in is told and asks for. While
// one lives it is the process's IDE (BorlandIDEServices, the wizards, the designers' answers). There is one at a time.
//
// Life: the maker makes it after the classes are registered, and deletes it after its windows. Deleting it unloads the
// packages and closes everything.
//
// Opening a project announces it as the active one first; then its modules are opened, one notification each.
class Host {
public:
    explicit Host(HostParts parts = {});
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    // Closes what is open and opens a project or a group. The project of that name (file name or display name) becomes
    // the active one, else the first. False when nothing could be opened; the reason was reported.
    bool Open(const QString& fileName, const QString& activeProject = {});
    const QList<Project*>& Projects() const { return FProjects; }
    Project* ActiveProject() const { return FActive; }
    void SetActiveProject(Project& project);
    // Changes that were not saved are lost.
    void CloseProject(Project& project);
    void CloseAll();

    const QList<Module*>& Modules() const { return FModules; }
    // The module in front, or nil.
    Module* CurrentModule() const { return FCurrent; }
    // The open module of that file (unit, header, form): exact first, then without regard to case; nil.
    Module* FindOpenModule(const QString& fileName) const;
    // The open module whose form bears that name, that project's first (the active one's for nil); nil.
    Module* FormModule(const QString& formName, const Project* first = nullptr) const;
    Module* ModuleOfRoot(const TComponent* root) const;
    // Opens a module of the project (of any project for nil), or any file. Gives the open one again without telling
    // anybody. Raises EFOpenError when there is no such file, nil when a listener cancelled it.
    Module* OpenModuleFile(const QString& fileName, Project* project = nullptr);
    // As plug-ins ask for it: one that is open already comes to the front, of which the form's listeners are not told.
    InterfacePtr<IOTAModule> OpenModule(const QString& fileName, Project* project = nullptr);
    // Opens and brings to the front.
    Module* ShowModule(const QString& fileName, Project* project = nullptr);
    // The module of the project whose form is of that class; opened; nil.
    Module* OpenFormOfClass(Project* project, const QString& className);
    // Changes that were not saved are lost. False when a listener cancelled it.
    bool CloseModule(Module& module);
    // Reads the files again: closes and opens.
    Module* Reload(Module& module);
    // Called by the module.
    void SetFront(Module& module);
    void ModuleChanged(Module& module);
    void ModuleRenamed(Module& module);

    // Saves together what the modules changed: all of it or nothing. Nothing when it was done.
    Failure Save(const QList<Module*>& modules);
    Failure Save(Module& module);
    Failure SaveAll();
    bool IsModified() const;
    // These and what is saved with them: with a form that was renamed, everything that is unsaved in its project.
    QList<Module*> SavedWith(const QList<Module*>& modules) const;
    // Saves unit and form under another name, which the project and the units that use it take over; the old files
    // stay. Files that are there are written over: ask with WrittenOverBySaveAs which these are.
    Failure SaveAs(Module& module, const QString& fileName);
    QStringList WrittenOverBySaveAs(Module& module, const QString& fileName);

    UndoStack& Undo() { return *FUndo; }

    // Loads a package's library and starts it; "" when it runs, else what failed. It is announced as installed under
    // the library's file name.
    QString LoadPackage(const QString& fileName);
    // Ends it and takes back everything that it registered; nothing happens for one that is not loaded.
    void UnloadPackage(const QString& fileName);
    bool IsPackageLoaded(const QString& fileName) const;
    // The loaded packages' export of that name, or nil.
    QFunctionPointer PackageExport(const char* name) const;
    const QList<InterfacePtr<IOTAWizard>>& Wizards() const { return FWizards; }

    // Offers another service of BorlandIDEServices; held weakly: its owner keeps it until the host is gone.
    void AddService(IInterface* service);
    ComponentEditors& Editors() { return *FEditors; }

    // A drop on a designer, without a window: finds the target that is registered for the drag object, asks it, and
    // lets it drop within one gesture, which is taken back as a whole when it raises; the exception then travels on.
    // `target` is the component under the mouse; the root, or for nil the root. False when nobody takes it.
    bool DropOnDesigner(Designer& designer, TPersistent* target, TDragObject& object, int x, int y);
    bool AcceptsDrop(Designer& designer, TPersistent* target, TDragObject& object, int x, int y);

    void Report(const Problem& problem);
    const Problems& Reported() const { return FReported; }

    // What AddProductInfo was told.
    struct ProductInfo {
        QString CompanyName;
        QString LegalLine;
        QString Title;
        QString Description;
        QImage AboutImage;
        // The library that told of it, and takes it along.
        QString Package;
    };
    QList<ProductInfo> Products;
    // The units that a component of that class needs: what the catalogues say, else the class's own.
    QList<UnitReference> UnitsNeededBy(TClass aClass) const;
    // Where position and size of that class's controls stand; nil for the ordinary place.
    const GeometryPlaces* GeometryOf(TClass aClass) const;

    NotifierList<IOTAIDENotifier> Notifiers;
    // Tells the listeners; gives whether one of them cancelled.
    bool Notify(TOTAFileNotification code, const QString& fileName);
    const HostParts& Parts() const { return FParts; }

private:
    friend class IdeServices;
    void OpenProjects(const ProjectGroupDescription& group, const QString& activeProject);
    void AddPackageVerbs();
    void OpenDesktop(Project& project);
    void Activate(Project* project);
    void AnnounceAgain();
    void EndProject(Project& project);
    bool NotifyClosing(Module& module);
    void AddModule(Module& module);
    void RemoveModule(Module& module);
    void Index(Module& module);
    void Unindex(Module& module, bool isRenamed = false);
    ModuleDescription DescriptionOf(const QString& fileName, Project*& project) const;
    void Changed();
    QList<ProjectText*> ProjectsSavedWith(const QList<Module*>& modules) const;
    QList<FileContent> FilesOf(const QList<Module*>& modules, const QList<ProjectText*>& projects) const;

    HostParts FParts;
    std::unique_ptr<UndoStack> FUndo;
    std::unique_ptr<ComponentEditors> FEditors;
    std::unique_ptr<HostDesigns> FDesigns;
    PackageServices* FPackageServices = nullptr;
    mutable QHash<TClass, std::optional<GeometryPlaces>> FGeometry;
    IdeServices* FServices;
    QList<Project*> FProjects;
    Project* FActive = nullptr;
    QString FGroupFile;
    QList<Module*> FModules;
    Module* FCurrent = nullptr;
    // The module that listeners are being told the end of.
    Module* FClosing = nullptr;
    QMultiHash<QString, Module*> FByFile;
    QMultiHash<QString, Module*> FByLowerFile;
    QStringList FOpening;
    QList<InterfacePtr<IOTAWizard>> FWizards;
    // The library that is being started.
    QString FStarting;
    std::vector<std::unique_ptr<PackageLibrary>> FPackages;
    Problems FReported;
};
