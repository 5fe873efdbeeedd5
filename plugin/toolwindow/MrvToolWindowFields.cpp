#include "rtl/SysUtils.h"
#include "support/MrvConst.h"
#include "support/MrvUtils.h"
#include "toolwindow/MrvToolWindow.h"
#include "toolwindow/MrvToolWindowIntf.h"

using namespace MrvToolWindow;

namespace {

constexpr int UnusedFieldDefImage = 5;

InterfacePtr<IMrvFieldAttr> FieldByName(
    const InterfacePtr<IMrvDataSetAttr>& dataSet, const QString& name, TSearchMode mode)
{
    InterfacePtr<IMrvFieldAttr> field;
    dataSet->IntfFieldByName(name, mode, field);
    return field;
}

InterfacePtr<IMrvFieldAttr> FieldAt(const InterfacePtr<IMrvDataSetAttr>& dataSet, int position)
{
    InterfacePtr<IMrvFieldAttr> field;
    dataSet->IntfGetField(position, field);
    return field;
}

InterfacePtr<IMrvFieldDefAttr> FieldDefAt(const InterfacePtr<IMrvDataSetAttr>& dataSet, int position)
{
    InterfacePtr<IMrvFieldDefAttr> fieldDef;
    dataSet->IntfGetFieldDef(position, fieldDef);
    return fieldDef;
}

}

void TMrvToolWindow::AddDataSetFields(TTreeNode* node, const InterfacePtr<IMrvDataSetAttr>& dataSet, TDsTreeDrawMode)
{
    if (!IsDataSetClass(Component(dataSet)) || dataSet->IntfGetFieldCount() == 0)
        return;
    auto* fieldsNode = FDataSetView->FindChildNodeByName(node, sFields);
    const bool expanded = fieldsNode && fieldsNode->Expanded();
    if (fieldsNode)
        FDataSetView->DeleteChildren(fieldsNode);
    else
        fieldsNode = FDataSetView->AddNodeFirst(node, sFields, ndtBlank, nullptr);
    for (int i = 0; i < dataSet->IntfGetFieldCount(); ++i)
        AddField(fieldsNode, FieldAt(dataSet, i));
    // It closed when its last child went.
    if (expanded)
        fieldsNode->SetExpanded(true);
}

// The sub-fields of an object field stand flat beside it, ahead of it; the model lists them too, and each field has one
// node.
void TMrvToolWindow::AddField(TTreeNode* fieldsNode, const InterfacePtr<IMrvFieldAttr>& field)
{
    const auto common = InterfaceCast<IMrvCommonFieldAttr>(field);
    InterfacePtr<IMrvCommonFieldAttr> parent;
    if (common->HasParent(parent) && FDataSetView->FindChildNodeByDataRef(fieldsNode, field))
        return;
    const auto attr = InterfaceCast<IMrvCustomComponentAttr>(field);
    if (common->HasChild())
        for (int i = 0; i < common->GetChildCount(); ++i) {
            InterfacePtr<IMrvCommonFieldAttr> child;
            common->GetChild(i, child);
            AddField(fieldsNode, InterfaceCast<IMrvFieldAttr>(child));
        }
    auto* node = FDataSetView->AddNode(fieldsNode, DisplayName(field), ndtField, field);
    SetImages(node, GetImageIndex(attr));
    attr->SetIsInserted(false);
}

void TMrvToolWindow::AddDataSetFieldDefs(TTreeNode* node, const InterfacePtr<IMrvDataSetAttr>& dataSet)
{
    if (!IsDataSetClass(Component(dataSet)))
        return;
    const bool isFieldsNode = node && SameText(node->Text(), QString(sFields));
    auto* fieldsNode = node && !isFieldsNode ? FDataSetView->FindChildNodeByName(node, sFields) : node;
    const auto* selected = FDataSetView->GetSelectedNode();
    const auto selectedName = selected ? selected->Text() : QString();
    if (dataSet->IntfGetFieldDefCount() == 0) {
        if (fieldsNode)
            DeleteFieldDefsNodes(fieldsNode);
        return;
    }
    if (!fieldsNode)
        fieldsNode = FDataSetView->AddNodeFirst(node, sFields, ndtBlank, nullptr);
    SyncFieldDefs(fieldsNode, dataSet, selectedName);
    if (FNeedExpand) {
        if (node)
            node->Expand(false);
        fieldsNode->Expand(false);
    }
    for (auto* child = fieldsNode->GetFirstChild(); child; child = child->GetNextSibling())
        if (TMrvTreeView::NodeType(child) == ndtFieldDef)
            SetFieldDefImage(child, dataSet);
}

