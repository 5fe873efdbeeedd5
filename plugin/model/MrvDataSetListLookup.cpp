#include "data/TCustomZAConnection.h"
#include "data/TCustomZADataSet.h"
#include "data/TDataSource.h"
#include "data/TField.h"
#include "design/DesignIntf.h"
#include "model/MrvConnectionAttr.h"
#include "model/MrvDataSetAttr.h"
#include "model/MrvDataSetList.h"
#include "model/MrvFieldAttr.h"
#include "model/MrvFieldDefsAttr.h"
#include "model/MrvFormAttr.h"
#include "rtl/SysUtils.h"
#include "support/MrvUtils.h"

TDataSetAttr* TDataSetList::GetItem(int index) const
{
    return static_cast<TDataSetAttr*>(FItem[index]);
}

void TDataSetList::IntfGetItem(int index, InterfacePtr<IMrvDataSetAttr>& item)
{
    item = InterfacePtr<IMrvDataSetAttr>(GetItem(index));
}

TConnectionAttr* TDataSetList::GetConnection(int index) const
{
    return static_cast<TConnectionAttr*>(FConnectionItem[index]);
}

void TDataSetList::GetConnectionItem(int index, InterfacePtr<IMrvConnectionAttr>& item)
{
    item = InterfacePtr<IMrvConnectionAttr>(GetConnection(index));
}

TDataSetAttr* TDataSetList::GetDataSetAttrByObj(const TComponent* component) const
{
    return static_cast<TDataSetAttr*>(FItem.FindByComponent(component));
}

TConnectionAttr* TDataSetList::GetConnectionAttrByObj(const TComponent* component) const
{
    return static_cast<TConnectionAttr*>(FConnectionItem.FindByComponent(component));
}

TFormAttr* TDataSetList::GetFormAttr(const TComponent* component) const
{
    return static_cast<TFormAttr*>(FFormItem.FindByComponent(component));
}

TFormAttr* TDataSetList::GetFormAttr(const QString& formName) const
{
    return static_cast<TFormAttr*>(FFormItem.FindByName(formName));
}

TConnectionAttr* TDataSetList::GetConnectionAttr(const QString& formName, const QString& componentName) const
{
    return static_cast<TConnectionAttr*>(
        FConnectionItem.FindByFormAndName(formName, componentName, Qt::CaseInsensitive));
}

// A later hit replaces an earlier one.
TDataSetAttr* TDataSetList::GetDataSetAttrByFieldDefObj(const TFieldDef* fieldDef) const
{
    TDataSetAttr* found = nullptr;
    for (int i = 0; i < GetItemCount(); ++i)
        for (int def = 0; def < GetItem(i)->FFieldDefsList.Count(); ++def)
            if (GetItem(i)->GetFieldDefs(def)->GetFieldDefComponent() == fieldDef)
                found = GetItem(i);
    return found;
}

TDataSetAttr* TDataSetList::FindDataSetByFieldObj(TComponent* component, int& index) const
{
    index = -1;
    auto* field = dynamic_cast<TField*>(component);
    if (!field)
        return nullptr;
    const auto holds = [&](TDataSetAttr* attr) {
        auto* fieldAttr = attr ? attr->FieldAttrByObject(field) : nullptr;
        index = fieldAttr ? attr->FFieldsList.IndexOf(fieldAttr) : -1;
        return fieldAttr != nullptr;
    };
    // A field has one dataset, whose wrapper holds its own; the others are asked for one that has left its dataset.
    if (auto* own = GetDataSetAttrByObj(field->DataSet()); holds(own))
        return own;
    for (int i = 0; i < GetItemCount(); ++i)
        if (holds(GetItem(i)))
            return GetItem(i);
    return nullptr;
}

TFieldAttr* TDataSetList::GetFieldAttrByObj(TComponent* field) const
{
    int index = -1;
    const auto* attr = FindDataSetByFieldObj(field, index);
    return attr ? attr->GetField(index) : nullptr;
}

int TDataSetList::IndexOfName(const QString& formName, const QString& componentName) const
{
    const auto* attr = FItem.FindByFormAndName(formName, componentName, Qt::CaseSensitive);
    return attr ? FItem.IndexOf(attr) : -1;
}

int TDataSetList::IndexOfObject(const TComponent* component) const
{
    const auto* attr = GetDataSetAttrByObj(component);
    return attr ? FItem.IndexOf(attr) : -1;
}

TDataSetAttr* TDataSetList::IndexOfIntf(const InterfacePtr<IMrvDataSetAttr>& intf) const
{
    auto* attr = dynamic_cast<TDataSetAttr*>(intf.get());
    return FItem.Contains(attr) ? attr : nullptr;
}

InterfacePtr<IMrvDataSetAttr> TDataSetList::GetMasterDataSet(const InterfacePtr<IMrvDataSetAttr>& detail) const
{
    auto* attr = IndexOfIntf(detail);
    auto* dataSet = attr ? dynamic_cast<TCustomZADataSet*>(attr->GetComponent()) : nullptr;
    const auto* source = dataSet ? dataSet->MasterSource() : nullptr;
    return source && source->DataSet() ? InterfacePtr<IMrvDataSetAttr>(GetDataSetAttrByObj(source->DataSet()))
                                       : nullptr;
}

int TDataSetList::IntfGetMasterDataSet(
    const InterfacePtr<IMrvDataSetAttr>& detail, InterfacePtr<IMrvDataSetAttr>& master)
{
    master = GetMasterDataSet(detail);
    return 0;
}

TDataSource* TDataSetList::GetMasterSource(TComponent* component)
{
    const auto* property = GetPropInfo(component, QStringLiteral("MasterSource"));
    return property && property->PropType.Kind == tkClass
        ? dynamic_cast<TDataSource*>(property->Get(component).value<TPersistent*>())
        : nullptr;
}

TDataSetAttr* TDataSetList::FindDataSetAncestor(TComponent* component, const QString& name) const
{
    if (!component || !component->HasState(csAncestor))
        return nullptr;
    const auto designer = InterfaceCast<IDesigner>(FindRootDesigner(component));
    const auto ancestor = designer ? designer->GetAncestorDesigner() : nullptr;
    return ancestor ? GetDataSetAttrByObj(ancestor->GetComponent(name)) : nullptr;
}

QList<InterfacePtr<TDataSetAttr>> TDataSetList::DescendantsOf(const TDataSetAttr& attr) const
{
    QList<InterfacePtr<TDataSetAttr>> found;
    QSet<const TDataSetAttr*> family { &attr };
    const auto add = [&](const TDataSetAttr& ancestor) {
        for (const auto& each : ancestor.FDescendants) {
            auto* descendant = each.get();
            if (!descendant || !(descendant->FAncestor == &ancestor) || family.contains(descendant))
                continue;
            family.insert(descendant);
            found << InterfacePtr<TDataSetAttr>(descendant);
        }
    };
    add(attr);
    for (qsizetype i = 0; i < found.size(); ++i)
        add(*found[i]);
    return found;
}

QString TDataSetList::MakeSessionName(TCustomZAConnection* connection)
{
    if (!connection)
        return {};
    return Format(QStringLiteral("%s {%s}"), { connection->Name(), TMrvUtils::GetOwnerName(connection) });
}

QString TDataSetList::MakeSessionName(const QString& connectionName, const QString& ownerName)
{
    if (connectionName.isEmpty() || ownerName.isEmpty())
        return {};
    return Format(QStringLiteral("%s {%s}"), { connectionName, ownerName });
}
