#include "model/MrvFieldAttr.h"

#include "data/TField.h"
#include "ide/MrvDeferredCallbacks.h"
#include "model/MrvDataSetAttr.h"
#include "model/MrvDataSetList.h"
#include "rtl/SysUtils.h"

TFieldAttr::TFieldAttr(TCustomComponentAttr* owner, TDataSetAttr* dataSet, TClass classType, TSvcManager* svcManager,
    TDataSetList* dataSetList)
    : Implements(owner, dataSet, classType, svcManager, dataSetList, u"TFieldAttr")
{
}

TField* TFieldAttr::GetFieldComponent()
{
    auto* component = GetComponent();
    auto* field = dynamic_cast<TField*>(component);
    if (component && !field)
        throw EInvalidCast(QStringLiteral("Invalid class typecast"));
    return field;
}

void TFieldAttr::AddChild(TPersistent* field)
{
    if (!FDataSetAttr)
        return;
    auto* child = dynamic_cast<TField*>(field);
    FChildList.Add(FDataSetAttr->InternalAddField(this, child, child->Name()));
}

bool TFieldAttr::IsHasParent(InterfacePtr<IMrvCommonFieldAttr>& parent)
{
    parent = InterfacePtr<IMrvCommonFieldAttr>(dynamic_cast<TFieldAttr*>(FOwner.get()));
    return bool(parent);
}

int TFieldAttr::IsGetFieldNo()
{
    const auto* field = GetFieldComponent();
    return field ? field->FieldNo() : -1;
}

QString TFieldAttr::GetDisplayName()
{
    const auto* field = GetFieldComponent();
    auto text = Format(
        QStringLiteral("%d - %s"), { IndexOf(FDeleted ? nullptr : field), field ? field->FieldName() : FFieldName });
    if (Preference(QStringLiteral("ShowFieldType"), false))
        text += Format(QStringLiteral("[%s]"), { DataTypeToStr(IntfGetFieldType()) });
    if (Preference(QStringLiteral("ShowObjectName"), true))
        text += Format(QStringLiteral("{%s}"), { FComponentName });
    return text;
}

int TFieldAttr::IntfGetDisplayName(QString& name)
{
    name = GetDisplayName();
    return 0;
}

int TFieldAttr::GetFieldIndex()
{
    return IndexOf(FDeleted ? nullptr : GetFieldComponent());
}

int TFieldAttr::IndexOf(const TField* field)
{
    const int index = field ? field->Index() : -1;
    if (index != -1)
        FIndex = index;
    return FIndex;
}

void TFieldAttr::SetFieldIndex(int index)
{
    auto* field = GetFieldComponent();
    if (field && field->Index() != index)
        field->SetIndex(index);
    FIndex = index;
}

int TFieldAttr::IntfSetFieldIndex(int index)
{
    SetFieldIndex(index);
    // The same dataset on inheriting forms follows; its nodes are put in order at the tick.
    if (FDataSetAttr && FDataSetList)
        for (const auto& each : FDataSetList->DescendantsOf(*FDataSetAttr.get()))
            FDataSetList->FDefferedAddField->AddItem(each.get(), false);
    return 0;
}

void TFieldAttr::IntfGetFieldName(QString& name)
{
    const auto* field = FDeleted ? nullptr : GetFieldComponent();
    name = field ? field->FieldName() : QString();
}

TFieldType TFieldAttr::IntfGetFieldType()
{
    const auto* field = GetFieldComponent();
    return field ? field->DataType() : ftUnknown;
}
