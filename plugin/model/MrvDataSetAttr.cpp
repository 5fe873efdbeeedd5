#include "model/MrvDataSetAttr.h"

#include "data/TCustomZAConnection.h"
#include "data/TCustomZADataSet.h"
#include "data/TCustomZASQL.h"
#include "ide/MrvSvcManager.h"
#include "model/MrvConnectionAttr.h"
#include "model/MrvDataSetList.h"
#include "model/MrvFieldAttr.h"
#include "model/MrvFieldDefsAttr.h"
#include "model/MrvFormAttr.h"
#include "rtl/SysUtils.h"
#include "support/MrvConst.h"
#include "support/MrvUtils.h"

TDataSetAttr::TDataSetAttr(
    TCustomComponentAttr* owner, TClass classType, TSvcManager* svcManager, TDataSetList* dataSetList)
    : Implements(owner, classType, svcManager, dataSetList, u"TDataSetAttr")
{
    TDataSetAttr::EnumDBControlList(false);
}

TDataSetAttr::~TDataSetAttr()
{
    ClearFieldDefs();
}

void TDataSetAttr::SetComponent(TComponent* component)
{
    TCustomComponentAttr::SetComponent(component);
    InterfacePtr<IMrvFormAttr> form;
    IntfGetFormAttr(form);
    InterfacePtr<IMrvConnectionAttr> connection;
    IntfGetConnectionAttr(connection);
}

void TDataSetAttr::SetComponentName(const QString& name)
{
    TCustomComponentAttr::SetComponentName(name);
    auto* ancestor = FDataSetList ? FDataSetList->FindDataSetAncestor(FComponent.get(), name) : nullptr;
    FAncestor = ancestor;
    if (!ancestor)
        return;
    ancestor->FDescendant = this;
    ancestor->FDescendants.removeIf([this](const auto& each) { return !each || each == this; });
    ancestor->FDescendants << TBackRef<TDataSetAttr>(this);
    if (!FTryExtractAcnestorProp)
        return;
    FSessionName = ancestor->FSessionName;
    FTryExtractAcnestorProp = false;
}

void TDataSetAttr::SetFormName(const QString& name)
{
    for (const auto& field : FFieldsList.Held())
        field->SetFormName(name);
    TCustomComponentAttr::SetFormName(name);
}

void TDataSetAttr::EnumDBControlList(bool reset)
{
    if (FClassType.InheritsFrom(TCustomZASQL::Class())) {
        FCtrlClassName = TCustomZASQLClassName;
    } else if (FClassType.InheritsFrom(TZAScript::Class())) {
        FCtrlClassName = TZASctiptClassName;
    } else {
        FCtrlMenuItems = nullptr;
        if (FPersonalityUISettions)
            FPersonalityUISettions->EnumBindClassList(this, FCtrlMenuItems);
    }
    TCustomComponentAttr::EnumDBControlList(reset);
}

void TDataSetAttr::IntfComponentName(WordBool full, QString& name)
{
    TCustomComponentAttr::IntfComponentName(full, name);
    if (full)
        name = Format(QStringLiteral("%s.%s"), { FFormName, name });
}

TDataSet* TDataSetAttr::GetDataSetComponent()
{
    return dynamic_cast<TDataSet*>(GetComponent());
}

bool TDataSetAttr::IsZADataSet()
{
    return InheritsFrom(TCustomZADataSet::Class());
}

TCustomZAConnection* TDataSetAttr::GetConnection()
{
    return TMrvUtils::ExtractConnection(GetComponent());
}

void TDataSetAttr::GetSessionName(QString& name)
{
    auto* component = GetComponent();
    const bool isGrouped = component && !component->HasState(csDestroying)
        && (component->InheritsFrom(TCustomZASQL::Class()) || component->InheritsFrom(TCustomZADataSet::Class())
            || component->InheritsFrom(TZAScript::Class()));
    if (!isGrouped) {
        name = sDefaultNode;
        return;
    }
    const auto* connection = TMrvUtils::ExtractConnection(component);
    name.clear();
    // By the connection's own name: what is remembered may be from before an undo or a reload of its form.
    if (connection && connection->Owner() && !connection->HasState(csDestroying))
        name = TDataSetList::MakeSessionName(connection->Name(), connection->Owner()->Name());
    if (name.isEmpty())
        name = sConnectionUnassigned;
}

void TDataSetAttr::TakeSession(TComponent* component)
{
    FSessionName = TMrvUtils::ExtractConnectionName(component);
    FSessionConnection = WeakRef<TComponent>(TMrvUtils::ExtractConnection(component));
}

void TDataSetAttr::IntfGetSessionName(QString& name)
{
    GetSessionName(name);
}

void TDataSetAttr::IntfGetConnectionAttr(InterfacePtr<IMrvConnectionAttr>& connection)
{
    connection = nullptr;
    auto* component = GetConnection();
    if (!component || !FDataSetList)
        return;
    // A connection mostly stands on a data module: the form it stands on is the one to look under.
    auto* attr = FDataSetList->GetConnectionAttr(TMrvUtils::GetOwnerName(component), component->Name());
    connection = InterfacePtr<IMrvConnectionAttr>(attr ? attr : FDataSetList->CreateConnectionAttr(component));
}

void TDataSetAttr::IntfGetFormAttr(InterfacePtr<IMrvFormAttr>& form)
{
    form = nullptr;
    auto* component = GetComponent();
    auto* owner = component ? component->Owner() : nullptr;
    if (!owner || !FDataSetList)
        return;
    auto* attr = FDataSetList->GetFormAttr(owner->Name());
    // The form came back as another object.
    if (attr && !attr->FComponent)
        attr->SetComponent(owner);
    form = InterfacePtr<IMrvFormAttr>(attr ? attr : FDataSetList->CreateFormAttr(owner));
}

void TDataSetAttr::SetIsMasterSourcePresent(bool value)
{
    if (value == FIsMasterSourcePresent)
        return;
    FIsMasterSourcePresent = value;
    if (const auto events = Events())
        events->OnRefreshDatasetList(FUnitName, rmAdd);
}

void TDataSetAttr::SetConnection(const QString& formName, const QString& connectionName)
{
    const InterfacePtr<TDataSetAttr> held(this);
    auto* component = GetComponent();
    if (!component || !FDataSetList
        || !(component->InheritsFrom(TCustomZADataSet::Class()) || component->InheritsFrom(TCustomZASQL::Class())
            || component->InheritsFrom(TZAScript::Class())))
        return;
    auto* attr = FDataSetList->GetConnectionAttr(formName, connectionName);
    auto* connection = attr ? dynamic_cast<TCustomZAConnection*>(attr->GetComponent()) : nullptr;
    if (!connection)
        return;
    TMrvUtils::AssignConnections(component, connection);
    if (const auto designer = InterfaceCast<IDesigner>(FindRootDesigner(component)))
        designer->Modified();
    // The change came back by the designer only if the dataset is selected there, and inheriting forms follow it.
    const auto family = FDataSetList->DescendantsOf(*this) << held;
    for (const auto& each : family) {
        each->TakeSession(each->GetComponent());
        each->FSessionChanged = true;
    }
    if (const auto events = Events())
        events->OnSessionChanged();
}
