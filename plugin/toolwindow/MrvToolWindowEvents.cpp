#include "ide/MrvServicesProxy.h"
#include "rtl/Guard.h"
#include "support/MrvConst.h"
#include "support/MrvUtils.h"
#include "toolwindow/MrvToolWindow.h"
#include "toolwindow/MrvToolWindowIntf.h"

#include <QToolButton>

using namespace MrvToolWindow;

void TMrvToolWindow::OnProjectOpened(IMrvEvents*)
{
    DrawDataSetView(dmLoad);
    if (auto* first = FDataSetView->Items().GetFirstNode())
        first->Expand(false);
    acProperties->SetEnabled(true);
}

void TMrvToolWindow::OnProjectClosed()
{
    CleanDataSetView();
    AddRootNode();
    FRootNode->SetText(sNoActiveProject);
    acProperties->SetEnabled(false);
}

void TMrvToolWindow::OnProjectRenamed(IMrvEvents*, const QString&)
{
    if (!FDataSetView->FindNodeByType(ndtRoot)) {
        FRootNode = FDataSetView->AddNode(nullptr, sNoActiveProject, ndtRoot, nullptr);
        SetImages(FRootNode, 1);
        return;
    }
    AddRootNode();
}

void TMrvToolWindow::BeginUpdate()
{
    FDataSetView->Items().BeginUpdate();
}

void TMrvToolWindow::EndUpdate(WordBool sort)
{
    if (sort)
        FDataSetView->Sort();
    FDataSetView->Items().EndUpdate();
}

void TMrvToolWindow::DisableEvents(TMainFormEvent event)
{
    if (event < 8)
        FDisabledEvents |= TMainFormEvents(1 << event);
}

void TMrvToolWindow::EnableEvents(TMainFormEvent event)
{
    if (event < 8)
        FDisabledEvents &= TMainFormEvents(~(1 << event));
}

bool TMrvToolWindow::IsEventEnabled(TMainFormEvent event) const
{
    return event > 7 || !(FDisabledEvents & (1 << event));
}

void TMrvToolWindow::RefreshDataSetList(IMrvEvents*, const QString& formName, TMrvRefreshMode mode, bool reload)
{
    if (!MrvApiProxy->GetIsProjectOpened()) {
        MrvApiProxy->AttachToProject();
        return;
    }
    const auto list = GetDataSetList();
    const EventsOff mute(list, deDataSetListLoad);
    const UpdateScope update(FDataSetView->Items());
    if (mode == rmAdd) {
        Assert(bool(list), QStringLiteral("MrvToolWindow"));
        AddModule(formName);
    } else if (mode == rmFullRefresh) {
        if (reload && list)
            list->BuildDataSetList(false);
        DrawDataSetView(dmRefresh);
    } else if (FGroupMode == gmNone) {
        RemoveDeletedDataSets();
    } else {
        RemoveModule(formName);
    }
    SelectComponent();
}

void TMrvToolWindow::AddModule(const QString& unitName)
{
    const auto list = GetDataSetList();
    if (FGroupMode == gmSession)
        AddConnections(list);
    QString lastName;
    auto* parent = FRootNode;
    for (int i = 0; i < list->GetCount(); ++i) {
        InterfacePtr<IMrvDataSetAttr> dataSet;
        list->IntfGetItem(i, dataSet);
        if (SameText(UnitName(Component(dataSet)), unitName))
            AddItem(dataSet, dmLoad, lastName, parent);
    }
    FDataSetView->Sort();
    if (auto* first = FDataSetView->Items().GetFirstNode())
        first->Expand(false);
}

// Takes the datasets of the unit away, and with them the groups that hold nothing of another unit; a connection stays.
void TMrvToolWindow::RemoveModule(const QString& unitName)
{
    const auto list = GetDataSetList();
    for (int i = 0; list && i < list->GetCount(); ++i) {
        InterfacePtr<IMrvDataSetAttr> dataSet;
        list->IntfGetItem(i, dataSet);
        if (!SameText(UnitName(Component(dataSet)), unitName))
            continue;
        while (auto* node = FDataSetView->FindNodeByDataRef(dataSet)) {
            auto* parent = node->Parent();
            FDataSetView->DeleteNode(node);
            if (parent != FRootNode && !parent->HasChildren() && TMrvTreeView::NodeType(parent) != ndtConnection)
                FDataSetView->DeleteNode(parent);
        }
    }
}

