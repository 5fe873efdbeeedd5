// The platform's way to a field's control needs a field: a definition's control is made by hand.

#include "data/TDataSet.h"
#include "data/TDataSource.h"
#include "design/DataControls.h"
#include "design/DesignIntf.h"
#include "model/MrvControlCreation.h"
#include "model/MrvDataSetAttr.h"
#include "model/MrvDataSetList.h"
#include "model/MrvFieldDefsAttr.h"
#include "rtl/Guard.h"
#include "rtl/SysUtils.h"
#include "support/MrvUtils.h"

namespace {

constexpr int LabelSize = 10;
// A label's height and this is how far the control stands below it.
constexpr int LabelGap = 3;

}

int TFieldDefsAttr::IntfCreateControl(
    const QString& targetName, const QString& formName, int x, int y, WordBool withLabel)
{
    const InterfacePtr<TFieldDefsAttr> held(this);
    TCustomComponentAttr::IntfCreateControl(targetName, formName, x, y, withLabel);
    const auto designer = InterfaceCast<IDesigner>(FindRootDesigner(GetTargetComponent(targetName, formName)));
    auto* dataSet = FDataSetAttr ? FDataSetAttr->GetDataSetComponent() : nullptr;
    // One that makes nothing needs no unit.
    NeedChoice();
    if (FCtrlCreationMode == ccmNone)
        return 0;
    if (!designer || (dataSet && !ConfirmLink(designer, dataSet->Owner(), dataSet)))
        return 0;
    return CreateControl(targetName, formName, designer, x, y, withLabel);
}

int TFieldDefsAttr::CreateControl(const QString& targetName, const QString& formName,
    const InterfacePtr<IDesigner>& designer, int x, int y, bool withLabel)
{
    NeedChoice();
    if (FCtrlCreationMode == ccmNone)
        return 0;
    const InterfacePtr<TDataSetAttr> attr(FDataSetAttr.get());
    const WeakRef<TDataSet> dataSet(attr ? attr->GetDataSetComponent() : nullptr);
    Assert(bool(dataSet), QStringLiteral("MrvClasses"));
    const InterfacePtr<TDataSetList> list(DataSetList());
    Assert(bool(list), QStringLiteral("MrvClasses"));
    const bool wasActive = dataSet->Active();
    list->DisableEvents(deSelectionChanged);
    if (list->FEvents)
        list->FEvents->DisableEvents(deOnRefreshChildObject);
    attr->SaveFieldDefsInfo();
    const auto restore = [&] {
        if (list->FEvents)
            list->FEvents->EnableEvents(deOnRefreshChildObject);
        list->EnableEvents(deSelectionChanged);
        if (wasActive && dataSet)
            dataSet->SetActive(true);
        list->InternalUpdateFieldDefs(attr.get(), false, false);
        attr->RestoreFieldDefsInfo();
    };
    int bottom = 0;
    try {
        bottom = MakeControl(targetName, formName, designer, x, y, withLabel, *attr);
    } catch (...) {
        restore();
        throw;
    }
    restore();
    return bottom;
}

int TFieldDefsAttr::MakeControl(const QString& targetName, const QString& formName,
    const InterfacePtr<IDesigner>& designer, int x, int y, bool withLabel, TDataSetAttr& attr)
{
    auto* dataSet = attr.GetDataSetComponent();
    const auto fieldName = FDisplayName;
    TMrvUtils::EnsurePackageLoaded(FCtrlClassName);
    const TClassGroupScope group(designer);
    const auto controlClass = CreateControlClass(dataSet, fieldName, FCtrlClassName);
    const auto size = ControlSize(controlClass);
    auto* target = GetTargetComponent(targetName, formName);
    int offset = 0;
    if (withLabel) {
        auto* label = dynamic_cast<TControl*>(
            designer->CreateComponent(FindClass(QStringLiteral("TLabel")), target, x, y, LabelSize, LabelSize));
        if (label) {
            label->SetCaption(fieldName);
            offset = label->Height() + LabelGap;
            // Where the designer chose the label's place the control stands below it all the same.
            if (x == -1 && y == -1) {
                x = label->Left();
                y = label->Top();
            }
        }
    }
    auto* source = FDataSetList->GetDataSource(designer, dataSet, target, x, y);
    auto* control = dynamic_cast<TControl*>(
        designer->CreateComponent(controlClass, target, x, y + offset, size.width(), size.height()));
    if (!control)
        throw EInvalidCast(QStringLiteral("Invalid class typecast"));
    SetObjectProp(control, QStringLiteral("DataSource"), source);
    SetPropValue(control, QStringLiteral("DataField"), fieldName);
    SupportDevExpressEditors(control, source, fieldName);
    return control->Top() + control->Height();
}