// A definition shows only while no persistent field stands for it.
void TMrvToolWindow::SyncFieldDefs(
    TTreeNode* fieldsNode, const InterfacePtr<IMrvDataSetAttr>& dataSet, const QString& selectedName)
{
    for (int i = 0; i < dataSet->IntfGetFieldDefCount(); ++i) {
        const auto fieldDef = FieldDefAt(dataSet, i);
        auto* node = FDataSetView->FindChildNodeByDataRef(fieldsNode, fieldDef);
        const auto caption = DisplayName(fieldDef, false);
        if (node && !SameText(node->Text(), caption))
            node->SetText(caption);
        const bool hasField = bool(FieldByName(dataSet, DisplayName(fieldDef, true), smFieldName));
        if (node && hasField)
            FDataSetView->DeleteNode(node);
        else if (!node && !hasField)
            AddFieldDefsNode(fieldsNode, fieldDef, dataSet, selectedName);
    }
}

void TMrvToolWindow::SetFieldDefImage(TTreeNode* node, const InterfacePtr<IMrvDataSetAttr>& dataSet)
{
    const bool unused = dataSet->IntfGetFieldCount() != 0;
    SetImages(node, unused ? UnusedFieldDefImage : GetImageIndex(TMrvTreeView::NodeAttr(node)));
}

void TMrvToolWindow::AddFieldDefsNode(TTreeNode* fieldsNode, const InterfacePtr<IMrvFieldDefAttr>& fieldDef,
    const InterfacePtr<IMrvDataSetAttr>& dataSet, const QString& selectedName)
{
    const auto caption = DisplayName(fieldDef, false);
    if (!FieldByName(dataSet, caption, smFieldName)) {
        auto* node = FDataSetView->AddNode(fieldsNode, caption, ndtFieldDef, fieldDef);
        if (SameText(caption, selectedName))
            FDataSetView->Select(node);
        SetFieldDefImage(node, dataSet);
    }
    AddChildFieldDefs(dataSet, DisplayName(fieldDef, true), fieldsNode, selectedName);
}

void TMrvToolWindow::AddChildFieldDefs(const InterfacePtr<IMrvDataSetAttr>& dataSet, const QString& fieldName,
    TTreeNode* fieldsNode, const QString& selectedName)
{
    InterfacePtr<IMrvFieldDefAttr> fieldDef;
    dataSet->GetFieldDefByFieldName(fieldName, fieldDef);
    const auto common = InterfaceCast<IMrvCommonFieldAttr>(fieldDef);
    if (!common || !common->HasChild())
        return;
    for (int i = 0; i < common->GetChildCount(); ++i) {
        InterfacePtr<IMrvCommonFieldAttr> child;
        common->GetChild(i, child);
        const auto childDef = InterfaceCast<IMrvFieldDefAttr>(child);
        if (childDef && !FDataSetView->FindChildNodeByDataRef(fieldsNode, childDef))
            AddFieldDefsNode(fieldsNode, childDef, dataSet, selectedName);
    }
}

// From the first definition on everything goes, whatever its kind: with no definitions left, fields stand before them.
void TMrvToolWindow::DeleteFieldDefsNodes(TTreeNode* fieldsNode)
{
    auto* first = FDataSetView->FindChildNodeByType(fieldsNode, ndtFieldDef);
    if (!first)
        return;
    const int position = first->Index();
    while (fieldsNode->Count() > position)
        FDataSetView->DeleteNode(fieldsNode->GetLastChild());
}

