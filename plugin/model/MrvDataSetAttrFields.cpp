// The wrappers of a dataset's persistent fields.

#include "data/ObjectFields.h"
#include "data/TDataSet.h"
#include "design/DataControls.h"
#include "model/MrvDataSetAttr.h"
#include "model/MrvException.h"
#include "model/MrvFieldAttr.h"
#include "rtl/SysUtils.h"
#include "support/MrvConst.h"
#include "support/MrvUtils.h"

namespace {

// What a wrapper that is marked deleted compares as.
const QString DeletedText = QStringLiteral("Object was deleted!");

bool IsAlive(const TCustomComponentAttr* attr)
{
    return !attr->FDeleted;
}

void CheckIndex(int index, int count)
{
    // The count itself is let through.
    if (index < 0 || index > count)
        throw EMorvaneException(Format(SListIndexError(), { index }));
}

QString SearchText(TFieldAttr& attr, TSearchMode mode)
{
    if (attr.FDeleted)
        return DeletedText;
    if (mode == smDisplayName)
        return attr.GetDisplayName();
    const auto* field = attr.GetFieldComponent();
    return field ? field->FullName() : QString();
}

}

TFieldAttr* TDataSetAttr::GetField(int position) const
{
    return static_cast<TFieldAttr*>(FFieldsList[position]);
}

void TDataSetAttr::IntfGetField(int position, InterfacePtr<IMrvFieldAttr>& field)
{
    field = InterfacePtr<IMrvFieldAttr>(GetField(position));
}

void TDataSetAttr::InitFieldIndex(TFieldAttr* attr, TField* field)
{
    int index = field->Index();
    if (index == -1 && field->HasState(csAncestor)) {
        auto* parent = dynamic_cast<TFieldAttr*>(attr->FOwner.get());
        index = parent ? parent->GetChildCount() : FFieldsList.Count();
    }
    attr->SetFieldIndex(index);
}

TFieldAttr* TDataSetAttr::InternalAddField(TCustomComponentAttr* owner, TField* field, const QString& name)
{
    const auto attr = New<TFieldAttr>(owner, this, field->ClassType(), FSvcManager, FDataSetList.get());
    attr->SetComponentName(name);
    attr->SetFormName(TMrvUtils::GetOwnerName(field));
    attr->FUnitName = FUnitName;
    attr->SetComponent(field);
    attr->SetFieldName(field->FieldName());
    attr->FIsInserted = true;
    InitFieldIndex(attr.get(), field);
    FFieldsList.Add(attr.get());
    return attr.get();
}

TFieldAttr* TDataSetAttr::AddField(TField* field, const QString& name)
{
    auto* attr = InternalAddField(this, field, name);
    FFields.Add(attr);
    return attr;
}

void TDataSetAttr::AddFields(TFieldAttr*, TFields& fields, TDataSet* dataSet)
{
    for (auto* field : fields) {
        if (field->HasState(csDestroying) || field->Owner() != dataSet->Owner())
            continue;
        // Children stand among the top-level wrappers too.
        auto* attr = AddField(field, field->Name());
        auto* object = dynamic_cast<TObjectField*>(field);
        if (object && object->FieldCount() > 0)
            AddFields(attr, object->Fields(), dataSet);
    }
}

void TDataSetAttr::ClearFields()
{
    FFields.Clear();
    FFieldsList.Clear();
}

void TDataSetAttr::IntfUpdateFields()
{
    auto* dataSet = GetDataSetComponent();
    if (!dataSet)
        return;
    ClearFields();
    AddFields(nullptr, dataSet->Fields(), dataSet);
}

TFieldAttr* TDataSetAttr::GetParentFieldAttr(TField* field)
{
    for (int i = 0; i < GetFieldCount(); ++i) {
        auto* attr = GetField(i);
        auto* object = attr->FDeleted ? nullptr : dynamic_cast<TObjectField*>(attr->GetComponent());
        if (object && object->Fields().FindField(field->FieldName()) == field)
            return attr;
    }
    return nullptr;
}

TFieldAttr* TDataSetAttr::FieldByName(const QString& name, TSearchMode mode)
{
    Assert(mode <= smFieldName, QStringLiteral("MrvClasses"), sUnknownSearchMode);
    if (mode == smName && !SameText(name, DeletedText))
        return static_cast<TFieldAttr*>(FFieldsList.FindByName(name, IsAlive));
    for (int i = 0; i < GetFieldCount(); ++i) {
        auto* attr = GetField(i);
        const auto text = mode == smName && !attr->FDeleted ? attr->ComponentName() : SearchText(*attr, mode);
        if (SameText(text, name))
            return attr;
    }
    return nullptr;
}

void TDataSetAttr::IntfFieldByName(const QString& name, TSearchMode mode, InterfacePtr<IMrvFieldAttr>& field)
{
    field = InterfacePtr<IMrvFieldAttr>(FieldByName(name, mode));
}

// A wrapper that is looked up anew finds what bears its names: another than the one that is remembered for the field
// can only be one that bears the field's names.
TFieldAttr* TDataSetAttr::FieldAttrByObject(TField* field)
{
    if (!field)
        return nullptr;
    const auto isOfField = [field](const TCustomComponentAttr* attr) {
        return !attr->FDeleted && const_cast<TCustomComponentAttr*>(attr)->GetComponent() == field;
    };
    auto* known = FFieldsList.FindByComponent(field);
    if (known && isOfField(known))
        return static_cast<TFieldAttr*>(known);
    return static_cast<TFieldAttr*>(
        FFieldsList.FindByFormAndName(TMrvUtils::GetOwnerName(field), field->Name(), Qt::CaseInsensitive, isOfField));
}

int TDataSetAttr::FieldIndexByObject(TField* field)
{
    for (int i = 0; i < GetFieldCount(); ++i)
        if (GetField(i)->GetFieldIndex() == field->Index())
            return i;
    return -1;
}

TFieldAttr* TDataSetAttr::GetFieldByIndex(int index)
{
    CheckIndex(index, GetFieldCount());
    for (int i = 0; i < GetFieldCount(); ++i)
        if (GetField(i)->GetFieldIndex() == index)
            return GetField(i);
    return nullptr;
}

void TDataSetAttr::IntfGetFieldByIndex(int fieldIndex, InterfacePtr<IMrvFieldAttr>& field)
{
    field = InterfacePtr<IMrvFieldAttr>(GetFieldByIndex(fieldIndex));
}

void TDataSetAttr::SetField(int index, TFieldAttr* field)
{
    CheckIndex(index, FFields.Count());
    FFields.Put(index, field);
}

TFieldAttr* TDataSetAttr::GetFieldAttrByFieldName(const QString& fieldName)
{
    for (int i = 0; i < GetFieldCount(); ++i) {
        const auto* field = GetField(i)->FDeleted ? nullptr : GetField(i)->GetFieldComponent();
        if (field && SameText(field->FullName(), fieldName))
            return GetField(i);
    }
    return nullptr;
}

void TDataSetAttr::DeleteField(TField* field)
{
    if (auto* attr = FFieldsList.FindByComponent(field))
        DeleteField(FFieldsList.IndexOf(attr));
}

void TDataSetAttr::DeleteField(int index)
{
    const InterfacePtr<TCustomComponentAttr> attr(FFieldsList[index]);
    FFieldsList.Delete(index);
    FFieldsList.ResyncIndex(index);
    const int top = int(FFields.IndexOf(attr.get()));
    if (top >= 0)
        FFields.Delete(top);
}
