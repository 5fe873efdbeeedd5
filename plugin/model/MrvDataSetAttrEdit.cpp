// Persistent fields are created and deleted through the dataset's designer.

#include "data/TDataSet.h"
#include "data/TField.h"
#include "design/DataControls.h"
#include "design/DesignIntf.h"
#include "design/TDefineField.h"
#include "ide/MrvSvcManager.h"
#include "model/MrvDataSetAttr.h"
#include "model/MrvDataSetDesigner.h"
#include "model/MrvDataSetList.h"
#include "model/MrvFieldAttr.h"
#include "model/MrvSelectionList.h"
#include "rtl/Dialogs.h"
#include "rtl/Guard.h"
#include "rtl/SysUtils.h"
#include "support/MrvUtils.h"

namespace {

void CheckFieldAdd(const TDataSet& dataSet)
{
    if (dataSet.Owner() && dataSet.Owner()->HasState(csInline))
        throw Exception(SCantAddToFrame());
}

bool CheckFieldDelete(const TField& field)
{
    return !field.HasState(csAncestor);
}

// While it lives the designer listener lets fields be selected as they come.
class TFieldSelectionsOff {
public:
    explicit TFieldSelectionsOff(TSvcManager* manager)
    {
        if (manager)
            FNotification = manager->FDesignNotification;
        Set(false);
    }
    TFieldSelectionsOff(const TFieldSelectionsOff&) = delete;
    TFieldSelectionsOff& operator=(const TFieldSelectionsOff&) = delete;
    ~TFieldSelectionsOff() { Set(true); }

private:
    void Set(bool enable)
    {
        if (FNotification)
            FNotification->FEnableFieldSelections = enable;
    }
    InterfacePtr<TDesignNotification> FNotification;
};

// Runs the work between BeginDesign and EndDesign, which comes also after a failure.
template <class Work>
void Design(TDSDesigner& designer, Work&& work)
{
    designer.BeginDesign();
    try {
        work();
    } catch (...) {
        designer.EndDesign();
        throw;
    }
    designer.EndDesign();
}

TField* MakeField(TDSDesigner& designer, const QString& name, bool collectError, QString& error)
{
    TField* field = nullptr;
    try {
        Design(designer, [&] { field = designer.DoCreateField(name, QString()); });
    } catch (const EAbort&) {
    } catch (const Exception& exception) {
        if (collectError)
            error = exception.Message();
        else
            MessageDlg(exception.Message(), mtError, mbOK);
    }
    return field;
}

}

InterfacePtr<IMrvFieldAttr> TDataSetAttr::CreateFieldComponent(const QString& name, bool collectError, QString& error)
{
    error.clear();
    auto* dataSet = GetDataSetComponent();
    Assert(dataSet != nullptr, QStringLiteral("MrvClasses"), QStringLiteral("DataSet component not found"));
    CheckFieldAdd(*dataSet);
    const InterfacePtr<TDataSetAttr> held(this);
    WeakRef<TField> field;
    {
        const TDataSetDesignerScope designer(dataSet);
        const TFieldSelectionsOff off(SvcManager());
        field = MakeField(*designer.get(), name, collectError, error);
        const auto root = InterfaceCast<IDesigner>(FindRootDesigner(field.get()));
        if (root) {
            root->ClearSelection();
            root->Modified();
            designer->DataEvent(deFieldListChange, 0);
        }
    }
    if (FDataSetList)
        FDataSetList->InternalUpdateFieldDefs(this, false, false);
    return field ? InterfacePtr<IMrvFieldAttr>(FieldByName(field->Name(), smName)) : nullptr;
}

void TDataSetAttr::IntfCreateFieldComponent(const QString& fieldName, InterfacePtr<IMrvFieldAttr>& field)
{
    field = InterfacePtr<IMrvFieldAttr>(GetFieldAttrByFieldName(fieldName));
    if (field)
        return;
    // A ZA dataset keeps its definitions; those of others are made again, and their choices with them.
    const bool remakesDefs = !IsZADataSet();
    if (remakesDefs)
        SaveFieldDefsInfo();
    QString error;
    field = CreateFieldComponent(fieldName, false, error);
    if (!remakesDefs)
        return;
    if (FDataSetList)
        FDataSetList->InternalUpdateFieldDefs(this, false, true);
    RestoreFieldDefsInfo();
}

void TDataSetAttr::IntfAddAllFields()
{
    auto* dataSet = GetDataSetComponent();
    if (!dataSet || GetFieldDefsCount() == 0)
        return;
    if (FDataSetList) {
        InterfacePtr<IMrvSelectionList> nothing;
        FDataSetList->IntfCreateSelectionList(nothing);
        FDataSetList->IntfSetSelections(nothing);
    }
    // The definitions may be made again with each field.
    QStringList names;
    for (int i = 0; i < dataSet->FieldDefs().Count(); ++i)
        names << dataSet->FieldDefs().Items(i)->Name();
    for (const auto& name : std::as_const(names)) {
        if (FieldByName(name, smFieldName))
            continue;
        // The failure shows its own message and the others go on: nothing is collected here.
        QString error;
        CreateFieldComponent(name, false, error);
        if (error.isEmpty())
            continue;
        MessageDlg(error, mtError, mbOK);
        break;
    }
}

void TDataSetAttr::IntfCreateNewField()
{
    auto* dataSet = GetDataSetComponent();
    if (!dataSet)
        return;
    const auto dialog = MakeDefineField();
    const TDataSetDesignerScope dataSetDesigner(dataSet);
    dialog->SetDSDesigner(dataSetDesigner.get());
    const auto designer = GetComponentDesigner();
    dialog->SetDesigner(designer);
    dialog->SetDataset(dataSet);
    const auto addKind = [&dialog](const QString& text) {
        dialog->AddKind(text);
        dialog->SetColumns(dialog->Columns() + 1);
    };
    if (dataSetDesigner->SupportsInternalCalc())
        addKind(SFKInternalCalc());
    if (dataSetDesigner->SupportsAggregates())
        addKind(SFKAggregate());
    if (dialog->ShowModal() != mrOk || !designer)
        return;
    designer->SelectComponent(dataSet);
    designer->Modified();
    if (auto* field = dialog->Field())
        designer->SelectComponent(field);
    dataSetDesigner->DataEvent(deFieldListChange, 0);
}

int TDataSetAttr::DeleteFieldComponent(TField* field)
{
    if (!CheckFieldDelete(*field))
        return 1;
    auto* dataSet = GetDataSetComponent();
    Assert(dataSet != nullptr, QStringLiteral("MrvClasses"), QStringLiteral("DataSetComponent is nil"));
    const TDataSetDesignerScope designer(dataSet);
    const auto root = InterfaceCast<IDesigner>(FindRootDesigner(dataSet));
    Design(*designer.get(), [&] { designer->DeleteField(field); });
    if (root)
        root->Modified();
    designer->DataEvent(deFieldListChange, 0);
    return 0;
}

int TDataSetAttr::IntfDeleteFieldComponent(const QString& name)
{
    const InterfacePtr<TDataSetAttr> held(this);
    const bool remakesDefs = !IsZADataSet();
    if (remakesDefs)
        SaveFieldDefsInfo();
    const Finally restore([&] {
        if (remakesDefs)
            RestoreFieldDefsInfo();
    });
    auto* attr = FieldByName(name, smName);
    if (!attr)
        return 0;
    // Looked up by name: what was remembered may be another object by now.
    attr->SetComponent(nullptr);
    auto* field = attr->GetFieldComponent();
    return field ? DeleteFieldComponent(field) : 0;
}
