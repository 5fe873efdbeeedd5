#pragma once

#include "designer/Designer.h"
#include "projects/ProjectDescription.h"
#include "services/ModuleEditors.h"

class Host;
class Project;

// An open module: a unit, with the form that belongs to it where there is one. A facade: after closing it answers nil
// and empty texts. It owns the texts of unit and form as they are edited; the host opens, saves and closes it.
class Module : public Facade<IOTAModule>, public DesignerSite {
public:
    enum class View { Source, Form };

    // `project` is nil for a module that no open project names.
    Module(Host& host, Project* project, const ModuleDescription& description);
    ~Module() override;

    // Reads the files and makes the form's components, without telling anybody. What is wrong is added to the problems;
    // a form that cannot be read leaves the module without a designer.
    void Load(Problems& problems);
    // Answers nil from now on. The listeners of editors and module are told that it goes.
    void Close();
    bool IsOpen() const { return FIsOpen; }

    Project* OwningProject() const { return FProject; }
    const QString& UnitFile() const { return FDescription.FileName; }
    QString PluginName() const { return FDescription.PluginName(); }
    const QString& FormFile() const { return FDescription.FormFile; }
    const ModuleDescription& Description() const { return FDescription; }
    // The root's name as it is now; empty without a form that could be read.
    QString FormName() const { return HasDesigner() ? FDesigner->RootName() : QString(); }
    QString RootClass() const { return FDesigner->RootClassName(); }
    // Its form, or the class of its form, bears another name than on disk. It is saved together with what refers to it.
    bool IsRootRenamed() const;
    bool HasDesigner() const { return FIsOpen && FDesigner->Form(); }
    // Always there; without a form where HasDesigner is false.
    Designer& TheDesigner() { return *FDesigner; }
    const Designer& TheDesigner() const { return *FDesigner; }
    ModuleFormEditor& FormEditor() { return *FFormEditor; }

    bool IsModified();
    // The files that differ from what is on disk.
    QList<FileContent> ChangedFiles();
    // What was read or saved last differs from what is on disk now: somebody else wrote the file.
    Failure ChangedOnDisk() const;
    void NoteSaved();
    // The listeners of module and form are told.
    void TellBeforeSave();
    void TellAfterSave();
    // How the unit stands on disk, as far as it was read.
    const QList<FileContent>& UnitOnDisk() const { return FUnitOnDisk; }
    // The form file's bytes as they are to be saved; of a form that cannot be read, as they are.
    QByteArray FormBytes() const;
    // The unit stands in memory and on disk like this, under whatever file names.
    void TakeUnit(const QList<FileContent>& inMemory, const QList<FileContent>& onDisk);
    // Both files were saved under other names. Tells its listeners and the IDE's, in this order: the module is renamed,
    // the form editor's listeners are done, a file is opened, by which they find the form again.
    void TakeNames(const QString& unitFile, const QString& formFile, const QList<FileContent>& unit);
    void TellRenamed();
    void BringToFront(View view);
    View FrontView() const { return FView; }

    // IOTAModule
    QString GetFileName() override;
    int GetModuleFileCount() override;
    InterfacePtr<IOTAEditor> GetModuleFileEditor(int index) override;
    int AddNotifier(const InterfacePtr<IOTAModuleNotifier>& notifier) override { return Notifiers.Add(notifier); }
    void RemoveNotifier(int index) override { Notifiers.Remove(index); }
    NotifierList<IOTAModuleNotifier> Notifiers;

    // DesignerSite
    FormDocument* DocumentOf(const QString& className) override;
    QString AncestorOf(const QString& className) override;
    QString ClassGroup() const override;
    void FileNames(QString& unit, QString& form, QString& project) override;
    SourceUnit* Unit() override;
    std::optional<UnitReference> UnitOfRoot(const TComponent* root) override;
    TComponent* RootNamed(const QString& formName) override;
    UndoStack& Undo() override;
    void WillEdit() override;
    void Report(const Problem& problem) override;
    Designer* AncestorDesigner() override;
    QList<Designer*> DescendantDesigners() override;
    QList<Designer*> OpenDesigners() override;
    void NotifyRenamed(TOTAHandle component, const QString& oldName, const QString& newName) override;
    void NotifyModified() override;
    void Activate() override;
    QList<UnitReference> UnitsNeededBy(TClass aClass) override;
    QList<CreatedComponent> CreatedWith(TClass aClass) override;
    const GeometryPlaces* GeometryOf(TClass aClass) const override;
    void WillRenameRoot(const QString& newName) override;
    Failure RenameRoot(const QString& oldName, const QString& newName) override;
    void RootClassChanged(const QString& oldClass, const QString& newClass) override;

private:
    FormRename RenamingOfRoot(const QString& oldName, const QString& newName);
    void LoadForm(Problems& problems);
    void CheckUnit(Problems& problems);

    Host& FHost;
    Project* FProject;
    ModuleDescription FDescription;
    std::unique_ptr<SourceUnit> FUnit;
    bool FUnitTried = false;
    Designer* FDesigner;
    ModuleSourceEditor* FSourceEditor;
    ModuleFormEditor* FFormEditor;
    // The class of the project that the form inherits from; empty for a form that inherits nothing.
    QString FAncestorClass;
    // The root's name and class as they stand on disk.
    QString FNameOnDisk;
    QString FClassOnDisk;
    QByteArray FFormOnDisk;
    QList<FileContent> FUnitOnDisk;
    View FView = View::Form;
    bool FIsOpen = true;
};
