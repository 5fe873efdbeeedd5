// The wrappers of a dataset's field definitions.

#include "data/TDataSet.h"
#include "model/MrvDataSetAttr.h"
#include "model/MrvDataSetList.h"
#include "model/MrvFieldDefsAttr.h"
#include "rtl/SysUtils.h"

TFieldDefsAttr* TDataSetAttr::GetFieldDefs(int position) const
{
    return static_cast<TFieldDefsAttr*>(FFieldDefsList[position]);
}

int TDataSetAttr::GetFieldDefsCount()
{
    return GetDataSetComponent() ? FFieldDefsList.Count() : 0;
}

void TDataSetAttr::IntfGetFieldDef(int position, InterfacePtr<IMrvFieldDefAttr>& fieldDef)
{
    fieldDef = InterfacePtr<IMrvFieldDefAttr>(GetFieldDefs(position));
}

TFieldDefsAttr* TDataSetAttr::GetParentFieldDefAttr(TFieldDef* fieldDef)
{
    for (int i = 0; i < FFieldDefsList.Count(); ++i) {
        auto* parent = GetFieldDefs(i)->GetFieldDefComponent();
        if (parent && (parent->DataType() == ftADT || parent->DataType() == ftArray) && parent->HasChildDefs()
            && parent->ChildDefs().IndexOf(fieldDef) >= 0)
            return GetFieldDefs(i);
    }
    return nullptr;
}

TFieldDefsAttr* TDataSetAttr::GetFieldDefAttrByFieldName(const QString& fieldName)
{
    return static_cast<TFieldDefsAttr*>(FFieldDefs.FindByName(fieldName));
}

void TDataSetAttr::GetFieldDefByFieldName(const QString& name, InterfacePtr<IMrvFieldDefAttr>& fieldDef)
{
    fieldDef = InterfacePtr<IMrvFieldDefAttr>(GetFieldDefAttrByFieldName(name));
}

TFieldDefsAttr* TDataSetAttr::FieldDefsByName(const QString& displayName)
{
    for (int i = 0; i < FFieldDefsList.Count(); ++i) {
        QString name;
        GetFieldDefs(i)->GetDisplayName(name, false);
        if (SameText(name, displayName))
            return GetFieldDefs(i);
    }
    return nullptr;
}

void TDataSetAttr::IntfFieldDefsByName(const QString& name, InterfacePtr<IMrvFieldDefAttr>& fieldDef)
{
    fieldDef = InterfacePtr<IMrvFieldDefAttr>(FieldDefsByName(name));
}

bool TDataSetAttr::UpdateFieldDefs(bool)
{
    auto* dataSet = GetDataSetComponent();
    if (!dataSet || !dataSet->FieldDefs().Updated()) {
        const bool changed = FFieldDefsList.Count() > 0;
        ClearFieldDefs();
        return changed;
    }
    const auto before = FFieldDefsList.Held();
    const bool changed = AddFieldDefsAttr(QString(), dataSet->FieldDefs());
    // A definition that went counts as well, or the tree would keep it.
    return changed || std::any_of(before.begin(), before.end(), [this](const auto& attr) {
        return !FFieldDefsList.Contains(attr.get());
    });
}

// True for one that was not shown.
bool TDataSetAttr::VisitFieldDef(const QString& name, TFieldDef* fieldDef, TDefsVisit& visited)
{
    InterfacePtr<TFieldDefsAttr> attr(GetFieldDefAttrByFieldName(name));
    if (!attr) {
        attr = New<TFieldDefsAttr>(this, this, FClassType, FSvcManager, FDataSetList.get());
        attr->SetDisplayName(name);
        FFieldDefs.Add(attr.get());
    }
    attr->FPersistent = fieldDef;
    attr->SetDisplayName(name);
    visited.insert(attr.get());
    if (FFieldDefsList.Contains(attr.get()))
        return false;
    FFieldDefsList.Add(attr.get());
    return true;
}

void TDataSetAttr::VisitArray(const QString& name, TFieldDef* array, TDefsVisit& visited, bool& changed)
{
    const int count = std::min(array->Size(), array->ChildDefs().Count());
    for (int i = 0; i < count; ++i) {
        auto* element = array->ChildDefs().Items(i);
        const auto elementName = Format(QStringLiteral("%s[%d]"), { name, i });
        changed = VisitFieldDef(elementName, element, visited) || changed;
        if (element->DataType() == ftADT && element->HasChildDefs())
            changed = AddFieldDefsAttr(elementName + u'.', element->ChildDefs());
    }
}

// Each level drops what it did not visit itself. So of definitions with children only those remain shown that come
// after the last of them; this is how it is.
bool TDataSetAttr::AddFieldDefsAttr(const QString& prefix, TFieldDefs& defs)
{
    bool changed = false;
    TDefsVisit visited;
    for (int i = 0; i < defs.Count(); ++i) {
        auto* def = defs.Items(i);
        const auto name = prefix + def->Name();
        changed = VisitFieldDef(name, def, visited) || changed;
        if (!def->HasChildDefs())
            continue;
        if (def->DataType() == ftArray)
            VisitArray(name, def, visited, changed);
        else
            changed
                = AddFieldDefsAttr(def->Attributes().testFlag(faUnNamed) ? QString() : name + u'.', def->ChildDefs());
    }
    for (int i = FFieldDefsList.Count() - 1; i >= 0; --i)
        if (!visited.contains(FFieldDefsList[i]))
            FFieldDefsList.Delete(i);
    return changed;
}

void TDataSetAttr::ClearFieldDefs()
{
    FFieldDefsList.Clear();
    FFieldDefs.Clear();
}

void TDataSetAttr::ValidateFieldDefs()
{
    auto* dataSet = GetDataSetComponent();
    bool changed = false;
    if (dataSet && dataSet->FieldDefs().Count() > 0) {
        for (int i = FFieldDefsList.Count() - 1; i >= 0; --i) {
            const auto name = GetFieldDefs(i)->FDisplayName;
            if (dataSet->FieldDefList().Find(name))
                continue;
            changed = true;
            if (auto* attr = GetFieldDefAttrByFieldName(name))
                FFieldDefs.Delete(FFieldDefs.IndexOf(attr));
            FFieldDefsList.Delete(i);
        }
    } else {
        changed = FFieldDefsList.Count() > 0;
        ClearFieldDefs();
    }
    const auto events = Events();
    if (changed && dataSet && events)
        events->OnRefershChildObject(this, QString(), 0);
}

void TDataSetAttr::ForceUpdateFieldDefs()
{
    auto* dataSet = GetDataSetComponent();
    if (!dataSet)
        return;
    const InterfacePtr<TDataSetAttr> held(this);
    dataSet->FieldDefs().Update();
    if (FDataSetList)
        FDataSetList->InternalUpdateFieldDefs(this, false, false);
}

void TDataSetAttr::SaveFieldDefsInfo()
{
    FList.clear();
    for (int i = 0; i < FFieldDefsList.Count(); ++i) {
        TFieldDefsCache saved;
        GetFieldDefs(i)->GetDisplayName(saved.Name, false);
        GetFieldDefs(i)->IntfGetCtrlIndex(saved.CtrlIndex);
        FList << saved;
    }
}

void TDataSetAttr::RestoreFieldDefsInfo()
{
    for (const auto& saved : std::as_const(FList))
        if (auto* attr = FieldDefsByName(saved.Name); attr && saved.CtrlIndex != -1)
            attr->IntfSetCtrlIndex(saved.CtrlIndex);
    if (const auto events = Events())
        events->OnRefershChildObject(this, QString(), 0);
}
