#include "data/TDataSet.h"
#include "data/TDataSource.h"
#include "data/TField.h"
#include "design/DataControls.h"
#include "design/DesignIntf.h"
#include "model/MrvControlCreation.h"
#include "model/MrvDataSetList.h"
#include "model/MrvFieldAttr.h"

int TFieldAttr::IntfCreateControl(const QString& targetName, const QString& formName, int x, int y, WordBool withLabel)
{
    const InterfacePtr<TFieldAttr> held(this);
    TCustomComponentAttr::IntfCreateControl(targetName, formName, x, y, withLabel);
    auto* target = GetTargetComponent(targetName, formName);
    const auto designer = InterfaceCast<IDesigner>(FindRootDesigner(target));
    const auto* control = designer ? CreateControl(target, designer, x, y, withLabel) : nullptr;
    return control ? control->Top() + control->Height() : 0;
}

TControl* TFieldAttr::CreateControl(
    TComponent* target, const InterfacePtr<IDesigner>& designer, int x, int y, bool withLabel)
{
    auto* field = GetFieldComponent();
    if (!field || !field->DataSet() || !FDataSetList || !ConfirmLink(designer, field->Owner(), field))
        return nullptr;
    NeedChoice();
    const int count = FPersonalityUISettions ? FPersonalityUISettions->GetFieldCtrlCount(this) : 0;
    if (count < 1 || FCtrlCreationMode == ccmNone)
        return nullptr;
    InterfacePtr<IMrvBindableControlInfo> item;
    GetCurrentMenuItem(item);
    if (!item)
        return nullptr;
    QString className;
    item->GetClassName(className);
    auto* source = FDataSetList->GetDataSource(designer, field->DataSet(), target, x, y);
    // The wrapper's class and not the field's: odd as it looks, this is the call that the registry is given.
    RegisterFieldControl(ClassName(), className);
    const TClassGroupScope group(designer);
    auto* control = CreateFieldControl(designer, field, className, target, x, y, withLabel);
    SupportDevExpressEditors(control, source, field->FieldName());
    return control;
}
