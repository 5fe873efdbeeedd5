// Ways from a dataset to its form, its connection and its rows.

#include "classes/Forms.h"
#include "data/TCustomZAConnection.h"
#include "data/TDataSet.h"
#include "design/DesignIntf.h"
#include "ide/MrvSvcManager.h"
#include "model/MrvDataSetAttr.h"
#include "model/MrvDataSetList.h"
#include "rtl/SysUtils.h"
#include "support/MrvUtils.h"

void TDataSetAttr::IntfPreviewData()
{
    auto* dataSet = GetDataSetComponent();
    if (!dataSet)
        return;
    if (!FDataPreview)
        FDataPreview = MakeDataPreview();
    if (!FDataPreview)
        return;
    FDataPreview->SetDataSet(dataSet);
    FDataPreview->SetCaption(
        Format(QStringLiteral("Data Preview {%s.%s}"), { TMrvUtils::GetOwnerName(dataSet), dataSet->Name() }));
    FDataPreview->Show();
}

void TDataSetAttr::IntfSelectConnection()
{
    const auto designer = GetDesigner();
    auto* connection = GetConnection();
    if (designer && connection)
        TMrvUtils::SelectComponent(designer, connection, false);
}

void TDataSetAttr::IntfSelectParent(WordBool showForm)
{
    auto* component = GetComponent();
    if (!component || !component->Owner() || !GetDesigner())
        return;
    if (showForm)
        IntfShowForm();
    const auto designer = GetDesigner();
    auto* owner = component->Owner();
    if (owner->InheritsFrom(TDataModule::Class()))
        designer->SelectComponent(owner);
    else
        TMrvUtils::SelectComponent(designer, owner, false);
}

void TDataSetAttr::IntfShowForm()
{
    auto* manager = SvcManager();
    const auto info = manager ? manager->GetModuleInfo(FUnitName) : nullptr;
    if (info) {
        const auto module = FDataSetList->OpenModule(info);
        const auto form = manager->GetEditorInterface(module, IOTAFormEditor::IID);
        const auto source = manager->GetEditorInterface(module, IOTASourceEditor::IID);
        if (form && source) {
            source->Show();
            form->Show();
        }
    }
    IntfSelect(false);
}

void TDataSetAttr::IntfGetConnectionMenu(const InterfacePtr<IMrvMenu>& menu)
{
    menu->Clear();
    auto* connection = GetConnection();
    const auto editor
        = connection ? GetComponentEditor(connection, InterfaceCast<IDesigner>(FindRootDesigner(connection))) : nullptr;
    if (!editor)
        return;
    for (int verb = 0; verb < editor->GetVerbCount(); ++verb)
        menu->AddItem(editor->GetVerb(verb), QString(), verb);
}

void TDataSetAttr::IntfExecuteConnectionVerb(int verb)
{
    auto* connection = GetConnection();
    const auto editor
        = connection ? GetComponentEditor(connection, InterfaceCast<IDesigner>(FindRootDesigner(connection))) : nullptr;
    if (!editor)
        return;
    if (verb == -1)
        editor->Edit();
    else
        editor->ExecuteVerb(verb);
}
