#include "ide/MrvServicesProxy.h"
#include "rtl/Guard.h"
#include "support/MrvConst.h"
#include "toolwindow/MrvToolWindow.h"
#include "toolwindow/MrvToolWindowIntf.h"

#include <QToolButton>

using namespace MrvToolWindow;

namespace {

constexpr int ProjectImage = 1;

}

int TMrvToolWindow::GroupNodeImage() const
{
    return GroupAction(FGroupMode)->ImageIndex();
}

void TMrvToolWindow::SetImages(TTreeNode* node, int image)
{
    node->SetSelectedIndex(image);
    node->SetImageIndex(image);
}

int TMrvToolWindow::GetImageIndex(const InterfacePtr<IMrvCustomComponentAttr>& attr)
{
    QString className;
    attr->IntfGetCurrentCtrlClassName(className);
    const int known = FImageList->IndexByClassName(className);
    if (known != -1)
        return known + FImageList->FDisp;
    const auto type = attr->IntfGetControlType();
    const auto controls = GetIDECtrlList();
    TBitmap bitmap;
    if (controls)
        bitmap.SetHandle(controls->GetImageByClassName(className, type));
    return bitmap.Empty() ? -1 : FImageList->AddMasked(bitmap, bitmap.TransparentColor(), className);
}

void TMrvToolWindow::SetNodeImage(const InterfacePtr<IMrvCustomComponentAttr>& attr)
{
    const int image = GetImageIndex(attr);
    for (auto* node : FDataSetView->FindNodesByDataRef(attr))
        SetImages(node, image);
    QString className;
    attr->IntfGetCurrentCtrlClassName(className);
    AddStatusText(className);
    FDataSetView->viewport()->update();
}

void TMrvToolWindow::AddRootNode()
{
    const auto caption = MrvApiProxy ? MrvApiProxy->GetActiveProjectName() : QString(sNoActiveProject);
    FRootNode = FDataSetView->FindNodeByType(ndtRoot);
    if (FRootNode) {
        FRootNode->SetText(caption);
        return;
    }
    FRootNode = FDataSetView->AddNode(nullptr, caption, ndtRoot, nullptr);
    SetImages(FRootNode, ProjectImage);
    FRootNode->Expand(false);
}

void TMrvToolWindow::CleanDataSetView()
{
    FDataSetView->ButtonMoveTo(nullptr);
    FSelectedNode = nullptr;
    FDataSetView->Clear();
}

TTreeNode* TMrvToolWindow::CreateParentNode(
    const QString& caption, const QString& beforeName, TNodeDataType kind, const InterfacePtr<IInterface>& ref)
{
    const auto type = ref ? kind : ndtBlank;
    auto* before = FDataSetView->FindGroupNode(beforeName);
    auto* root = FDataSetView->FindNodeByType(ndtRoot);
    auto* node = before ? FDataSetView->InsertNode(before, caption, type, ref)
                        : FDataSetView->AddNode(root, caption, type, ref);
    SetImages(node, GroupNodeImage());
    return node;
}

void TMrvToolWindow::DrawDataSetView(TDsTreeDrawMode mode)
{
    const auto list = GetDataSetList();
    if (!MrvApiProxy || !list)
        return;
    FImageList->Clear();
    FImageList->Assign(*ImageList);
    if (mode == dmRefresh)
        FDataSetView->SaveSelections();
    if (mode == dmLoad) {
        CleanDataSetView();
        acDataPreview->SetEnabled(false);
        acShowForm->SetEnabled(false);
    }
    AddRootNode();
    AddStatusText(QString());
    const UpdateScope update(FDataSetView->Items());
    if (FGroupMode == gmSession)
        AddConnections(list);
    QString lastName;
    TTreeNode* parent = FGroupMode == gmNone ? FRootNode : nullptr;
    for (int i = 0; i < list->GetCount(); ++i) {
        InterfacePtr<IMrvDataSetAttr> dataSet;
        list->IntfGetItem(i, dataSet);
        AddItem(dataSet, mode, lastName, parent);
    }
    FDataSetView->Sort();
    if (auto* first = FDataSetView->Items().GetFirstNode())
        first->Expand(false);
    if (mode == dmRefresh)
        FDataSetView->RestoreSelections();
}

// A connection without datasets shows too.
void TMrvToolWindow::AddConnections(const InterfacePtr<IMrvDataSetList>& list)
{
    for (int i = 0; i < list->GetConnectionCount(); ++i) {
        InterfacePtr<IMrvConnectionAttr> connection;
        list->GetConnectionItem(i, connection);
        QString name;
        connection->GetSessionName(name);
        if (!FDataSetView->FindGroupNode(name))
            CreateParentNode(name, sConnectionUnassigned, ndtConnection, connection);
    }
}

QString TMrvToolWindow::GroupName(const InterfacePtr<IMrvDataSetAttr>& dataSet) const
{
    return FGroupMode == gmForm ? FormName(Component(dataSet)) : SessionName(dataSet);
}

TTreeNode* TMrvToolWindow::CreateGroup(const InterfacePtr<IMrvDataSetAttr>& dataSet, const QString& name)
{
    if (FGroupMode == gmForm) {
        InterfacePtr<IMrvFormAttr> form;
        dataSet->IntfGetFormAttr(form);
        return CreateParentNode(name, sConnectionUnassigned, ndtForm, form);
    }
    if (IsPlainGroup(name))
        return CreateParentNode(name, sConnectionUnassigned, ndtBlank, nullptr);
    InterfacePtr<IMrvConnectionAttr> connection;
    dataSet->IntfGetConnectionAttr(connection);
    return CreateParentNode(name, sConnectionUnassigned, ndtConnection, connection);
}

