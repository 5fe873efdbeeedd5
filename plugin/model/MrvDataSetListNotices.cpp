// What the design notification and the file events tell.

#include "data/TCustomZAConnection.h"
#include "data/TDataSet.h"
#include "data/TField.h"
#include "design/DesignIntf.h"
#include "ide/MrvSvcManager.h"
#include "model/MrvComponentList.h"
#include "model/MrvConnectionAttr.h"
#include "model/MrvDataSetAttr.h"
#include "model/MrvDataSetKind.h"
#include "model/MrvDataSetList.h"
#include "model/MrvFieldAttr.h"
#include "rtl/SysUtils.h"
#include "support/MrvConst.h"
#include "support/MrvUtils.h"

namespace {

bool IsDataItem(const TPersistent* item)
{
    return IsDataSetKind(item)
        || (item
            && (item->InheritsFrom(TField::Class()) || item->InheritsFrom(TCustomZAConnection::Class())
                || item->InheritsFrom(TFieldDef::Class())));
}

void LogItem(const TPersistent* item)
{
    if (item)
        TMrvUtils::AddLogMessage(QStringLiteral("AItem class name is ") + item->ClassName());
}

}

void TDataSetList::EndMultiDelete()
{
    EnableEvents(deSelectionChanged);
    if (std::exchange(FNeedEndUpdate, false) && FEvents)
        FEvents->EndUpdate(false);
}

// A deletion of many components is one batch for the tree.
void TDataSetList::GuardMultiDelete(const InterfacePtr<IDesigner>& designer)
{
    const auto selections = CreateSelectionList();
    designer->GetSelections(selections);
    if (selections->GetCount() < 2) {
        EndMultiDelete();
        return;
    }
    DisableEvents(deSelectionChanged);
    if (!FNeedEndUpdate)
        FEvents->BeginUpdate();
    FNeedEndUpdate = true;
}

void TDataSetList::TakeFieldDeletion(TObject* sender, TField* field)
{
    auto* attr = GetDataSetAttrByObj(field->DataSet());
    if (!attr)
        return;
    if (field->HasState(csAncestor)) {
        FItem.ResyncIndex(0);
        if (attr->GetFieldCount() > 0)
            UpdateFieldsInfo(attr);
    }
    DoRefreshChildObject(sender, attr, field, field->Name(), 2);
}

void TDataSetList::OnItemDeleted(TObject* sender, const InterfacePtr<IDesigner>& designer, TPersistent* item)
{
    try {
        if (!FEvents || !IsDataItem(item))
            return;
        if (designer)
            GuardMultiDelete(designer);
        if (!IsEventEnabled(deOnItemDeleted) || FDormant)
            return;
        if (auto* fieldDef = dynamic_cast<TFieldDef*>(item)) {
            // The one class that edits its definitions at design time.
            auto* attr = GetDataSetAttrByFieldDefObj(fieldDef);
            auto* dataSet = attr ? attr->GetDataSetComponent() : nullptr;
            if (dataSet && SameText(dataSet->ClassName(), u"TZAScratchTable"))
                InternalUpdateFieldDefs(attr, true, false);
        } else if (auto* field = dynamic_cast<TField*>(item)) {
            TakeFieldDeletion(sender, field);
        }
    } catch (const std::exception& exception) {
        TMrvUtils::LogFailure(QStringLiteral("TDataSetList.OnItemDeleted failed!"), exception);
        LogItem(item);
    }
}

void TDataSetList::OnItemInserted(TObject*, const InterfacePtr<IDesigner>&, TPersistent* item)
{
    try {
        // An insertion is taken from OnComponentRenamed.
        if (!IsEventEnabled(deOnItemInserted) || FDormant)
            return;
    } catch (const std::exception& exception) {
        TMrvUtils::LogFailure(QStringLiteral("TDataSetList.OnItemInserted - failed!"), exception);
        LogItem(item);
    }
}

