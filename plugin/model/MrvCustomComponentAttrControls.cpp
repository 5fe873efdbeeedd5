// Where a bound control goes.

#include "design/DesignIntf.h"
#include "ide/MrvSvcManager.h"
#include "model/MrvCustomComponentAttr.h"
#include "model/MrvDropDesigner.h"
#include "support/MrvUtils.h"

namespace {

// The form editor of the drop's own form, where that bears the name.
InterfacePtr<IOTAEditor> DropEditor(const TSvcManager& manager, const QString& formName)
{
    const auto designer = TDropDesigner::Current();
    const auto* root = designer ? designer->GetRoot() : nullptr;
    if (!root || root->Name() != formName)
        return nullptr;
    QString unitName;
    QString formFile;
    QString projectName;
    designer->ModuleFileNames(unitName, formFile, projectName);
    return manager.GetEditorByFileName(unitName, IOTAFormEditor::IID);
}

// The target on the form that the designer shows; nil where that form bears neither name.
TComponent* TargetOn(const InterfacePtr<IDesigner>& designer, const QString& targetName, const QString& formName)
{
    auto* root = designer ? designer->GetRoot() : nullptr;
    if (!root)
        return nullptr;
    TComponent* target = nullptr;
    if (!formName.isEmpty() && root->Name() == formName)
        target = designer->GetComponent(targetName);
    return root->Name() == targetName ? root : target;
}

TComponent* TargetOn(const InterfacePtr<IOTAFormEditor>& editor, const QString& targetName, const QString& formName)
{
    auto* root = TMrvUtils::ExtractComponent(editor->GetRootComponent(), nullptr);
    if (!root)
        return nullptr;
    TComponent* target = nullptr;
    if (!formName.isEmpty() && root->Name() == formName)
        target = TMrvUtils::ExtractComponent(editor->FindComponent(targetName), nullptr);
    return root->Name() == targetName ? root : target;
}

}

int TCustomComponentAttr::IntfCreateControl(const QString&, const QString& formName, int, int, WordBool)
{
    const auto* manager = SvcManager();
    if (!manager)
        return 0;
    auto editor = DropEditor(*manager, formName);
    if (!editor)
        if (const auto module = manager->FindFormModule(formName))
            editor = manager->GetEditorInterface(module, IOTAFormEditor::IID);
    if (editor)
        editor->Show();
    return 0;
}

TComponent* TCustomComponentAttr::GetTargetComponent(const QString& targetName, const QString& formName)
{
    const auto* manager = SvcManager();
    if (!manager)
        return nullptr;
    // Two open forms may bear one name: the form of the drop comes first, then the one in front.
    for (const auto& designer : { TDropDesigner::Current(), GetDesigner() })
        if (auto* target = TargetOn(designer, targetName, formName))
            return target;
    const auto services = manager->GetModuleSvc();
    for (int i = 0; i < services->GetModuleCount(); ++i) {
        const auto editor
            = InterfaceCast<IOTAFormEditor>(manager->GetEditorInterface(services->GetModule(i), IOTAFormEditor::IID));
        if (!editor)
            continue;
        if (auto* target = TargetOn(editor, targetName, formName))
            return target;
    }
    // A name that no form has means the form in front.
    const auto active = manager->GetActiveFormEditor();
    return active ? TMrvUtils::ExtractComponent(active->GetRootComponent(), nullptr) : nullptr;
}
