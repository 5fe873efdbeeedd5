#include "config/MrvCfgIntf.h"
#include "model/MrvPreviewForm.h"
#include "rtl/Guard.h"
#include "support/MrvConst.h"
#include "support/MrvUtils.h"
#include "toolwindow/MrvToolWindow.h"
#include "toolwindow/MrvToolWindowIntf.h"

#include <QStatusBar>
#include <QToolButton>

using namespace MrvToolWindow;

namespace {

bool IsDataSet(const TTreeNode* node)
{
    return node && TMrvTreeView::NodeType(node) == ndtDataSet;
}

bool HasForm(const TTreeNode* node)
{
    const auto type = TMrvTreeView::NodeType(node);
    return node && (type == ndtDataSet || type == ndtForm || type == ndtConnection);
}

InterfacePtr<IMrvDataSetAttr> DataSetOf(const TTreeNode* node)
{
    return InterfaceCast<IMrvDataSetAttr>(TMrvTreeView::NodeAttr(node));
}

}

void TMrvToolWindow::SetGroupMode(TGroupMode mode)
{
    FGroupMode = mode;
    DrawDataSetView(dmLoad);
}

void TMrvToolWindow::InitGroupAction(TAction* sender, TGroupMode mode, bool save)
{
    tbGrouping->setIcon(ImageList->Icon(sender->ImageIndex()));
    SetGroupMode(mode);
    for (const auto other : { gmNone, gmForm, gmSession })
        GroupAction(other)->SetChecked(other == mode);
    if (auto* first = FDataSetView->Items().GetFirstNode())
        first->Expand(false);
    if (save) {
        GetPreferences()->SetValueByName(QStringLiteral("GroupMode"), QString::number(mode));
        MrvConfigurationService->Save();
    }
    FDataSetView->ClearSelection(false);
    SelectComponent();
}

// A click on the button part cycles none, form, connection.
void TMrvToolWindow::tbGroupingClick(QObject*)
{
    const auto mode = TGroupMode(FGroupMode == gmSession ? gmNone : FGroupMode + 1);
    InitGroupAction(FGroupingPopupMenu->Items().Items(mode)->Action(), mode, true);
}

void TMrvToolWindow::AddStatusText(const QString& text)
{
    if (text.isEmpty()) {
        twStatusBar->clearMessage();
        return;
    }
    const auto controls = GetIDECtrlList();
    QString shown = QStringLiteral("<None>");
    if (controls && controls->IsVisualControl(text))
        shown = text;
    else if (SameText(text, DetailsClassName))
        shown = QStringLiteral("<Details>");
    twStatusBar->showMessage(Format(sAssignedVisualControl, { shown }));
}

void TMrvToolWindow::SelectNode(TTreeNode* node)
{
    FDataSetView->Select(node);
}

// The way from the tree's selection to the designer's.
void TMrvToolWindow::SelectComponent()
{
    const auto list = GetDataSetList();
    if (!list)
        return;
    InterfacePtr<IMrvSelectionList> selections;
    list->IntfCreateSelectionList(selections);
    QList<TTreeNode*> nodes;
    for (int i = 0; i < FDataSetView->SelectionCount(); ++i)
        nodes << FDataSetView->Selections(i);
    if (nodes.isEmpty() && FDataSetView->GetSelectedNode())
        nodes << FDataSetView->GetSelectedNode();
    if (nodes.isEmpty()) {
        list->IntfSetSelections(selections);
        return;
    }
    const EventsOff mute(list, deSelectionChanged);
    for (const auto* node : nodes) {
        const auto type = TMrvTreeView::NodeType(node);
        if (type == ndtDataSet || type == ndtField || type == ndtFieldDef || type == ndtConnection)
            selections->Add(TMrvTreeView::NodeAttr(node));
    }
    if (nodes.size() == 1)
        ShowControlOf(nodes.first());
    else
        AddStatusText(QString());
    list->IntfSetSelections(selections);
}

// A deleted wrapper leaves the status as it is.
void TMrvToolWindow::ShowControlOf(const TTreeNode* node)
{
    const auto type = TMrvTreeView::NodeType(node);
    if (type != ndtDataSet && type != ndtField) {
        AddStatusText(QString());
        return;
    }
    const auto attr = TMrvTreeView::NodeAttr(node);
    if (attr->IsDeleted())
        return;
    QString className;
    attr->IntfGetCurrentCtrlClassName(className);
    AddStatusText(className);
}

void TMrvToolWindow::OnTreeViewBeforeChange(TMrvTreeView*, TTreeNode*, TTreeNode* newNode)
{
    FSelectedNode = newNode;
    const auto* data = TMrvTreeView::NodeData(newNode);
    acDataPreview->SetEnabled(IsDataSet(newNode) && TMrvUtils::IsDataSetDescendant(data->GetDataRef()));
    acShowForm->SetEnabled(HasForm(newNode));
}

void TMrvToolWindow::OnTreeViewDblClick()
{
    auto* node = FDataSetView->GetSelectedNode();
    if (!HasForm(node))
        return;
    const EventsOff mute(GetDataSetList(), deSelectionChanged);
    TMrvTreeView::NodeAttr(node)->IntfEdit();
}

void TMrvToolWindow::OnTreeViewActions(int charCode)
{
    constexpr int F1 = 112;
    if (charCode == F1)
        TMrvUtils::ShowHelp(10001);
}

void TMrvToolWindow::acRefreshExecute()
{
    RefreshDataSetList(nullptr, QString(), rmFullRefresh, true);
    FDataSetView->ButtonMoveTo(FDataSetView->GetSelectedNode());
}

