#include "design/DataControls.h"
#include "rtl/Dialogs.h"
#include "rtl/Guard.h"
#include "support/MrvConst.h"
#include "toolwindow/MrvToolWindow.h"
#include "toolwindow/MrvToolWindowIntf.h"

using namespace MrvToolWindow;

namespace {

constexpr std::intptr_t NewFieldTag = 1;
constexpr std::intptr_t AddAllFieldsTag = 2;

// The dataset that a field, a definition or a child wrapper belongs to.
InterfacePtr<IMrvDataSetAttr> OwnerOf(const InterfacePtr<IMrvCustomComponentAttr>& attr)
{
    InterfacePtr<IMrvCustomComponentAttr> owner;
    attr->IntfGetOwner(owner);
    return InterfaceCast<IMrvDataSetAttr>(owner);
}

InterfacePtr<IMrvDataSetAttr> DataSetOf(const TTreeNode* node)
{
    return InterfaceCast<IMrvDataSetAttr>(TMrvTreeView::NodeAttr(node));
}

// The nodes of deleted fields stay until the model has told of them; none of those is one to select.
bool IsLive(const TTreeNode* node)
{
    const auto attr = TMrvTreeView::NodeAttr(node);
    return !attr || !attr->IsDeleted();
}

TTreeNode* LiveFrom(TTreeNode* node)
{
    while (node && !IsLive(node))
        node = node->GetNextSibling();
    return node;
}

TTreeNode* LiveBackFrom(TTreeNode* node)
{
    while (node && !IsLive(node))
        node = node->GetPrevSibling();
    return node;
}

bool HasLiveField(const TTreeNode* fieldsNode)
{
    for (const auto* node = fieldsNode->GetFirstChild(); node; node = node->GetNextSibling())
        if (TMrvTreeView::NodeType(node) == ndtField && IsLive(node))
            return true;
    return false;
}

}

void TMrvToolWindow::acCreateFieldExecute()
{
    FNeedSelectNode = true;
    InterfacePtr<IMrvFieldAttr> field;
    CreateFieldComponent(field);
}

void TMrvToolWindow::CreateFieldComponent(InterfacePtr<IMrvFieldAttr>& field)
{
    field = nullptr;
    if (TMrvTreeView::NodeType(FDataSetView->GetSelectedNode()) != ndtFieldDef)
        return;
    FDataSetView->FEnabledMoveButton = false;
    const EventsOff mute(GetDataSetList(), deSelectionChanged);
    FDataSetView->Items().BeginUpdate();
    const Finally restore([this] {
        if (FDataSetView->isVisible())
            FDataSetView->setFocus();
        FDataSetView->Items().EndUpdate();
        FDataSetView->FEnabledMoveButton = true;
        FDataSetView->ButtonMoveTo(FDataSetView->GetSelectedNode());
    });
    // Creating fields changes the tree: what is selected is collected first.
    QList<InterfacePtr<IMrvCustomComponentAttr>> attrs;
    for (int i = 0; i < FDataSetView->SelectionCount(); ++i) {
        const auto* node = FDataSetView->Selections(i);
        // A definition may be selected in two places.
        if (TMrvTreeView::NodeType(node) == ndtFieldDef && !attrs.contains(TMrvTreeView::NodeAttr(node)))
            attrs << TMrvTreeView::NodeAttr(node);
    }
    for (const auto& attr : attrs) {
        const auto dataSet = OwnerOf(attr);
        if (!dataSet || !dataSet->AllowCreateField())
            break;
        int controlIndex = 0;
        attr->IntfGetCtrlIndex(controlIndex);
        dataSet->IntfCreateFieldComponent(DisplayName(InterfaceCast<IMrvFieldDefAttr>(attr), true), field);
        if (!field)
            Abort();
        const auto created = InterfaceCast<IMrvCustomComponentAttr>(field);
        created->IntfSetCtrlIndex(controlIndex);
        SetNodeImage(created);
    }
}

