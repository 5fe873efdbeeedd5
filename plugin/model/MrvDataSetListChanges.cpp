// Inserts, deletes and renames, as the form notifiers and the design notification tell them.

#include "data/TCustomZAConnection.h"
#include "data/TCustomZASQL.h"
#include "data/TDataSet.h"
#include "data/TDataSource.h"
#include "data/TField.h"
#include "ide/MrvDeferredCallbacks.h"
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

// Actions of DoRefreshChildObject.
constexpr int FieldAdded = 0;
constexpr int FieldRenamed = 1;
constexpr int FieldDeleted = 2;
constexpr int InheritedFieldAdded = 5;

// What the log says of the component of a renaming that failed.
QString ClassTextOf(const InterfacePtr<IOTAFormEditor>& editor, TOTAHandle handle)
{
    try {
        if (!editor)
            return QStringLiteral("<unable extract - Form editor is not valid>");
        if (const auto* component = TMrvUtils::ExtractComponent(editor->GetComponentFromHandle(handle), nullptr))
            return component->ClassName();
    } catch (const std::exception&) {
        // Said below.
    }
    return QStringLiteral("unable extract component instance");
}

}

void TDataSetList::OnComponentRenamed(
    TObject* sender, TOTAHandle handle, const QString& oldName, const QString& newName)
{
    if (!IsEventEnabled(deComponentRenamed) || FDormant || (oldName.isEmpty() && newName.isEmpty()))
        return;
    const auto* notifier = dynamic_cast<TFormNotifier*>(sender);
    const auto editor = notifier ? notifier->FFormEditor : nullptr;
    try {
        if (!editor)
            return;
        auto* component
            = TMrvUtils::ExtractComponent(editor->GetComponentFromHandle(handle), FSvcManager->GetActiveDesigner());
        if (!oldName.isEmpty() && !newName.isEmpty()) {
            DoComponentRename(sender, component, oldName, newName);
        } else if (newName.isEmpty()) {
            DoComponentDelete(sender, component);
        } else {
            auto* module = editor->GetModule();
            DoComponentInserted(sender, component, newName, module ? module->GetFileName() : QString());
        }
    } catch (const std::exception& exception) {
        TMrvUtils::LogFailure(QStringLiteral("TDataSetList.OnComponentRenamed - failed!"), exception);
        TMrvUtils::AddLogMessage(
            Format(QStringLiteral("Params: OldName is %s, NewName is %s;\r\n\t\t\t\tClassType is %s"),
                { oldName, newName, ClassTextOf(editor, handle) }));
    }
}

InterfacePtr<IMrvCustomComponentAttr> TDataSetList::InsertDataSet(
    TComponent* component, const QString& name, const QString& unitName)
{
    // The model knows it already where a modification came before the insertion.
    if (auto* known = GetDataSetAttrByObj(component); known && !known->FDeleted) {
        known->SetComponentName(name);
        return known;
    }
    const auto attr = New<TDataSetAttr>(nullptr, component->ClassType(), FSvcManager.get(), this);
    attr->SetFormName(TMrvUtils::GetOwnerName(component));
    attr->FUnitName = unitName;
    attr->SetComponent(component);
    attr->TakeSession(component);
    attr->SetComponentName(name);
    attr->FSelected = true;
    FSelectionChache.Add(attr.get());
    attr->FIsInserted = true;
    FItem.Add(attr.get());
    FItem.Sort();
    FEvents->OnComponentInsert(attr);
    // One that follows its parent form is not selected for it: its connection is looked at once that has settled.
    if (component->HasState(csAncestor))
        FDefferedOnSessionChange->AddItem(attr.get(), false);
    return attr;
}

InterfacePtr<IMrvCustomComponentAttr> TDataSetList::InsertConnection(
    TComponent* component, const QString& name, const QString& unitName)
{
    if (auto* known = GetConnectionAttrByObj(component); known && !known->FDeleted) {
        known->SetComponentName(name);
        return known;
    }
    const auto attr = New<TConnectionAttr>(nullptr, component->ClassType(), FSvcManager.get(), this);
    attr->SetFormName(TMrvUtils::GetOwnerName(component));
    attr->FUnitName = unitName;
    attr->SetComponent(component);
    attr->SetComponentName(name);
    attr->FSelected = true;
    FSelectionChache.Add(attr.get());
    attr->FIsInserted = true;
    FConnectionItem.Add(attr.get());
    FEvents->OnComponentInsert(attr);
    // One that comes back by an undo has its datasets again.
    for (int i = 0; i < GetItemCount(); ++i)
        if (GetItem(i)->FSessionName.isEmpty())
            FDefferedOnSessionChange->AddItem(GetItem(i), false);
    return attr;
}