void TMrvToolWindow::RemoveDeletedDataSets()
{
    for (auto* node = FDataSetView->Items().GetLastNode(); node;) {
        auto* previous = node->GetPrev();
        if (TMrvTreeView::NodeType(node) == ndtDataSet && TMrvTreeView::NodeAttr(node)->IsDeleted())
            previous = DeleteWithEmptiedParent(node);
        node = previous;
    }
}

void TMrvToolWindow::ComponentInserted(IMrvEvents*, const InterfacePtr<IMrvCustomComponentAttr>& attr)
{
    Assert(FGroupMode >= gmNone && FGroupMode <= gmSession, QStringLiteral("MrvToolWindow"));
    const UpdateScope update(FDataSetView->Items());
    if (const auto connection = InterfaceCast<IMrvConnectionAttr>(attr)) {
        if (FGroupMode == gmSession) {
            QString name;
            connection->GetSessionName(name);
            if (!FDataSetView->FindGroupNode(name))
                CreateParentNode(name, sConnectionUnassigned, ndtConnection, attr);
        }
    } else if (const auto dataSet = InterfaceCast<IMrvDataSetAttr>(attr)) {
        auto* parent = FDataSetView->Items().GetFirstNode();
        if (FGroupMode != gmNone) {
            const auto name = GroupName(dataSet);
            parent = FDataSetView->FindGroupNode(name);
            if (!parent)
                parent = CreateGroup(dataSet, name);
        }
        if (!FDataSetView->FindChildNodeByDataRef(parent, attr)) {
            auto* node = FDataSetView->AddNode(parent, ComponentName(attr, IsShowFormName()), ndtDataSet, dataSet);
            SetImages(node, GetImageIndex(attr));
        }
    }
    FDataSetView->Sort();
}

// The parent that goes when the node was its last: a form's, a plain group's. An emptied connection stays.
TTreeNode* TMrvToolWindow::ParentToDrop(TTreeNode* node) const
{
    auto* parent = node->Parent();
    if (!parent)
        return nullptr;
    const bool isDataSet = TMrvTreeView::NodeType(node) == ndtDataSet;
    const bool unassigned = FGroupMode == gmSession && isDataSet && parent->Text() == QString(sConnectionUnassigned);
    const bool isMaster = parent->Text() == QString(sMasterDataSet);
    const bool drops = FGroupMode == gmForm || parent->Text() == QString(sDefaultNode) || unassigned || isMaster;
    return drops && parent != FRootNode ? parent : nullptr;
}

// The parent goes at once: remembered, it could go with a node above it first. Gives the node before what went.
TTreeNode* TMrvToolWindow::DeleteWithEmptiedParent(TTreeNode* node)
{
    auto* previous = node->GetPrev();
    auto* parent = ParentToDrop(node);
    FDataSetView->DeleteNode(node);
    if (!parent || parent->HasChildren())
        return previous;
    if (parent == previous)
        previous = parent->GetPrev();
    FDataSetView->DeleteNode(parent);
    return previous;
}

void TMrvToolWindow::ComponentDeleted(IMrvEvents*)
{
    const UpdateScope update(FDataSetView->Items());
    for (auto* node = FDataSetView->Items().GetLastNode(); node;) {
        auto* previous = node->GetPrev();
        const auto type = TMrvTreeView::NodeType(node);
        if ((type == ndtDataSet || type == ndtConnection) && TMrvTreeView::NodeAttr(node)->IsDeleted())
            previous = DeleteWithEmptiedParent(node);
        node = previous;
    }
}

