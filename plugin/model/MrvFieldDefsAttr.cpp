#include "model/MrvFieldDefsAttr.h"

#include "data/TFieldDef.h"
#include "design/IDesigner.h"
#include "model/MrvDataSetAttr.h"
#include "rtl/SysUtils.h"

TFieldDefsAttr::TFieldDefsAttr(TCustomComponentAttr* owner, TDataSetAttr* dataSet, TClass classType,
    TSvcManager* svcManager, TDataSetList* dataSetList)
    : Implements(owner, dataSet, classType, svcManager, dataSetList, u"TFieldDefsAttr")
    , FFieldDefProxy(std::make_unique<TFieldPrototype>())
{
    // Without effect on the name kept.
    FFieldDefProxy->SetComponentName(QStringLiteral("FieldPrototype"));
    if (!owner)
        return;
    FFormName = owner->FFormName;
    FUnitName = owner->FUnitName;
}

TFieldDef* TFieldDefsAttr::GetFieldDefComponent() const
{
    auto* persistent = FPersistent.get();
    auto* fieldDef = dynamic_cast<TFieldDef*>(persistent);
    if (persistent && !fieldDef)
        throw EInvalidCast(QStringLiteral("Invalid class typecast"));
    return fieldDef;
}

void TFieldDefsAttr::AddChild(TPersistent* fieldDef)
{
    if (!FDataSetAttr)
        return;
    const auto child = New<TFieldDefsAttr>(this, FDataSetAttr.get(), FClassType, FSvcManager, FDataSetList.get());
    child->FPersistent = fieldDef;
    FChildList.Add(child.get());
}

bool TFieldDefsAttr::IsHasChild()
{
    const auto* fieldDef = GetFieldDefComponent();
    return fieldDef && fieldDef->HasChildDefs();
}

bool TFieldDefsAttr::IsHasParent(InterfacePtr<IMrvCommonFieldAttr>& parent)
{
    const auto* fieldDef = GetFieldDefComponent();
    const bool has = fieldDef && fieldDef->ParentDef();
    parent = has ? InterfaceCast<IMrvCommonFieldAttr>(FOwner.get()) : nullptr;
    return has;
}

int TFieldDefsAttr::IsGetFieldNo()
{
    return GetFieldNo();
}

void TFieldDefsAttr::GetDisplayName(QString& name, WordBool plain)
{
    name = FDisplayName;
    if (!plain && Preference(QStringLiteral("ShowDataFieldType"), false))
        name += Format(QStringLiteral("[%s]"), { DataTypeToStr(GetFieldType()) });
}

void TFieldDefsAttr::SetDisplayName(const QString& name)
{
    if (name == FDisplayName)
        return;
    const TAttrKeyChange change(this);
    FDisplayName = name;
}

TFieldType TFieldDefsAttr::GetFieldType()
{
    const auto* fieldDef = GetFieldDefComponent();
    return fieldDef ? fieldDef->DataType() : ftUnknown;
}

void TFieldDefsAttr::GetPrecision(int& precision)
{
    const auto* fieldDef = GetFieldDefComponent();
    precision = fieldDef ? fieldDef->Precision() : 0;
}

void TFieldDefsAttr::GetSize(int& size)
{
    const auto* fieldDef = GetFieldDefComponent();
    size = fieldDef ? fieldDef->Size() : 0;
}

int TFieldDefsAttr::GetFieldNo()
{
    const auto* fieldDef = GetFieldDefComponent();
    return fieldDef ? fieldDef->FieldNo() : -1;
}

void TFieldDefsAttr::IntfGetFormDesigner(InterfacePtr<IDesigner>& designer)
{
    designer = nullptr;
}

void TFieldDefsAttr::GetFieldDefsProxy(TPersistent*& proxy)
{
    FFieldDefProxy->AssignData(*this);
    proxy = FFieldDefProxy.get();
}

WordBool TFieldDefsAttr::EnableCreateControl()
{
    return FDataSetAttr && FDataSetAttr->IntfGetFieldCount() == 0;
}