void TMrvToolWindow::AddItem(
    const InterfacePtr<IMrvDataSetAttr>& dataSet, TDsTreeDrawMode mode, QString& lastName, TTreeNode*& parent)
{
    Assert(FGroupMode >= gmNone && FGroupMode <= gmSession, QStringLiteral("MrvToolWindow"));
    if (FGroupMode != gmNone) {
        const auto name = GroupName(dataSet);
        if (!parent || !SameText(parent->Text(), name))
            parent = FDataSetView->FindGroupNode(name);
        lastName = name;
        if (!parent)
            parent = CreateGroup(dataSet, name);
    }
    AddDataSetNode(parent, dataSet, mode);
}

// The one below the root or a group; those below a detail stay with it.
TTreeNode* TMrvToolWindow::OwnNode(const InterfacePtr<IMrvDataSetAttr>& dataSet) const
{
    const int level = FGroupMode == gmNone ? 1 : 2;
    for (auto* node : FDataSetView->FindNodesByDataRef(dataSet))
        if (node->Level() == level)
            return node;
    return nullptr;
}

// A form's or a plain group that is left empty goes; a connection stays. True for a node that was selected, and is no
// more.
bool TMrvToolWindow::MoveToGroup(TTreeNode* node, TTreeNode* group)
{
    auto* oldGroup = node->Parent();
    const bool expanded = node->Expanded();
    const bool selected = node->Selected();
    node->MoveTo(group, naAddChild);
    node->SetExpanded(expanded);
    const bool isGroup = oldGroup != FRootNode && TMrvTreeView::NodeType(oldGroup) != ndtConnection;
    if (isGroup && !oldGroup->HasChildren())
        FDataSetView->DeleteNode(oldGroup);
    return selected;
}

// With dmLoad the tree is empty, except while a module is added to it: a wrapper that has its node keeps it, also where
// it belongs to another group by now.
TTreeNode* TMrvToolWindow::AddDataSetNode(
    TTreeNode* parent, const InterfacePtr<IMrvDataSetAttr>& dataSet, TDsTreeDrawMode mode)
{
    auto* node = OwnNode(dataSet);
    if (node && node->Parent() != parent && MoveToGroup(node, parent))
        FDataSetView->Select(node, ssCtrl | ssLeft);
    const auto attr = Component(dataSet);
    const auto caption = ComponentName(attr, IsShowFormName());
    if (node)
        node->SetText(caption);
    else
        node = FDataSetView->AddNode(parent, caption, ndtDataSet, dataSet);
    SetImages(node, GetImageIndex(attr));
    AddFieldsAndFieldDefs(node, dataSet, mode);
    AddMasterNode(node, dataSet, mode);
    return node;
}

void TMrvToolWindow::AddMasterNode(TTreeNode* node, const InterfacePtr<IMrvDataSetAttr>& dataSet, TDsTreeDrawMode mode)
{
    InterfacePtr<IMrvDataSetAttr> master;
    GetDataSetList()->IntfGetMasterDataSet(dataSet, master);
    auto* group = FDataSetView->FindChildNodeByName(node, sMasterDataSet);
    if (!master) {
        if (group)
            FDataSetView->DeleteNode(group);
        return;
    }
    if (!group)
        group = FDataSetView->AddNode(node, sMasterDataSet, ndtBlank, nullptr);
    auto* masterNode = FDataSetView->FindChildNodeByDataRef(group, master);
    if (!masterNode)
        masterNode
            = FDataSetView->AddNode(group, ComponentName(Component(master), IsShowFormName()), ndtDataSet, master);
    // The one before goes last: an emptied group closes.
    while (group->Count() > 1)
        FDataSetView->DeleteNode(group->Item(group->Item(0) == masterNode ? 1 : 0));
    SetImages(masterNode, GetImageIndex(Component(master)));
    AddFieldsAndFieldDefs(masterNode, master, mode);
}

void TMrvToolWindow::AddFieldsAndFieldDefs(
    TTreeNode* node, const InterfacePtr<IMrvDataSetAttr>& dataSet, TDsTreeDrawMode mode)
{
    AddDataSetFields(node, dataSet, mode);
    AddDataSetFieldDefs(node, dataSet);
    // At once, while all that the order asks for is at hand.
    if (auto* fieldsNode = FDataSetView->FindChildNodeByName(node, sFields))
        FDataSetView->SortChildren(fieldsNode);
}

// Has no caller in the window at present.
void TMrvToolWindow::DoRefreshObjects(TTreeNode* node)
{
    for (auto* walk = node ? node : FDataSetView->Items().GetFirstNode(); walk; walk = walk->GetNextSibling()) {
        if (TMrvTreeView::NodeType(walk) == ndtDataSet) {
            const auto attr = TMrvTreeView::NodeAttr(walk);
            const auto dataSet = InterfaceCast<IMrvDataSetAttr>(attr);
            walk->SetText(ComponentName(attr, IsShowFormName()));
            walk->SetImageIndex(GetImageIndex(attr));
            dataSet->IntfUpdateFieldDefs();
            AddDataSetFields(walk, dataSet, dmRefresh);
            RefreshFieldDefs(nullptr, dataSet);
        }
        if (walk->HasChildren())
            DoRefreshObjects(walk->GetFirstChild());
    }
}
