#pragma once

#include "ide/MrvNotifiers.h"
#include "model/MrvInterfaces.h"

class TDataSetList;

// The model's one window on the IDE: it hides BorlandIDEServices, keeps track of the active form editor, creates and
// lists the listeners on modules and forms, and turns raw file events into calls on the list. Each TDataSetList owns
// one; it exists while a project is attached.
class TSvcManager : public TObject {
public:
    // `events` may be nil; RegisterEvents brings them later. The list is the owner.
    TSvcManager(const InterfacePtr<IMrvEvents>& events, TDataSetList* dataSetList);
    ~TSvcManager() override;
    // Unhooks every listener, as the destructor does where it was not called. Raises what the IDE raises, once all are
    // unhooked; the manager is of no more use then.
    void TearDown();

    void RegisterEvents(const InterfacePtr<IMrvEvents>& events) { FEvents = events; }
    void RegisterProjectNotifier();

    InterfacePtr<IOTAModuleServices> GetModuleSvc() const;
    // The active project or nil. Asking is what keeps FProjectName current.
    InterfacePtr<IOTAProject> GetActivePrj();
    // The designer in front, else the one last heard of; nil when there is none.
    InterfacePtr<IDesigner> GetActiveDesigner() const;

    InterfacePtr<IOTAFormEditor> GetActiveFormEditor() const { return FActiveFormEditor; }
    // Nil clears the current editor and leaves the old one in place.
    void SetActiveFormEditor(const InterfacePtr<IOTAFormEditor>& editor);
    void ClearActiveFormEditor();
    // Makes the form editor of the first open module but the current one the active one.
    void SearchValidFormEditor();

    // The first of the module's editors that has the interface, or nil; nil for a nil module.
    InterfacePtr<IOTAEditor> GetEditorInterface(const InterfacePtr<IOTAModule>& module, const TGUID& iid) const;
    InterfacePtr<IOTAEditor> GetEditorByFileName(const QString& fileName, const TGUID& iid) const;
    // In the given editor, or in the active one for nil; nil where there is neither.
    InterfacePtr<IOTAComponent> FindComponent(const QString& name, const InterfacePtr<IOTAFormEditor>& editor) const;

    // The open module whose form bears that name, or nil.
    InterfacePtr<IOTAModule> FindFormModule(const QString& formName) const;
    // The first project module of that file, without regard to case; nil for none and without a project.
    InterfacePtr<IOTAModuleInfo> GetModuleInfo(const QString& fileName);
    // The first project module of that form name or else that file name, both with regard to case.
    InterfacePtr<IOTAModuleInfo> FindModuleInfo(const QString& formName, const QString& fileName);
    bool IsModuleFromProject(const QString& fileName);
    // Nil for whatever goes wrong. What opens gets a module listener.
    InterfacePtr<IOTAModule> OpenModule(const InterfacePtr<IOTAModuleInfo>& info);
    InterfacePtr<IOTAModule> OpenModule(const QString& fileName);

    // 1 first, then 2; never the same twice.
    int GetUniqueValue() { return ++FUniqueValue; }
    // A flag, not a counter.
    void DisableFileNotifications() { FDisableFileNotifications = true; }
    void EnableFileNotifications() { FDisableFileNotifications = false; }

    // One listener for each file; form files get no module listener. Nil is ignored.
    void AddModuleNotifier(const InterfacePtr<IOTAModule>& module);
    void AddFormNotifier(const InterfacePtr<IOTAModule>& module);

    // Handlers of the listeners.
    void DesignerOpened(TObject* sender, const InterfacePtr<IDesigner>& designer);
    void DesignerClosed(TObject* sender, const InterfacePtr<IDesigner>& designer);
    void FormDestroyed(TObject* sender);
    void FormActivated(TObject* sender);
    void ModuleRenamed(TObject* sender, const QString& oldName, const QString& newName);
    void ModuleDestroyed(TObject* sender);
    void SelectionChanged(TObject* sender, const InterfacePtr<IDesignerSelections>& selection);
    void ComponentRenamed(TObject* sender, TOTAHandle component, const QString& oldName, const QString& newName);
    void FileNotification(TObject* sender, TOTAFileNotification notifyCode, const QString& fileName, bool& cancel);

    InterfacePtr<IOTAServices> FServices;
    InterfacePtr<IOTAFormEditor> FActiveFormEditor;
    InterfacePtr<IOTAFormEditor> FOldActiveFormEditor;
    TOnFileNotification FFileNotification;
    TNotifierEvent FFormActivated;
    TNotifyComponentRenamed FComponentRenamed;
    std::function<void(TObject* sender)> FOnPackageInstalled;
    TNotifierEvent FOnProjectDestroyed;
    // True from the end of the project's module until the next RegisterProjectNotifier.
    bool FProjectDestroyed = false;
    // File name of the active project, without its path.
    QString FProjectName;
    bool FDisableFileNotifications = false;
    InterfacePtr<TDesignNotification> FDesignNotification;
    InterfacePtr<IMrvEvents> FEvents;
    TNotifyModuleRenamed FOnModuleRenamed;
    TNotifySelectionChanged FOnSelectionChanged;
    InterfacePtr<IMrvConfigurationService> FConfigurationService;
    TDataSetList* FDataSetList;
    std::unique_ptr<TNotifierList> FNotifierList;
    int FUniqueValue = 0;

private:
    void FileOpened(const QString& fileName);
    void FileClosing(const QString& fileName);
    InterfacePtr<IOTAModule> ModuleOfOpenedFile(const QString& fileName);
    bool ScanAll() const;
};
