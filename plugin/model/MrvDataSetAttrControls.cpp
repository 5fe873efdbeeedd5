// What a drop of a dataset makes: a grid, or a control for each field.

#include "data/TDataSet.h"
#include "data/TDataSource.h"
#include "design/DataControls.h"
#include "design/DesignIntf.h"
#include "model/MrvControlCreation.h"
#include "model/MrvDataSetAttr.h"
#include "model/MrvDataSetList.h"
#include "model/MrvFieldAttr.h"
#include "model/MrvFieldDefsAttr.h"
#include "rtl/SysUtils.h"
#include "support/MrvUtils.h"

namespace {

// From the bottom of a control to the next one.
constexpr int RowGap = 5;

// A grid that makes its view with itself has its data source on the view's controller.
void BindView(const InterfacePtr<IDesigner>& designer, const TControl& control, TDataSource* source)
{
    const auto* view = designer->GetComponent(Format(QStringLiteral("%sDBTableView1"), { control.Name() }));
    const auto name = QStringLiteral("DataController");
    const auto* property = GetPropInfo(view, name);
    if (!property || property->PropType.Kind != tkClass)
        return;
    if (auto* controller = GetObjectProp(view, name))
        SetClassProp(controller, QStringLiteral("DataSource"), TDataSource::Class(), source);
}

void BindGrid(TControl* control, TDataSource* source)
{
    const auto name = TMrvUtils::GetPropNameByClassType(control, TDataSource::Class());
    if (!name.isEmpty())
        SetClassProp(control, name, TDataSource::Class(), source);
}

}

int TDataSetAttr::IntfCreateControl(
    const QString& targetName, const QString& formName, int x, int y, WordBool withLabel)
{
    const InterfacePtr<TDataSetAttr> held(this);
    TCustomComponentAttr::IntfCreateControl(targetName, formName, x, y, withLabel);
    auto* target = GetTargetComponent(targetName, formName);
    const auto designer = InterfaceCast<IDesigner>(FindRootDesigner(target));
    return designer ? InternalCreateControl(target, designer, x, y, withLabel) : 0;
}

int TDataSetAttr::InternalCreateControl(
    TComponent* target, const InterfacePtr<IDesigner>& designer, int x, int y, bool withLabel)
{
    auto* component = GetComponent();
    if (!component || !FDataSetList || !ConfirmLink(designer, component->Owner(), component))
        return 0;
    switch (FCtrlCreationMode) {
    case ccmDataGridView:
        return CreateGrid(target, designer, x, y);
    case ccmDetails:
        return CreateDetails(target, designer, x, y, withLabel);
    case ccmNone:
        break;
    }
    return 0;
}

int TDataSetAttr::CreateGrid(TComponent* target, const InterfacePtr<IDesigner>& designer, int x, int y)
{
    auto* dataSet = GetDataSetComponent();
    InterfacePtr<IMrvBindableControlInfo> item;
    GetCurrentMenuItem(item);
    QString className;
    if (item)
        item->GetClassName(className);
    if (className.isEmpty() || !dataSet)
        return 0;
    const auto gridClass = ControlClass(designer, className);
    // Where the designer chooses the place it chooses the size too.
    const auto size = x != -1 || y != -1 ? ControlSize(gridClass) : QSize(0, 0);
    auto* control
        = dynamic_cast<TControl*>(designer->CreateComponent(gridClass, target, x, y, size.width(), size.height()));
    if (!control)
        throw EInvalidCast(QStringLiteral("Invalid class typecast"));
    auto* source = FDataSetList->GetDataSource(designer, dataSet, target, control->Left(), control->Top());
    BindView(designer, *control, source);
    BindGrid(control, source);
    return control->Height();
}

int TDataSetAttr::CreateDetails(
    TComponent* target, const InterfacePtr<IDesigner>& designer, int x, int y, bool withLabel)
{
    int bottom = 0;
    // Persistent fields win.
    if (GetFieldCount() != 0) {
        for (const auto& held : FFieldsList.Held()) {
            auto* field = static_cast<TFieldAttr*>(held.get());
            const auto* control = field->FDeleted ? nullptr : field->CreateControl(target, designer, x, y, withLabel);
            if (!control)
                continue;
            bottom = control->Top() + control->Height();
            y = bottom + RowGap;
        }
        return bottom;
    }
    const auto targetName = target->Name();
    const auto formName = target->Owner() ? target->Owner()->Name() : targetName;
    for (const auto& held : FFieldDefsList.Held()) {
        auto* fieldDef = static_cast<TFieldDefsAttr*>(held.get());
        // One that makes nothing takes no room.
        if (const int end = fieldDef->CreateControl(targetName, formName, designer, x, y, withLabel))
            y = end + RowGap;
    }
    return bottom;
}
