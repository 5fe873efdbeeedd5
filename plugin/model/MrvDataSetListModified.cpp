// The IDE says only that something changed on the selected objects: each is compared with its wrapper.

#include "classes/Forms.h"
#include "data/TCustomZAConnection.h"
#include "data/TCustomZADataSet.h"
#include "data/TDataSource.h"
#include "data/TField.h"
#include "design/DesignIntf.h"
#include "ide/MrvDeferredCallbacks.h"
#include "ide/MrvSvcManager.h"
#include "model/MrvConnectionAttr.h"
#include "model/MrvDataSetAttr.h"
#include "model/MrvDataSetKind.h"
#include "model/MrvDataSetList.h"
#include "model/MrvFieldAttr.h"
#include "model/MrvFormAttr.h"
#include "rtl/Guard.h"
#include "rtl/SysUtils.h"
#include "support/MrvUtils.h"

// One notification: what its items share.
class TDataSetList::TModifiedItems {
public:
    TModifiedItems(TDataSetList& list, const InterfacePtr<IDesigner>& designer)
        : FList(list)
        , FDesigner(designer)
    {
    }
    TModifiedItems(const TModifiedItems&) = delete;
    TModifiedItems& operator=(const TModifiedItems&) = delete;
    ~TModifiedItems()
    {
        if (FUpdating && FList.FEvents)
            FList.FEvents->EndUpdate(true);
    }

    // False stops the whole.
    bool Compare(TPersistent* item);

private:
    void NeedUpdate();
    InterfacePtr<TDataSetAttr> GetAttr(TComponent* component);
    void FieldDefModified(TFieldDef* fieldDef);
    bool DataSetModified(TComponent* component);
    void CarryToDescendants(TDataSetAttr& attr, const QString& newSession);
    void CarryConnection(TDataSetAttr& attr, TDataSetAttr& descendant);
    static bool HasOtherSession(TDataSetAttr& attr, const QString& newSession);
    void MasterModified(TDataSetAttr& attr);
    void SetSession(TDataSetAttr& attr, const QString& newSession);
    void FieldModified(TField* field);
    void OrderModified(TDataSetAttr& attr);
    void FormModified(TComponent* form);
    TFormAttr* KnownForm(TComponent* form);
    QString RenameFormOf(TMrvObjectList& list, TComponent* form);
    void ConnectionModified(TCustomZAConnection* connection);

    TDataSetList& FList;
    InterfacePtr<IDesigner> FDesigner;
    bool FUpdating = false;
};

void TDataSetList::InternalOnItemModified(
    const InterfacePtr<IDesigner>& designer, const InterfacePtr<IDesignerSelections>& selections)
{
    if (!FEvents)
        return;
    TModifiedItems items(*this, designer);
    for (int i = 0; i < selections->GetCount(); ++i)
        if (!items.Compare(selections->Get(i)))
            return;
    if (FMastersMayDiffer)
        RefreshMasters({});
}

void TDataSetList::TModifiedItems::NeedUpdate()
{
    if (std::exchange(FUpdating, true))
        return;
    FList.FEvents->BeginUpdate();
}

// Inserts what the model missed, if it is one of its own: owned by the root of a module of the project.
InterfacePtr<TDataSetAttr> TDataSetList::TModifiedItems::GetAttr(TComponent* component)
{
    if (!component)
        return nullptr;
    if (auto* known = FList.GetDataSetAttrByObj(component))
        return known;
    auto designer = InterfaceCast<IDesigner>(FindRootDesigner(component));
    if (!designer)
        designer = FDesigner;
    QString unitName;
    QString formName;
    QString projectName;
    designer->ModuleFileNames(unitName, formName, projectName);
    if (component->Owner() != designer->GetRoot() || !FList.FSvcManager->IsModuleFromProject(unitName))
        return nullptr;
    FList.DoComponentInserted(&FList, component, component->Name(), unitName);
    return FList.GetDataSetAttrByObj(component);
}