InterfacePtr<IMrvCustomComponentAttr> TDataSetList::DoComponentInserted(
    TObject* sender, TComponent* component, const QString& name, const QString& unitName)
{
    if (!IsEventEnabled(deComponentInsert) || !FEvents || !component)
        return nullptr;
    if (IsDataSetKind(component) && FSvcManager->GetActivePrj())
        return InsertDataSet(component, name, unitName);
    if (component->InheritsFrom(TCustomZAConnection::Class()) && FSvcManager->GetActivePrj())
        return InsertConnection(component, name, unitName);
    if (component->InheritsFrom(TDataSource::Class()))
        FMastersMayDiffer = true;
    auto* field = dynamic_cast<TField*>(component);
    if (!field)
        return nullptr;
    if (field->HasState(csAncestor))
        FDefferedDescendantFieldCallBack->AddItem(field, InheritedFieldAdded);
    else if (auto* dataSet = GetDataSetAttrByObj(field->DataSet()))
        DoRefreshChildObject(sender, dataSet, field, name, FieldAdded);
    return nullptr;
}

void TDataSetList::DoComponentDelete(TObject*, TComponent* component)
{
    if (!IsEventEnabled(deComponentDelete))
        return;
    ForgetSelection();
    if (IsDataSetKind(component)) {
        FItem.ResyncIndex(0);
        if (auto* attr = GetDataSetAttrByObj(component))
            FDefferdDeleteDataSet->AddItem(attr, false);
    }
    if (dynamic_cast<TCustomZAConnection*>(component))
        DeleteConnection(component);
    if (dynamic_cast<TDataSource*>(component))
        FMastersMayDiffer = true;
}

// The datasets of the connection are regrouped before its node goes, those on other forms too: they stand below it.
void TDataSetList::DeleteConnection(TComponent* component)
{
    auto* connection = GetConnectionAttrByObj(component);
    if (!connection)
        return;
    for (int i = 0; i < GetItemCount(); ++i) {
        auto* attr = GetItem(i);
        const auto* used = TMrvUtils::ExtractConnection(attr->FComponent.get());
        const bool isNamed
            = SameText(attr->FSessionName, component->Name()) && (!used || attr->FFormName == connection->FFormName);
        if (used != component && !isNamed)
            continue;
        FDefferedOnSessionChange->AddItem(attr, false);
        attr->FSessionName.clear();
    }
    FDefferdDeleteDataSet->AddItem(connection, false);
}

// Components on other forms: a form that was opened brings their connections back, one that closes takes them.
void TDataSetList::RegroupUsersOf(const QSet<const TComponent*>& connections)
{
    for (int i = 0; !connections.isEmpty() && i < GetItemCount(); ++i) {
        auto* attr = GetItem(i);
        const auto* component = attr->FComponent.get();
        const auto* connection = TMrvUtils::ExtractConnection(attr->FComponent.get());
        if (!connections.contains(connection) || component->Owner() == connection->Owner())
            continue;
        attr->FSessionName = connection->Name();
        FDefferedOnSessionChange->AddItem(attr, false);
    }
}

void TDataSetList::DoComponentRename(
    TObject* sender, TComponent* component, const QString& oldName, const QString& newName)
{
    if (!IsEventEnabled(deComponentRename) || !FEvents)
        return;
    if (IsDataSetKind(component)) {
        if (const InterfacePtr<TDataSetAttr> attr = GetDataSetAttrByObj(component)) {
            // The new name goes qualified, the old one bare.
            FEvents->OnComponentRename(oldName, Format(QStringLiteral("%s.%s"), { attr->FFormName, newName }), attr);
            attr->SetComponentName(newName);
        }
    }
    if (auto* field = dynamic_cast<TField*>(component))
        if (auto* attr = GetDataSetAttrByObj(field->DataSet()))
            DoRefreshChildObject(sender, attr, field, newName, FieldRenamed);
    // A connection tells by its modification; one that follows its parent form is not selected for it.
    auto* connection = dynamic_cast<TCustomZAConnection*>(component);
    if (connection && connection->HasState(csAncestor))
        if (const InterfacePtr<TConnectionAttr> attr = GetConnectionAttrByObj(connection))
            RenameConnection(*attr, connection);
}

void TDataSetList::RenameConnection(TConnectionAttr& attr, TCustomZAConnection* connection)
{
    const auto oldName = attr.ComponentName();
    FEvents->OnSessionRenamed(
        MakeSessionName(oldName, TMrvUtils::GetOwnerName(connection)), MakeSessionName(connection));
    for (int i = 0; i < GetItemCount(); ++i) {
        auto* dataSet = GetItem(i);
        const auto* used = TMrvUtils::ExtractConnection(dataSet->FComponent.get());
        // A dataset of another form's connection of that name keeps it.
        if (used == connection || (dataSet->FSessionName == oldName && !used))
            dataSet->FSessionName = connection->Name();
    }
    attr.SetComponentName(connection->Name());
}

void TDataSetList::DeleteMarkedField(TDataSetAttr* dataSet, TField* field)
{
    auto* attr = dataSet ? dataSet->FieldAttrByObject(field) : nullptr;
    if (!attr)
        return;
    // The wrapper stays in the lists until the tick.
    attr->FDeleted = true;
    FDefferedDeleteField->AddItem(dataSet, false);
}

