#include "services/ModuleEditors.h"

#include "designer/Designer.h"
#include "services/Module.h"

ComponentReference::ComponentReference(TComponent* component)
    : FComponent(component)
    , FClassName(component ? component->ClassName() : QString())
{
}

TOTAHandle ComponentReference::GetComponentHandle()
{
    return FComponent.get();
}

QString ComponentReference::GetComponentType()
{
    return FClassName;
}

TComponent* ComponentReference::GetComponent()
{
    return FComponent.get();
}

template <class Editor, class... More>
IOTAModule* ModuleEditor<Editor, More...>::GetModule()
{
    return FModule;
}

template <class Editor, class... More>
bool ModuleEditor<Editor, More...>::GetModified()
{
    return FModule && FModule->IsModified();
}

template class ModuleEditor<IOTASourceEditor>;
template class ModuleEditor<IOTAFormEditor, INTAFormEditor>;

QString ModuleSourceEditor::GetFileName()
{
    return FModule ? FModule->PluginName() : QString();
}

void ModuleSourceEditor::Show()
{
    if (FModule)
        FModule->BringToFront(Module::View::Source);
}

QString ModuleFormEditor::GetFileName()
{
    return FModule ? FModule->FormFile() : QString();
}

void ModuleFormEditor::Show()
{
    if (FModule)
        FModule->BringToFront(Module::View::Form);
}

InterfacePtr<IOTAComponent> ModuleFormEditor::GetRootComponent()
{
    if (!FModule)
        return nullptr;
    return New<ComponentReference>(FModule->TheDesigner().Root());
}

InterfacePtr<IOTAComponent> ModuleFormEditor::FindComponent(const QString& name)
{
    auto* found = FModule ? FModule->TheDesigner().GetComponent(name) : nullptr;
    return found ? InterfacePtr<IOTAComponent>(New<ComponentReference>(found)) : nullptr;
}

InterfacePtr<IOTAComponent> ModuleFormEditor::GetComponentFromHandle(TOTAHandle handle)
{
    auto* found = FModule ? FModule->TheDesigner().FromHandle(handle) : nullptr;
    return found ? InterfacePtr<IOTAComponent>(New<ComponentReference>(found)) : nullptr;
}

InterfacePtr<IDesigner> ModuleFormEditor::FormDesigner()
{
    return FModule ? InterfacePtr<IDesigner>(&FModule->TheDesigner()) : nullptr;
}

void ModuleFormEditor::Tell(const std::function<void(IOTAFormNotifier&)>& call)
{
    Notifiers.Walk([&call](IOTANotifier& listener) {
        if (const auto form = InterfaceCast<IOTAFormNotifier>(&listener))
            call(*form);
    });
}