bool TDataSetList::TModifiedItems::Compare(TPersistent* item)
{
    if (auto* fieldDef = dynamic_cast<TFieldDef*>(item)) {
        FieldDefModified(fieldDef);
        return true;
    }
    auto* component = dynamic_cast<TComponent*>(item);
    if (!component)
        return true;
    if (IsDataSetKind(component))
        return DataSetModified(component);
    if (auto* field = dynamic_cast<TField*>(component))
        FieldModified(field);
    else if (component->InheritsFrom(TForm::Class()) || component->InheritsFrom(TDataModule::Class()))
        FormModified(component);
    else if (auto* connection = dynamic_cast<TCustomZAConnection*>(component))
        ConnectionModified(connection);
    else if (component->InheritsFrom(TDataSource::Class()))
        FList.FMastersMayDiffer = true;
    return true;
}

void TDataSetList::TModifiedItems::FieldDefModified(TFieldDef* fieldDef)
{
    if (const auto attr = GetAttr(fieldDef->DataSet()))
        FList.InternalUpdateFieldDefs(attr.get(), false, false);
}

bool TDataSetList::TModifiedItems::DataSetModified(TComponent* component)
{
    const auto attr = GetAttr(component);
    if (!attr)
        return false;
    const auto newSession = TMrvUtils::ExtractConnectionName(component);
    if (component->InheritsFrom(TDataSet::Class())) {
        FList.InternalUpdateFieldDefs(attr.get(), false, false);
        attr->ValidateFieldDefs();
        MasterModified(*attr);
        CarryToDescendants(*attr, newSession);
    }
    if (attr->FIsInserted || HasOtherSession(*attr, newSession)) {
        SetSession(*attr, newSession);
        attr->FIsInserted = false;
    }
    return true;
}

bool TDataSetList::TModifiedItems::HasOtherSession(TDataSetAttr& attr, const QString& newSession)
{
    return !SameText(attr.FSessionName, newSession)
        || attr.FSessionConnection.get() != TMrvUtils::ExtractConnection(attr.GetComponent());
}

void TDataSetList::TModifiedItems::MasterModified(TDataSetAttr& attr)
{
    const bool isPresent = GetMasterSource(attr.GetComponent()) != nullptr;
    const bool isTold = isPresent != attr.FIsMasterSourcePresent;
    attr.SetIsMasterSourcePresent(isPresent);
    if (!FList.TakeMaster(attr))
        return;
    if (!isTold)
        FList.FEvents->OnRefreshDatasetList(attr.FUnitName, rmAdd);
    // Inheriting forms follow.
    FList.FMastersMayDiffer = true;
}

void TDataSetList::TModifiedItems::SetSession(TDataSetAttr& attr, const QString& newSession)
{
    attr.TakeSession(attr.GetComponent());
    attr.FSessionName = newSession;
    FList.FDefferedOnSessionChange->AddItem(&attr, false);
}

void TDataSetList::TModifiedItems::CarryToDescendants(TDataSetAttr& attr, const QString& newSession)
{
    for (const auto& d : FList.DescendantsOf(attr)) {
        if (const auto* component = d->GetComponent(); component
            && (component->InheritsFrom(TCustomZADataSet::Class()) || !component->InheritsFrom(TDataSet::Class())))
            CarryConnection(attr, *d);
        if (HasOtherSession(*d, newSession))
            SetSession(*d, newSession);
    }
}

// A connection set on the parent form is carried to the inheriting form, unless that has a connection of another name.
void TDataSetList::TModifiedItems::CarryConnection(TDataSetAttr& attr, TDataSetAttr& descendant)
{
    auto* component = descendant.GetComponent();
    auto* ancestorConn = TMrvUtils::ExtractConnection(attr.GetComponent());
    const auto* descConn = TMrvUtils::ExtractConnection(component);
    const bool sameSession = SameText(descendant.FSessionName, attr.FSessionName);
    if (ancestorConn && (!descConn || sameSession)) {
        auto* found = FList.GetConnectionAttr(descendant.FFormName, ancestorConn->Name());
        if (auto* connection = found ? dynamic_cast<TCustomZAConnection*>(found->GetComponent()) : nullptr)
            TMrvUtils::AssignConnections(component, connection);
    } else if (!ancestorConn && sameSession) {
        TMrvUtils::AssignConnections(component, nullptr);
    }
}

