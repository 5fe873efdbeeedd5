#include "model/MrvCommonFieldAttr.h"

#include "data/TFieldType.h"
#include "model/MrvDataSetAttr.h"
#include "model/MrvDataSetList.h"
#include "rtl/SysUtils.h"

QString DataTypeToStr(TFieldType type)
{
    return GetEnumName(FieldTypeInfo(), type).mid(2);
}

TCommonFieldAttr::TCommonFieldAttr(TCustomComponentAttr* owner, TDataSetAttr* dataSet, TClass classType,
    TSvcManager* svcManager, TDataSetList* dataSetList, const char16_t* className)
    : Implements(owner, classType, svcManager, dataSetList, className)
    , FDataSetAttr(dataSet)
{
    Assert(dataSet != nullptr, QStringLiteral("MrvClasses"));
}

TFieldType TCommonFieldAttr::GetFieldType()
{
    Assert(false, QStringLiteral("MrvClasses"), QStringLiteral("Must be overriden"));
    return ftUnknown;
}

WordBool TCommonFieldAttr::HasParent(InterfacePtr<IMrvCommonFieldAttr>& parent)
{
    return IsHasParent(parent);
}

TCommonFieldAttr* TCommonFieldAttr::GetChildAttr(int index) const
{
    return static_cast<TCommonFieldAttr*>(FChildList[index]);
}

void TCommonFieldAttr::GetChild(int index, InterfacePtr<IMrvCommonFieldAttr>& child)
{
    child = InterfacePtr<IMrvCommonFieldAttr>(GetChildAttr(index));
}

void TCommonFieldAttr::GetDataSet(InterfacePtr<IMrvDataSetAttr>& dataSet)
{
    dataSet = InterfacePtr<IMrvDataSetAttr>(FDataSetAttr.get());
}

void TCommonFieldAttr::EnumDBControlList(bool reset)
{
    FCtrlMenuItems = nullptr;
    if (FPersonalityUISettions)
        FPersonalityUISettions->EnumBindClassList(this, FCtrlMenuItems);
    TCustomComponentAttr::EnumDBControlList(reset);
}

bool TCommonFieldAttr::Preference(const QString& name, bool defaultValue) const
{
    InterfacePtr<IMrvPreferences> preferences;
    if (FDataSetList && FDataSetList->FConfigurationService)
        FDataSetList->FConfigurationService->GetPreferences(preferences);
    QString value;
    if (preferences)
        preferences->GetValueByName(name, value);
    return StrToBoolDef(value, defaultValue);
}