void TMrvToolWindow::acDeleteFieldExecute()
{
    QList<int> indexes;
    for (int i = 0; i < FDataSetView->SelectionCount(); ++i)
        if (TMrvTreeView::NodeType(FDataSetView->Selections(i)) == ndtField)
            indexes << FDataSetView->Selections(i)->AbsoluteIndex();
    if (indexes.isEmpty())
        return;
    std::sort(indexes.begin(), indexes.end());
    const EventsOff mute(GetDataSetList(), deSelectionChanged);
    TTreeNode* dataSetNode = nullptr;
    TTreeNode* next = nullptr;
    {
        const UpdateScope update(FDataSetView->Items());
        FDataSetView->ClearSelection(false);
        SelectComponent();
        for (auto index = indexes.crbegin(); index != indexes.crend(); ++index)
            next = DeleteFieldAt(*index, dataSetNode);
    }
    auto* fieldsNode = FDataSetView->FindChildNodeByName(dataSetNode, sFields);
    auto* first = LiveFrom(fieldsNode ? fieldsNode->GetFirstChild() : nullptr);
    SelectNode(first && !HasLiveField(fieldsNode) ? first : next);
    SelectComponent();
    FDataSetView->setFocus();
}

// Deletes the field of the node there, and gives the node to select next.
TTreeNode* TMrvToolWindow::DeleteFieldAt(int absoluteIndex, TTreeNode*& dataSetNode)
{
    constexpr int Refused = 1;
    auto* node = FDataSetView->Items().Item(absoluteIndex);
    Assert(node != nullptr, QStringLiteral("MrvToolWindow"));
    auto* fieldsNode = node->Parent();
    dataSetNode = fieldsNode->Parent();
    const auto attr = TMrvTreeView::NodeAttr(node);
    const int place = node->Index();
    const auto dataSet = OwnerOf(attr);
    // The model may be gone.
    if (!dataSet)
        return node;
    // A field that is selected in two places is deleted already at the second.
    if (!attr->IsDeleted() && dataSet->IntfDeleteFieldComponent(ComponentName(attr, false)) == Refused) {
        MessageDlg(SCantDeleteAncestor(), mtError, mbOK);
        return node;
    }
    fieldsNode = FDataSetView->FindChildNodeByName(dataSetNode, sFields);
    auto* following = LiveFrom(fieldsNode ? fieldsNode->Item(place) : nullptr);
    if (following)
        return following;
    auto* last = LiveBackFrom(fieldsNode ? fieldsNode->GetLastChild() : nullptr);
    return last ? last : dataSetNode;
}

void TMrvToolWindow::AddOrCreateField(std::intptr_t tag)
{
    auto* node = FDataSetView->GetSelectedNode();
    auto* dataSetNode = node;
    while (dataSetNode && TMrvTreeView::NodeType(dataSetNode) != ndtDataSet)
        dataSetNode = dataSetNode->Parent();
    const bool isFields = node && node->Text() == QString(sFields) && TMrvTreeView::NodeType(node) == ndtBlank;
    const auto type = TMrvTreeView::NodeType(node);
    if (!dataSetNode || !(isFields || type == ndtField || type == ndtFieldDef || type == ndtDataSet))
        return;
    Assert(tag == NewFieldTag || tag == AddAllFieldsTag, QStringLiteral("MrvToolWindow"));
    const auto dataSet = DataSetOf(dataSetNode);
    // The field dialog is modal: nothing is held while it is open.
    if (tag == NewFieldTag) {
        dataSet->IntfCreateNewField();
    } else {
        const UpdateScope update(FDataSetView->Items());
        FDataSetView->FEnabledMoveButton = false;
        const Finally enable([this] { FDataSetView->FEnabledMoveButton = true; });
        dataSet->IntfAddAllFields();
        auto* fieldsNode = FDataSetView->FindChildNodeByName(dataSetNode, sFields);
        if (fieldsNode && fieldsNode->HasChildren())
            SelectNode(fieldsNode->GetLastChild());
    }
    FDataSetView->ButtonMoveTo(FDataSetView->GetSelectedNode());
    SelectComponent();
}

void TMrvToolWindow::acDescribeFieldsExecute()
{
    auto* node = FDataSetView->GetSelectedNode();
    if (node && TMrvTreeView::NodeType(node) == ndtBlank && node->Text() == QString(sFields))
        node = node->Parent();
    if (const auto dataSet = DataSetOf(node))
        dataSet->ForceUpdateFieldDefs();
}