void TMrvToolWindow::DeleteFieldDefs(TTreeNode* fieldsNode)
{
    for (auto* child = fieldsNode->GetFirstChild(); child;) {
        auto* next = child->GetNextSibling();
        if (TMrvTreeView::NodeType(child) == ndtFieldDef)
            FDataSetView->DeleteNode(child);
        child = next;
    }
}

void TMrvToolWindow::RefreshFieldDefs(IMrvEvents*, const InterfacePtr<IMrvDataSetAttr>& dataSet)
{
    for (auto* node : FDataSetView->FindNodesByDataRef(dataSet)) {
        AddDataSetFieldDefs(node, dataSet);
        if (auto* fieldsNode = FDataSetView->FindChildNodeByName(node, sFields))
            FDataSetView->SortChildren(fieldsNode);
    }
}

void TMrvToolWindow::RefreshFieldDefs(IMrvEvents* sender, int index)
{
    InterfacePtr<IMrvDataSetAttr> dataSet;
    GetDataSetList()->IntfGetItem(index, dataSet);
    RefreshFieldDefs(sender, dataSet);
}

void TMrvToolWindow::RefreshFields(
    IMrvEvents*, const InterfacePtr<IMrvDataSetAttr>& dataSet, const QString& fieldName, int action)
{
    if (!IsEventEnabled(deRefreshFields))
        return;
    const auto formName = FormName(Component(dataSet));
    for (auto* node : FDataSetView->FindNodesByDataRef(dataSet)) {
        const auto type = TMrvTreeView::NodeType(node);
        if ((type == ndtDataSet || type == ndtField) && FormName(TMrvTreeView::NodeAttr(node)) == formName)
            RefreshNode(node, dataSet, fieldName, action);
    }
}

void TMrvToolWindow::RefreshNode(
    TTreeNode* node, const InterfacePtr<IMrvDataSetAttr>& dataSet, const QString& fieldName, int action)
{
    const bool deletes = action == FieldActionDelete || action == FieldActionDeferredDelete;
    auto* fieldsNode = FDataSetView->FindChildNodeByName(node, sFields);
    bool expanded = fieldsNode && fieldsNode->Expanded();
    if (dataSet->IntfGetFieldCount() > 0 || dataSet->IntfGetFieldDefCount() > 0) {
        if (!fieldsNode) {
            fieldsNode = FDataSetView->AddNodeFirst(node, sFields, ndtBlank, nullptr);
            expanded = true;
        }
        if (!deletes) {
            DeleteFieldDefs(fieldsNode);
            AddDataSetFieldDefs(fieldsNode, dataSet);
        }
    } else if (fieldsNode) {
        FDataSetView->DeleteNode(fieldsNode);
        fieldsNode = nullptr;
    }
    if (!fieldName.isEmpty() || action == FieldActionDeferredAdd || action == FieldActionDeferredDelete)
        ApplyFieldAction(node, fieldsNode, dataSet, fieldName, action);
    fieldsNode = FDataSetView->FindChildNodeByName(node, sFields);
    if (expanded && fieldsNode) {
        node->Expand(false);
        fieldsNode->Expand(false);
    }
}

void TMrvToolWindow::ApplyFieldAction(TTreeNode* node, TTreeNode* fieldsNode,
    const InterfacePtr<IMrvDataSetAttr>& dataSet, const QString& fieldName, int action)
{
    if (!fieldsNode)
        return;
    const auto field = FieldByName(dataSet, fieldName, smName);
    switch (action) {
    case FieldActionInsert:
        if (field)
            InsertField(fieldsNode, field, nullptr);
        break;
    case FieldActionUpdate:
        if (field && !FDataSetView->FindNodeByDataRef(field, node))
            RefreshFields(nullptr, dataSet, fieldName, FieldActionInsert);
        FDataSetView->RefreshChildNodes(fieldsNode);
        DoRefreshFieldDefs(node, dataSet, field, action);
        break;
    case FieldActionDelete:
    case FieldActionDeferredDelete:
        FDataSetView->RefreshChildNodes(fieldsNode);
        if (!fieldsNode->HasChildren())
            FDataSetView->DeleteNode(fieldsNode);
        break;
    case FieldActionDeferredAdd:
        InsertAddedFields(fieldsNode, dataSet);
        break;
    default:
        break;
    }
}

