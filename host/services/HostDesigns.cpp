#include "services/HostDesigns.h"

#include "services/ComponentEditors.h"
#include "services/Host.h"
#include "services/Module.h"

InterfacePtr<IComponentEditor> HostDesigns::GetComponentEditor(
    TComponent* component, const InterfacePtr<IDesigner>& designer)
{
    return FHost.Editors().EditorOf(component, designer);
}

InterfacePtr<IRoot> HostDesigns::ActiveRoot()
{
    auto* module = FHost.CurrentModule();
    if (!module || !module->HasDesigner() || module->FrontView() != Module::View::Form)
        return nullptr;
    return &module->TheDesigner();
}

InterfacePtr<IDesigner> HostDesigns::DesignerOfRoot(TComponent* root)
{
    return dynamic_cast<Designer*>(root->DesignerHook());
}