void TDataSetList::OnItemModified(TObject*, const InterfacePtr<IDesigner>& designer)
{
    const auto selections = CreateSelectionList();
    try {
        // A form that inherits may have several objects selected that are not what is being deleted.
        if (FNeedEndUpdate)
            EndMultiDelete();
        if (!FSvcManager->GetActivePrj() || !IsEventEnabled(deOnItemModified) || !designer || FDormant)
            return;
        designer->GetSelections(selections);
        InternalOnItemModified(InterfaceCast<IDesigner>(designer), selections);
    } catch (const std::exception& exception) {
        TMrvUtils::LogFailure(QStringLiteral("TDataSetList.OnItemModified - failed!"), exception);
        TMrvUtils::AddLogMessage(QStringLiteral("Contents designer selection is: "));
        for (int i = 0; i < selections->GetCount(); ++i)
            if (const auto* item = selections->Get(i))
                TMrvUtils::AddLogMessage(
                    Format(QStringLiteral("SelectionList[%d].ClassName: "), { i }) + item->ClassName());
    }
}

// Who leaves the list of what is selected is selected no more: nobody else would clear the mark.
void TDataSetList::ForgetSelection()
{
    for (const auto& attr : FSelectionChache.Held())
        attr->FSelected = false;
    FSelectionChache.Clear();
}

void TDataSetList::OnSelectionChanged(TObject*, const InterfacePtr<IDesignerSelections>& selections)
{
    if (!IsEventEnabled(deSelectionChanged) || !FEvents || !selections)
        return;
    ForgetSelection();
    for (int i = 0; i < selections->GetCount(); ++i) {
        auto* component = dynamic_cast<TComponent*>(selections->Get(i));
        TCustomComponentAttr* attr = nullptr;
        if (dynamic_cast<TField*>(component))
            attr = GetFieldAttrByObj(component);
        else if (dynamic_cast<TCustomZAConnection*>(component))
            attr = GetConnectionAttrByObj(component);
        else if (IsDataSetKind(component))
            attr = GetDataSetAttrByObj(component);
        if (!attr)
            continue;
        attr->FSelected = true;
        FSelectionChache.Add(attr);
    }
    FEvents->OnSelectionChanged();
}

// Only datasets: the wrappers of forms and connections keep the old unit name. In any case of letters, as wrappers of a
// C++ project bear "Unit1.CPP" for a module that calls itself "Unit1.cpp".
void TDataSetList::OnModuleRenamed(TObject*, const QString& oldName, const QString& newName)
{
    for (int i = 0; i < GetItemCount(); ++i)
        if (SameText(GetItem(i)->FUnitName, oldName))
            GetItem(i)->FUnitName = newName;
}

// A parent form that was read after the forms that inherit from it, or again.
void TDataSetList::LinkInherited()
{
    for (int i = 0; i < GetItemCount(); ++i) {
        auto* attr = GetItem(i);
        const auto* component = attr->FComponent.get();
        const bool isLinked = attr->FAncestor && attr->FAncestor->FComponent;
        if (component && component->HasState(csAncestor) && !isLinked)
            attr->SetComponentName(attr->ComponentName());
    }
}

void TDataSetList::OnFileNotification(TObject*, TOTAFileNotification code, const QString& fileName, bool&)
{
    if (!IsEventEnabled(deFileNotification) || !FEvents || code != ofnFileOpened)
        return;
    const auto extension = ExtractFileExt(fileName);
    if (!(SameText(extension, sPAS.Text()) || SameText(extension, sCPP.Text()))
        || !FSvcManager->IsModuleFromProject(fileName))
        return;
    const auto module = FSvcManager->GetModuleSvc()->FindModule(fileName);
    if (!module)
        return;
    TComponentList list(FSvcManager.get(), this);
    list.FCustomComponentAttrClass = TCustomComponentAttr::Create<TDataSetAttr>;
    if (FBuildInProgress)
        return;
    GetDsListFromModule(module, list);
    QSet<const TComponent*> connections;
    for (const auto& gathered : list.FItem.Held())
        if (const auto* connection = dynamic_cast<TCustomZAConnection*>(gathered->FComponent.get()))
            connections << connection;
    RegroupUsersOf(connections);
    LinkInherited();
    FEvents->OnRefreshDatasetList(fileName, rmAdd);
    // It may hold the masters of other modules, and these its own.
    RefreshMasters(fileName);
}

void TDataSetList::OnPackageInstalled(TObject*)
{
    if (!IsEventEnabled(dePackageInstalled))
        return;
    // What a package brings is looked up when it is used.
}

void TDataSetList::OnProjectClose(TObject*)
{
    if (!IsEventEnabled(deProjectClose) || !FEvents)
        return;
    Clear();
    FEvents->OnProjectClosed();
}