void TDataSetList::DoRefreshChildObject(
    TObject*, TDataSetAttr* dataSet, TComponent* component, const QString& name, int action)
{
    if (!IsEventEnabled(deRefershChildObject) || !FEvents || !component)
        return;
    const InterfacePtr<TDataSetAttr> held(dataSet);
    auto* field = dynamic_cast<TField*>(component);
    if (field && dataSet) {
        auto* attr = dataSet->FieldAttrByObject(field);
        if (action == FieldRenamed && attr) {
            attr->SetComponentName(name);
            FEvents->OnRefershChildObject(held, name, FieldRenamed);
        } else if (action == FieldDeleted) {
            DeleteMarkedField(dataSet, field);
        } else if (action == FieldAdded || action == InheritedFieldAdded) {
            // Two channels may tell of one field; it has one wrapper.
            if (!attr)
                attr = dataSet->AddField(field, name);
            attr->SetComponentName(name);
            FDefferedAddField->AddItem(dataSet, false);
        }
    } else if (field && action == FieldDeleted) {
        int index = -1;
        DeleteMarkedField(FindDataSetByFieldObj(field, index), field);
    }
    if (action != FieldDeleted && component->InheritsFrom(TDataSet::Class()))
        if (const InterfacePtr<TDataSetAttr> attr = GetDataSetAttrByObj(component))
            FEvents->OnRefreshFieldDefs(attr);
}

void TDataSetList::RefreshFieldAttr(TDataSet* dataSet, TDataSetAttr* attr, TRefreshMode mode)
{
    if (!IsEventEnabled(deRefreshFieldAttr) || !FEvents || !dataSet || !attr)
        return;
    const InterfacePtr<TDataSetAttr> held(attr);
    QList<WeakRef<TField>> fields;
    for (auto* field : dataSet->Fields())
        fields << WeakRef<TField>(field);
    for (const auto& each : std::as_const(fields)) {
        auto* field = each.get();
        if (!field)
            continue;
        if (const InterfacePtr<TFieldAttr> fieldAttr = attr->FieldByName(field->Name(), smName)) {
            const int index = field->Index();
            if (fieldAttr->FIndex != index) {
                FEvents->OnFieldIndexModified(held, fieldAttr, fieldAttr->FIndex, index);
                fieldAttr->SetFieldIndex(index);
            }
            fieldAttr->SetComponentName(field->Name());
        } else if (mode == rmInclude && !field->Name().isEmpty()) {
            DoRefreshChildObject(this, attr, field, field->Name(), FieldAdded);
        }
    }
}

void TDataSetList::UpdateFieldsInfo(TDataSetAttr* attr)
{
    RefreshFieldAttr(attr->GetDataSetComponent(), attr, rmInclude);
    for (const auto& held : attr->FFieldsList.Held()) {
        auto* fieldAttr = static_cast<TFieldAttr*>(held.get());
        auto* field = fieldAttr->FDeleted ? nullptr : fieldAttr->GetFieldComponent();
        if (field)
            DoRefreshChildObject(this, attr, field, field->Name(), FieldRenamed);
    }
}

void TDataSetList::InternalUpdateFieldDefs(TDataSetAttr* attr, bool notify, bool force)
{
    Assert(attr != nullptr, QStringLiteral("MrvClasses"));
    const InterfacePtr<TDataSetAttr> held(attr);
    FItem.ResyncIndex(0);
    auto* dataSet = attr->GetDataSetComponent();
    if (!dataSet || dataSet->HasState(csDestroying))
        return;
    RefreshFieldAttr(dataSet, attr, rmInclude);
    const bool changed = attr->UpdateFieldDefs(force);
    if ((changed || notify) && FEvents)
        FEvents->OnRefershChildObject(held, QString(), FieldAdded);
}

// The datasets of other forms lose the connections and the masters that go with the unit; they are looked after once it
// is closed.
void TDataSetList::PrepareDelete(const QString& unitName)
{
    for (int i = 0; i < GetItemCount(); ++i) {
        auto* source = GetMasterSource(GetItem(i)->FComponent.get());
        if (!source || !SameText(TMrvUtils::ExtractUnitName(source), unitName))
            continue;
        FMastersMayDiffer = true;
        FDefferedOnSessionChange->AddItem(GetItem(i), false);
    }
    QSet<const TComponent*> connections;
    for (int i = 0; i < FConnectionItem.Count(); ++i) {
        auto* connection = GetConnection(i)->FComponent.get();
        if (connection && SameText(TMrvUtils::ExtractUnitName(connection), unitName))
            connections << connection;
    }
    RegroupUsersOf(connections);
    for (int i = 0; i < GetItemCount(); ++i)
        if (SameText(GetItem(i)->FUnitName, unitName))
            PrepareDelete(GetItem(i));
}

void TDataSetList::PrepareDelete(TCustomComponentAttr* attr)
{
    attr->FDeleted = true;
}

void TDataSetList::DeleteItems()
{
    for (int i = FItem.Count() - 1; i >= 0; --i)
        if (FItem[i]->FDeleted)
            FItem.Delete(i);
    FItem.ResyncIndex(0);
    for (int i = FConnectionItem.Count() - 1; i >= 0; --i)
        if (FConnectionItem[i]->FDeleted)
            FConnectionItem.Delete(i);
}