void TMrvToolWindow::ComponentRenamed(
    IMrvEvents*, const QString&, const QString& newName, const InterfacePtr<IMrvDataSetAttr>& dataSet)
{
    const auto caption = IsShowFormName() ? newName : newName.mid(newName.indexOf(u'.') + 1);
    {
        const UpdateScope update(FDataSetView->Items());
        for (auto* node : FDataSetView->FindNodesByDataRef(dataSet))
            node->SetText(caption);
        FDataSetView->Sort();
    }
    FDataSetView->ButtonMoveTo(FDataSetView->GetSelectedNode());
}

void TMrvToolWindow::OnFormRenamed(const QString& oldName, const QString& newName)
{
    const UpdateScope update(FDataSetView->Items());
    if (FGroupMode == gmForm) {
        RenameGroup(oldName, newName);
    } else if (FRootNode) {
        for (auto* node = FRootNode->GetFirstChild(); node; node = node->GetNext()) {
            QString name;
            const auto attr = TMrvTreeView::NodeAttr(node);
            if (TMrvTreeView::NodeType(node) == ndtDataSet)
                name = ComponentName(attr, true);
            else if (const auto connection = InterfaceCast<IMrvConnectionAttr>(attr))
                connection->GetSessionName(name);
            if (!name.isEmpty())
                node->SetText(name);
        }
    }
    FDataSetView->Sort();
}

void TMrvToolWindow::OnSessionRenamed(const QString& oldName, const QString& newName)
{
    if (FGroupMode != gmSession)
        return;
    const UpdateScope update(FDataSetView->Items());
    RenameGroup(oldName, newName);
    FDataSetView->Sort();
}

// A dataset may bear the name of another form: what stands deeper keeps its caption.
void TMrvToolWindow::RenameGroup(const QString& oldName, const QString& newName)
{
    if (auto* group = FDataSetView->FindGroupNode(oldName))
        group->SetText(newName);
}

void TMrvToolWindow::OnSessionChanged()
{
    const auto list = GetDataSetList();
    if (FGroupMode != gmSession || !list)
        return;
    QList<TTreeNode*> reselect;
    {
        const UpdateScope update(FDataSetView->Items());
        for (int i = 0; i < list->GetCount(); ++i) {
            InterfacePtr<IMrvDataSetAttr> dataSet;
            list->IntfGetItem(i, dataSet);
            if (Component(dataSet)->IsDeleted() || !dataSet->IsSessionChanged())
                continue;
            const Finally settled([&dataSet] { dataSet->SetSessionChanged(false); });
            MoveToSession(dataSet, reselect);
        }
        FDataSetView->Sort();
    }
    for (auto* node : reselect)
        FDataSetView->Select(node, ssCtrl | ssLeft);
}

void TMrvToolWindow::MoveToSession(const InterfacePtr<IMrvDataSetAttr>& dataSet, QList<TTreeNode*>& reselect)
{
    auto* node = OwnNode(dataSet);
    const auto name = SessionName(dataSet);
    if (!node || SameText(node->Parent()->Text(), name))
        return;
    auto* group = FDataSetView->FindGroupNode(name);
    if (MoveToGroup(node, group ? group : CreateGroup(dataSet, name)))
        reselect << node;
}

// The update is held from the second selected node on.
void TMrvToolWindow::OnSelectionChanged()
{
    FDataSetView->ClearSelection(false);
    int count = 0;
    for (auto* node = FDataSetView->Items().GetFirstNode(); node; node = node->GetNext()) {
        const auto type = TMrvTreeView::NodeType(node);
        if (type != ndtDataSet && type != ndtField && type != ndtConnection)
            continue;
        const auto attr = TMrvTreeView::NodeAttr(node);
        if (!attr->GetSelected() || attr->IsDeleted() || node->Selected())
            continue;
        if (++count == 2)
            FDataSetView->Items().BeginUpdate();
        FDataSetView->Select(node, ssCtrl | ssLeft);
    }
    if (count >= 2)
        FDataSetView->Items().EndUpdate();
}

void TMrvToolWindow::OnFormSelected(const QString& name)
{
    if (auto* node = FDataSetView->FindNodeByName(name))
        FDataSetView->Select(node);
}
