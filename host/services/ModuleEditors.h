#pragma once

#include "services/NotifierList.h"
#include "toolsapi/ToolsAPI.h"

#include "classes/TPersistent.h"
#include "rtl/TInterfacedObject.h"

class Designer;
class Module;

// A component as the tools API names it; held weakly.
class ComponentReference : public Implements<TInterfacedObject, IOTAComponent, INTAComponent> {
public:
    explicit ComponentReference(TComponent* component);
    TOTAHandle GetComponentHandle() override;
    QString GetComponentType() override;
    TComponent* GetComponent() override;

private:
    WeakRef<TComponent> FComponent;
    QString FClassName;
};

// What the editors of a module share.
template <class Editor, class... More>
class ModuleEditor : public Facade<Editor, More...> {
public:
    explicit ModuleEditor(Module& module)
        : FModule(&module)
    {
    }
    IOTAModule* GetModule() override;
    bool GetModified() override;
    int AddNotifier(const InterfacePtr<IOTANotifier>& notifier) override { return Notifiers.Add(notifier); }
    void RemoveNotifier(int index) override { Notifiers.Remove(index); }
    // The module closed: answers nil from now on, and its listeners are told.
    void Close()
    {
        Notifiers.Destroy();
        FModule = nullptr;
    }

    NotifierList<IOTANotifier> Notifiers;

protected:
    Module* FModule;
};

class ModuleSourceEditor : public ModuleEditor<IOTASourceEditor> {
public:
    using ModuleEditor::ModuleEditor;
    QString GetFileName() override;
    void Show() override;
};

class ModuleFormEditor : public ModuleEditor<IOTAFormEditor, INTAFormEditor> {
public:
    using ModuleEditor::ModuleEditor;
    QString GetFileName() override;
    void Show() override;
    InterfacePtr<IOTAComponent> GetRootComponent() override;
    InterfacePtr<IOTAComponent> FindComponent(const QString& name) override;
    InterfacePtr<IOTAComponent> GetComponentFromHandle(TOTAHandle handle) override;
    InterfacePtr<IDesigner> FormDesigner() override;

    // Calls the listeners that know forms.
    void Tell(const std::function<void(IOTAFormNotifier&)>& call);
};