void TMrvToolWindow::acScanAllExecute()
{
    const auto preferences = GetPreferences();
    preferences->SetValueByName(QStringLiteral("ScanAllForms"), BoolToStr(true, true));
    const Finally restore(
        [&preferences] { preferences->SetValueByName(QStringLiteral("ScanAllForms"), BoolToStr(false, true)); });
    acRefreshExecute();
}

void TMrvToolWindow::acDataPreviewExecute()
{
    if (IsDataSet(FSelectedNode))
        DataSetOf(FSelectedNode)->IntfPreviewData();
}

void TMrvToolWindow::acShowFormExecute()
{
    auto* node = FSelectedNode;
    if (IsDataSet(node)) {
        DataSetOf(node)->IntfShowForm();
        return;
    }
    const auto dataSet = HasForm(node) ? DataSetOf(node->GetFirstChild()) : nullptr;
    if (!dataSet)
        return;
    dataSet->IntfShowForm();
    if (TMrvTreeView::NodeType(node) == ndtConnection)
        dataSet->IntfSelectConnection();
    // The group stays the selected node.
    FDataSetView->Select(node);
}

void TMrvToolWindow::acHideExecute()
{
    hide();
}

void TMrvToolWindow::acHelpExecute()
{
    TMrvUtils::ShowHelp(10001);
}

void TMrvToolWindow::acDockableExecute()
{
    acDockable->SetChecked(!acDockable->Checked());
    SetDockable(acDockable->Checked());
}

void TMrvToolWindow::acStayOnTopExecute()
{
    acStayOnTop->SetChecked(!acStayOnTop->Checked());
    const bool shown = isVisible();
    setWindowFlag(Qt::WindowStaysOnTopHint, acStayOnTop->Checked());
    if (shown)
        show();
}

// The options dialog is not part of the package yet; its action is not shown.
void TMrvToolWindow::ShowPreferences() { }

bool TMrvToolWindow::OnDataSetViewAcceptDragging(TTreeNode* draggedItem, TTreeNode* currentItem)
{
    const auto type = TMrvTreeView::NodeType(draggedItem);
    if (type == ndtField)
        return currentItem != draggedItem && TMrvTreeView::NodeType(currentItem) == ndtField
            && currentItem->Parent() == draggedItem->Parent();
    if (type != ndtDataSet || FGroupMode != gmSession)
        return false;
    const auto attr = TMrvTreeView::NodeAttr(draggedItem);
    const bool takesConnection = attr->IntfInheritsFrom(TCustomZADataSetClassName)
        || attr->IntfInheritsFrom(TCustomZASQLClassName) || attr->IntfInheritsFrom(TZASctiptClassName);
    return takesConnection && currentItem != draggedItem->Parent() && currentItem->Parent() != draggedItem->Parent()
        && TMrvTreeView::NodeType(currentItem) != ndtRoot;
}

void TMrvToolWindow::OnItemMoved(TTreeNode* source, TTreeNode* dest)
{
    if (TMrvTreeView::NodeType(source) == ndtDataSet)
        MoveDataSet(source, dest);
    else if (TMrvTreeView::NodeType(source) == ndtField)
        MoveField(source, dest);
}

// The tree changes later, when the model tells of the new connection.
void TMrvToolWindow::MoveDataSet(TTreeNode* source, TTreeNode* dest)
{
    const auto* target = TMrvTreeView::NodeType(dest) == ndtDataSet ? dest->Parent() : dest;
    if (TMrvTreeView::NodeType(target) != ndtConnection)
        return;
    const auto connection = TMrvTreeView::NodeAttr(target);
    DataSetOf(source)->SetConnection(FormName(connection), ComponentName(connection, false));
}

void TMrvToolWindow::RecaptionFields(TTreeNode* fieldsNode)
{
    for (auto* node = fieldsNode ? fieldsNode->GetFirstChild() : nullptr; node; node = node->GetNextSibling())
        if (TMrvTreeView::NodeType(node) == ndtField)
            node->SetText(DisplayName(InterfaceCast<IMrvFieldAttr>(TMrvTreeView::NodeAttr(node))));
}

void TMrvToolWindow::MoveField(TTreeNode* source, TTreeNode* dest)
{
    DisableEvents(deOnFieldIndexModified);
    DisableEvents(deRefreshFields);
    const Finally enable([this] {
        EnableEvents(deOnFieldIndexModified);
        EnableEvents(deRefreshFields);
    });
    const auto field = InterfaceCast<IMrvFieldAttr>(TMrvTreeView::NodeAttr(source));
    const auto destField = InterfaceCast<IMrvFieldAttr>(TMrvTreeView::NodeAttr(dest));
    InterfacePtr<IMrvCustomComponentAttr> owner;
    TMrvTreeView::NodeAttr(source)->IntfGetOwner(owner);
    const auto dataSet = InterfaceCast<IMrvDataSetAttr>(owner);
    const int newIndex = destField->IntfGetFieldIndex();
    const int oldIndex = field->IntfGetFieldIndex();
    field->IntfSetFieldIndex(newIndex);
    if (const auto list = GetDataSetList())
        list->SetActiveDesignerModified();
    RecaptionFields(source->Parent());
    for (auto* node : FDataSetView->FindNodesByDataRef(dataSet)) {
        if (node == source->Parent()->Parent())
            continue;
        InternalFieldIndexModified(nullptr, node, dataSet, field, oldIndex, newIndex);
        RecaptionFields(node->GetFirstChild());
    }
}
