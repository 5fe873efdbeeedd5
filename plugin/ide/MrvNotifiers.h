#pragma once

#include "design/DesignIntf.h"
#include "toolsapi/ToolsAPI.h"

#include <QHash>

class TNotifierList;

// What the notifiers report, each with the sender first.
using TOnFileNotification
    = std::function<void(TObject* sender, TOTAFileNotification notifyCode, const QString& fileName, bool& cancel)>;
using TNotifierEvent = std::function<void(TObject* sender)>;
using TOnBeforeCompile = std::function<void(TObject* sender, IOTAProject* project, bool& cancel)>;
using TOnAfterCompile = std::function<void(TObject* sender, bool succeeded)>;
using TNotifyComponentRenamed
    = std::function<void(TObject* sender, TOTAHandle component, const QString& oldName, const QString& newName)>;
using TNotifyModuleRenamed = std::function<void(TObject* sender, const QString& oldName, const QString& newName)>;
using TNotifyItem = std::function<void(TObject* sender, const InterfacePtr<IDesigner>& designer, TPersistent* item)>;
using TNotifyDesigner = std::function<void(TObject* sender, const InterfacePtr<IDesigner>& designer)>;
using TNotifyDesignerInintialized = TNotifyDesigner;
using TNotifyDesignerClosed = TNotifyDesigner;
using TNotifySelectionChanged
    = std::function<void(TObject* sender, const InterfacePtr<IDesignerSelections>& selection)>;

// The base of the listeners that the plug-in registers with the IDE. A listener does nothing of its own: it remembers
// what it is registered on, forwards each callback to an event, and knows how to remove itself. The IDE holds the
// references; a TNotifierList only knows where each one is.
class TMrvCustomNotifier : public TNotifierObject {
public:
    // Logs.
    explicit TMrvCustomNotifier(const QString& className);
    // Leaves the list, if it still stands there. Logs.
    ~TMrvCustomNotifier() override;
    // Forgets the events, so that tearing the listener down is not reported. Logs.
    virtual void EraseCallback();

    // The file's name, or what else it listens to; SetName changes it.
    QString FName;
    // What AddNotifier gave; -1 when not registered.
    int FIndex = -1;
    // May be nil; nil once the listener has left it.
    TNotifierList* FOwner = nullptr;
    // Place in FOwner, -1 if none.
    int FOwnerIndex = -1;

    // Leaves a gap in the list.
    void LeaveList();

protected:
    void SetName(const QString& name);
    void JoinList(TNotifierList* list);

private:
    void LogStep(const QString& step) const;
    QString FClassName;
};

// Every listener on a module, a form or the IDE. An entry is nil once its listener was destroyed: the gap keeps the
// indexes of the others right. Freeing the list clears it.
class TNotifierList {
public:
    TNotifierList() = default;
    TNotifierList(const TNotifierList&) = delete;
    TNotifierList& operator=(const TNotifierList&) = delete;
    ~TNotifierList();

    // Gives the index.
    int Add(TMrvCustomNotifier* notifier);
    int Count() const { return int(FItems.size()); }
    TMrvCustomNotifier* Item(int index) const { return FItems.at(index); }
    // Leaves a gap.
    void Forget(int index);
    // The listener at the index takes the name.
    void Rename(int index, const QString& name);
    // The first index whose listener bears that name, case told apart; gaps are skipped; -1 for none.
    int IndexOfName(const QString& name) const;
    // Unhooks every listener in order: its events are erased first, so that a model that goes away hears nothing of it;
    // the module listeners keep theirs and tell of their end. Raises what the IDE raised first, once all are unhooked.
    void Clear();

private:
    QList<TMrvCustomNotifier*> FItems;
    QMultiHash<QString, int> FByName;
};

// Listens to one form editor.
class TFormNotifier : public NotifierOf<TMrvCustomNotifier, IOTAFormNotifier> {
public:
    // Registered when it returns; made by New. `owner` may be nil.
    TFormNotifier(const InterfacePtr<IOTAFormEditor>& editor, TNotifierList* owner);
    ~TFormNotifier() override;

    void Destroyed() override;
    void Modified() override;
    void FormActivated() override;
    void FormSaving() override;
    void ComponentRenamed(TOTAHandle component, const QString& oldName, const QString& newName) override;
    void EraseCallback() override;

    // Cleared without a release, here and in the destructor, unlike the other listeners.
    InterfacePtr<IOTAFormEditor> FFormEditor;
    TNotifyComponentRenamed FOnComponentRenamed;
    TNotifierEvent FOnDestroyed;
    TNotifierEvent FOnFormActivated;
    TNotifierEvent FOnFormSaving;
    TNotifierEvent FOnModified;
};

// Listens to the IDE's file events.
class TIdeNotifier : public NotifierOf<TMrvCustomNotifier, IOTAIDENotifier> {
public:
    TIdeNotifier(const InterfacePtr<IOTAServices>& services, TNotifierList* owner);
    ~TIdeNotifier() override;

    void Destroyed() override;
    void FileNotification(TOTAFileNotification notifyCode, const QString& fileName, bool& cancel) override;
    void BeforeCompile(IOTAProject* project, bool& cancel) override;
    void AfterCompile(bool succeeded) override;
    void EraseCallback() override;

    InterfacePtr<IOTAServices> FServices;
    TOnFileNotification FOnFileNotification;
    TNotifierEvent FOnDestroyed;
    TOnBeforeCompile FOnBeforeCompile;
    TOnAfterCompile FOnAfterCompile;
};

// Listens to one module.
class TModuleNotifier : public NotifierOf<TMrvCustomNotifier, IOTAModuleNotifier> {
public:
    TModuleNotifier(const InterfacePtr<IOTAModule>& module, TNotifierList* owner);
    ~TModuleNotifier() override;

    void Destroyed() override;
    bool CheckOverwrite() override { return true; }
    void ModuleRenamed(const QString& newName) override;

    InterfacePtr<IOTAModule> FModule;
    TNotifierEvent FOnDestroyed;
    TNotifyModuleRenamed FOnModuleRenamed;
};

// Listens to all designers.
class TDesignNotification : public Implements<TInterfacedObject, IDesignNotification> {
public:
    ~TDesignNotification() override;
    void ItemDeleted(const InterfacePtr<IDesigner>& designer, TPersistent* item) override;
    void ItemInserted(const InterfacePtr<IDesigner>& designer, TPersistent* item) override;
    void ItemsModified(const InterfacePtr<IDesigner>& designer) override;
    void SelectionChanged(
        const InterfacePtr<IDesigner>& designer, const InterfacePtr<IDesignerSelections>& selection) override;
    void DesignerOpened(const InterfacePtr<IDesigner>& designer, bool resurrecting) override;
    void DesignerClosed(const InterfacePtr<IDesigner>& designer, bool goingDormant) override;
    void SetActiveDesigner(const InterfacePtr<IDesigner>& designer) { FDesigner = designer; }

    // The designer last heard of; let go without a release at the end.
    InterfacePtr<IDesigner> FDesigner;
    TNotifyItem FOnItemDeleted;
    TNotifyItem FOnItemInserted;
    TNotifyDesigner FOnItemsModified;
    TNotifySelectionChanged FOnSelectionChanged;
    TNotifyDesignerInintialized FOnDesignerInitialized;
    TNotifyDesignerClosed FOnDesignerClosed;
    bool FEnableFieldSelections = true;
};