// The mark of an inserted field goes with its node; a dataset that stands twice in the tree has two to make.
void TMrvToolWindow::InsertAddedFields(TTreeNode* fieldsNode, const InterfacePtr<IMrvDataSetAttr>& dataSet)
{
    TTreeNode* made = nullptr;
    for (int i = 0; i < dataSet->IntfGetFieldCount(); ++i)
        InsertField(fieldsNode, FieldAt(dataSet, i), &made);
    // What was put in between moved the others on.
    RecaptionFields(fieldsNode);
    if (!FNeedSelectNode || !made)
        return;
    FNeedSelectNode = false;
    SelectNode(made);
    SelectComponent();
}

void TMrvToolWindow::InsertField(TTreeNode* fieldsNode, const InterfacePtr<IMrvFieldAttr>& field, TTreeNode** made)
{
    const auto attr = InterfaceCast<IMrvCustomComponentAttr>(field);
    if (attr->IsDeleted() || FDataSetView->FindChildNodeByDataRef(fieldsNode, field))
        return;
    const int position = field->IntfGetFieldIndex();
    auto* before = fieldsNode->Item(position);
    auto* node = before ? FDataSetView->InsertNode(before, DisplayName(field), ndtField, field)
                        : FDataSetView->AddNode(fieldsNode, DisplayName(field), ndtField, field);
    SetImages(node, GetImageIndex(attr));
    attr->SetIsInserted(false);
    if (made)
        *made = node;
}

void TMrvToolWindow::DoRefreshFieldDefs(
    TTreeNode* node, const InterfacePtr<IMrvDataSetAttr>& dataSet, const InterfacePtr<IMrvFieldAttr>& field, int action)
{
    dataSet->IntfUpdateFieldDefs();
    auto* fieldsNode = FDataSetView->FindChildNodeByName(node, sFields);
    if (!fieldsNode)
        fieldsNode = FDataSetView->AddNode(node, sFields, ndtBlank, nullptr);
    QString name;
    if (field)
        field->IntfGetFieldName(name);
    if (action == FieldActionInsert) {
        if (auto* child = FDataSetView->FindChildNodeByName(fieldsNode, name))
            FDataSetView->DeleteNode(child);
    } else if (action == FieldActionDelete) {
        InterfacePtr<IMrvFieldDefAttr> fieldDef;
        dataSet->IntfFieldDefsByName(name, fieldDef);
        if (fieldDef)
            SetFieldDefImage(FDataSetView->AddNode(fieldsNode, name, ndtFieldDef, fieldDef), dataSet);
    }
}

void TMrvToolWindow::OnFieldIndexModified(IMrvEvents* sender, const InterfacePtr<IMrvDataSetAttr>& dataSet,
    const InterfacePtr<IMrvFieldAttr>& field, int oldIndex, int newIndex)
{
    if (!IsEventEnabled(deOnFieldIndexModified))
        return;
    for (auto* node : FDataSetView->FindNodesByDataRef(dataSet)) {
        InternalFieldIndexModified(sender, node, dataSet, field, oldIndex, newIndex);
        // Captions carry the index. Asking for them brings the wrappers up to date, and no event comes for those.
        if (auto* fieldsNode = FDataSetView->FindChildNodeByName(node, sFields)) {
            RecaptionFields(fieldsNode);
            FDataSetView->SortChildren(fieldsNode);
        }
    }
}

void TMrvToolWindow::InternalFieldIndexModified(IMrvEvents*, TTreeNode* node, const InterfacePtr<IMrvDataSetAttr>&,
    const InterfacePtr<IMrvFieldAttr>& field, int, int newIndex)
{
    auto* fieldsNode = FDataSetView->FindChildNodeByName(node, sFields);
    auto* source = fieldsNode ? FDataSetView->FindChildNodeByDataRef(fieldsNode, field) : nullptr;
    auto* target = fieldsNode ? fieldsNode->Item(newIndex) : nullptr;
    if (source && target && source != target)
        FDataSetView->MoveItem(source, target);
}