// The fields of inheriting forms follow, and nobody tells of those.
void TDataSetList::TModifiedItems::OrderModified(TDataSetAttr& attr)
{
    FList.RefreshFieldAttr(attr.GetDataSetComponent(), &attr, rmNone);
    for (const auto& each : FList.DescendantsOf(attr))
        FList.RefreshFieldAttr(each->GetDataSetComponent(), each.get(), rmNone);
}

void TDataSetList::TModifiedItems::FieldModified(TField* field)
{
    const auto attr = GetAttr(field->DataSet());
    if (!attr)
        return;
    const InterfacePtr<TFieldAttr> fieldAttr = attr->FieldAttrByObject(field);
    if (!fieldAttr) {
        FList.DoRefreshChildObject(&FList, attr.get(), field, field->Name(), 0);
        return;
    }
    if (fieldAttr->FIndex != field->Index())
        OrderModified(*attr);
    if (fieldAttr->GetFieldName() != field->FieldName()) {
        fieldAttr->SetFieldName(field->FieldName());
        FList.DoRefreshChildObject(&FList, attr.get(), field, field->Name(), 1);
    }
}

// A form that was closed and opened again is another object of the same name.
TFormAttr* TDataSetList::TModifiedItems::KnownForm(TComponent* form)
{
    if (auto* attr = FList.GetFormAttr(form))
        return attr;
    auto* attr = FList.GetFormAttr(form->Name());
    if (!attr || attr->FComponent)
        return nullptr;
    attr->SetComponent(form);
    return attr;
}

// Gives the old form name; empty where nothing was renamed.
QString TDataSetList::TModifiedItems::RenameFormOf(TMrvObjectList& list, TComponent* form)
{
    QString oldName;
    for (const auto& attr : list.Held()) {
        const auto* component = attr->FComponent.get();
        if (!component || component->Owner() != form || attr->FFormName == form->Name())
            continue;
        oldName = attr->FFormName;
        attr->SetFormName(form->Name());
    }
    return oldName;
}

void TDataSetList::TModifiedItems::FormModified(TComponent* form)
{
    auto* attr = KnownForm(form);
    const bool isNew = !attr;
    if (isNew)
        attr = FList.CreateFormAttr(form);
    if (!isNew && SameText(attr->ComponentName(), form->Name()))
        return;
    attr->SetComponentName(form->Name());
    attr->SetFormName(form->Name());
    auto oldName = RenameFormOf(FList.FItem, form);
    // Connections too: they are found by the name of their form.
    const auto oldConnectionForm = RenameFormOf(FList.FConnectionItem, form);
    if (oldName.isEmpty())
        oldName = oldConnectionForm;
    if (!oldName.isEmpty())
        FList.FEvents->OnFormRenamed(oldName, form->Name());
}

void TDataSetList::TModifiedItems::ConnectionModified(TCustomZAConnection* connection)
{
    const InterfacePtr<TConnectionAttr> attr = FList.GetConnectionAttrByObj(connection);
    if (!attr)
        return;
    if (attr->FConnected != connection->Connected()) {
        attr->FConnected = connection->Connected();
        NeedUpdate();
        for (auto* dataSet : QList(connection->DataSets()))
            if (auto* dataSetAttr = FList.GetDataSetAttrByObj(dataSet))
                FList.InternalUpdateFieldDefs(dataSetAttr, true, false);
    }
    if (std::exchange(attr->FIsInserted, false))
        return;
    if (!SameText(attr->ComponentName(), connection->Name()))
        FList.RenameConnection(*attr, connection);
}
