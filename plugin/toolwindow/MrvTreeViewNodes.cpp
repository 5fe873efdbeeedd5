#include "toolwindow/MrvTreeView.h"

#include "rtl/Guard.h"
#include "support/MrvTreeNodes.h"

#include <QScopedValueRollback>

namespace {

int GuidOf(const InterfacePtr<IInterface>& ref)
{
    int guid = -1;
    if (const auto attr = InterfaceCast<IMrvCustomComponentAttr>(ref))
        attr->GetGuid(guid);
    return guid;
}

int FieldIndexOf(const TTreeNode* node)
{
    const auto field = InterfaceCast<IMrvFieldAttr>(TMrvTreeView::NodeData(node)->GetDataRef());
    return field ? field->IntfGetFieldIndex() : -1;
}

// Fields in dataset order, everything else by caption. A walk over neighbours meets each node twice: the index of the
// one before is kept.
class NodeOrder {
public:
    int operator()(const TTreeNode* a, const TTreeNode* b)
    {
        if (TMrvTreeView::NodeType(a) != ndtField || TMrvTreeView::NodeType(b) != ndtField)
            return CompareText(a->Text(), b->Text());
        const int indexOfB = b == FLast ? FLastIndex : FieldIndexOf(b);
        FLast = a;
        FLastIndex = FieldIndexOf(a);
        return FLastIndex - indexOfB;
    }

private:
    const TTreeNode* FLast = nullptr;
    int FLastIndex = -1;
};

template <class Key, class Nodes>
void Forget(QHash<Key, Nodes>& index, const std::type_identity_t<Key>& key, TTreeNode* node)
{
    const auto found = index.find(key);
    if (found != index.end() && found->removeOne(node) && found->isEmpty())
        index.erase(found);
}

// Whether a stands before b in tree order.
bool StandsBefore(const TTreeNode* a, const TTreeNode* b)
{
    QList<const TTreeNode*> pathA;
    QList<const TTreeNode*> pathB;
    for (const auto* walk = a; walk; walk = walk->Parent())
        pathA.prepend(walk);
    for (const auto* walk = b; walk; walk = walk->Parent())
        pathB.prepend(walk);
    for (qsizetype i = 0; i < std::min(pathA.size(), pathB.size()); ++i)
        if (pathA[i] != pathB[i])
            return pathA[i]->Index() < pathB[i]->Index();
    return pathA.size() < pathB.size();
}

}

TNodeData* TMrvTreeView::NodeData(const TTreeNode* node)
{
    return node ? static_cast<TNodeData*>(node->Data()) : nullptr;
}

TNodeDataType TMrvTreeView::NodeType(const TTreeNode* node)
{
    const auto* data = NodeData(node);
    return data ? data->GetNodeType() : ndtBlank;
}

InterfacePtr<IMrvCustomComponentAttr> TMrvTreeView::NodeAttr(const TTreeNode* node)
{
    const auto* data = NodeData(node);
    return data ? InterfaceCast<IMrvCustomComponentAttr>(data->GetDataRef()) : nullptr;
}

QString TMrvTreeView::NodeKind(const TTreeNode* node) const
{
    static const QStringList kinds { QStringLiteral("ndtDataSet"), QStringLiteral("ndtField"),
        QStringLiteral("ndtFieldDef"), QStringLiteral("ndtBlank"), QStringLiteral("ndtRoot"), QStringLiteral("ndtForm"),
        QStringLiteral("ndtConnection") };
    return kinds.value(NodeType(node));
}

bool TMrvTreeView::IsGroup(const TTreeNode* node)
{
    return node->Parent() && !node->Parent()->Parent();
}

void TMrvTreeView::Index(TTreeNode* node)
{
    if (IsGroup(node))
        FGroups[node->Text()] << node;
    const int guid = GuidOf(NodeData(node)->GetDataRef());
    if (guid != -1)
        FByGuid[{ guid }].append(node);
}

TTreeNode* TMrvTreeView::AddNode(
    TTreeNode* parent, const QString& text, TNodeDataType type, const InterfacePtr<IInterface>& ref)
{
    auto* node = Items().AddChildObject(parent, text, TMrvUtils::CreateNodeData(type, ref));
    Index(node);
    return node;
}

TTreeNode* TMrvTreeView::AddNodeFirst(
    TTreeNode* parent, const QString& text, TNodeDataType type, const InterfacePtr<IInterface>& ref)
{
    auto* node = Items().AddChildObjectFirst(parent, text, TMrvUtils::CreateNodeData(type, ref));
    Index(node);
    return node;
}

TTreeNode* TMrvTreeView::InsertNode(
    TTreeNode* before, const QString& text, TNodeDataType type, const InterfacePtr<IInterface>& ref)
{
    auto* node = Items().InsertObject(before, text, TMrvUtils::CreateNodeData(type, ref));
    Index(node);
    return node;
}

void TMrvTreeView::DeleteNode(TTreeNode* node)
{
    TMrvUtils::DeleteNode(node);
}

void TMrvTreeView::DeleteChildren(TTreeNode* node)
{
    while (auto* child = node->GetLastChild())
        DeleteNode(child);
}

// The node is taken out of the index while what it carries still answers.
void TMrvTreeView::NodeDeletion(TTreeNode* node)
{
    if (FClearing)
        return;
    if (node == FDragedItem)
        FDragedItem = nullptr;
    if (node == FTopItem)
        FTopItem = nullptr;
    if (FOnNodeDeletion)
        FOnNodeDeletion(node);
    if (const auto* data = NodeData(node))
        Forget(FByGuid, { GuidOf(data->GetDataRef()) }, node);
    if (IsGroup(node))
        Forget(FGroups, node->Text(), node);
    for (int i = 0; i < node->Count(); ++i)
        NodeDeletion(node->Item(i));
}

void TMrvTreeView::NodeTextChanged(TTreeNode* node, const QString& oldText)
{
    if (!IsGroup(node))
        return;
    Forget(FGroups, oldText, node);
    FGroups[node->Text()] << node;
}

TTreeNode* TMrvTreeView::FindGroupNode(const QString& name) const
{
    TTreeNode* first = nullptr;
    for (auto* node : FGroups.value(name))
        first = !first || node->Index() < first->Index() ? node : first;
    return first;
}

void TMrvTreeView::TakeData(TTreeNode* node, std::vector<std::unique_ptr<TNodeData>>& carried)
{
    if (FOnNodeDeletion)
        FOnNodeDeletion(node);
    for (int i = 0; i < node->Count(); ++i)
        TakeData(node->Item(i), carried);
    carried.emplace_back(NodeData(node));
    node->SetData(nullptr);
}

void TMrvTreeView::Clear()
{
    // The next tree is mostly as large.
    const auto size = FByGuid.size();
    FByGuid.clear();
    FByGuid.reserve(size);
    FGroups.clear();
    FDragedItem = nullptr;
    FTopItem = nullptr;
    std::vector<std::unique_ptr<TNodeData>> carried;
    carried.reserve(size_t(Items().Count()));
    for (auto* node = Items().GetFirstNode(); node; node = node->GetNextSibling())
        TakeData(node, carried);
    const QScopedValueRollback clearing(FClearing, true);
    Items().Clear();
}

TTreeNode* TMrvTreeView::FindChildNodeByName(TTreeNode* parent, const QString& name) const
{
    auto* child = parent ? parent->GetFirstChild() : Items().GetFirstNode();
    while (child && !SameText(child->Text(), name))
        child = child->GetNextSibling();
    return child;
}

std::span<TTreeNode* const> TMrvTreeView::NodesOf(const InterfacePtr<IInterface>& ref) const
{
    const auto found = FByGuid.constFind({ GuidOf(ref) });
    if (found == FByGuid.cend())
        return {};
    return { found->constData(), size_t(found->size()) };
}

TTreeNode* TMrvTreeView::FindChildNodeByDataRef(TTreeNode* parent, const InterfacePtr<IInterface>& ref) const
{
    TTreeNode* first = nullptr;
    for (auto* node : NodesOf(ref)) {
        const auto type = NodeType(node);
        if (node->Parent() == parent && type != ndtBlank && type != ndtRoot)
            first = !first || node->Index() < first->Index() ? node : first;
    }
    return first;
}

TTreeNode* TMrvTreeView::FindChildNodeByType(TTreeNode* parent, TNodeDataType type) const
{
    auto* child = parent ? parent->GetFirstChild() : Items().GetFirstNode();
    while (child && NodeType(child) != type)
        child = child->GetNextSibling();
    return child;
}

TTreeNode* TMrvTreeView::FindNodeByDataRef(const InterfacePtr<IInterface>& ref, TTreeNode* after) const
{
    TTreeNode* first = nullptr;
    for (auto* node : NodesOf(ref)) {
        if (after && !StandsBefore(after, node))
            continue;
        first = !first || StandsBefore(node, first) ? node : first;
    }
    return first;
}

QList<TTreeNode*> TMrvTreeView::FindNodesByDataRef(const InterfacePtr<IInterface>& ref) const
{
    const auto known = NodesOf(ref);
    QList<TTreeNode*> nodes(known.begin(), known.end());
    std::sort(nodes.begin(), nodes.end(), StandsBefore);
    return nodes;
}

TTreeNode* TMrvTreeView::FindNodeByDataRef(const TNodeData* data, TTreeNode* after) const
{
    auto* node = after ? after->GetNext() : Items().GetFirstNode();
    while (node && NodeData(node) != data)
        node = node->GetNext();
    return node;
}

TTreeNode* TMrvTreeView::FindNodeByType(TNodeDataType type, TTreeNode* start) const
{
    auto* node = start ? start : Items().GetFirstNode();
    while (node && NodeType(node) != type)
        node = node->GetNext();
    return node;
}

TTreeNode* TMrvTreeView::FindNodeByName(const QString& name, TTreeNode* after) const
{
    auto* node = after ? after : Items().GetFirstNode();
    while (node && node->Text() != name)
        node = node->GetNext();
    return node;
}

TTreeNode* TMrvTreeView::FastFindNodeByName(const QString& name) const
{
    const auto* parent = Items().GetFirstNode();
    int low = 0;
    int high = parent ? parent->Count() - 1 : -1;
    while (low <= high) {
        const int middle = (low + high) >> 1;
        auto* node = parent->Item(middle);
        const int order = CompareText(node->Text(), name);
        if (order == 0)
            return node;
        if (order < 0)
            low = middle + 1;
        else
            high = middle - 1;
    }
    return nullptr;
}

void TMrvTreeView::MoveItem(TTreeNode* source, TTreeNode* dest)
{
    auto* next = dest->Parent() ? dest->GetNextSibling() : nullptr;
    if (source->Index() < dest->Index() && next)
        source->MoveTo(next, naInsert);
    else if (source->Index() > dest->Index() && next)
        source->MoveTo(dest, naInsert);
    else
        source->MoveTo(dest, naAdd);
}

void TMrvTreeView::RefreshChildNodes(TTreeNode* parent)
{
    for (auto* node = parent ? parent->GetFirstChild() : nullptr; node;) {
        auto* next = node->GetNextSibling();
        if (NodeType(node) == ndtField) {
            if (NodeAttr(node)->IsDeleted()) {
                DeleteNode(node);
            } else {
                QString caption;
                InterfaceCast<IMrvFieldAttr>(NodeAttr(node))->IntfGetDisplayName(caption);
                node->SetText(caption);
            }
        }
        node = next;
    }
}

void TMrvTreeView::RenameNodes(const QString& oldName, const QString& newName)
{
    Assert(!SameText(oldName, newName), QStringLiteral("MrvTreeView"));
    Items().BeginUpdate();
    const Finally endUpdate([this] { Items().EndUpdate(); });
    for (auto* node = FindNodeByName(oldName); node; node = FindNodeByName(oldName, node))
        node->SetText(newName);
}

void TMrvTreeView::SaveSelections()
{
    FSelections.clear();
    for (int i = 0; i < SelectionCount(); ++i)
        if (const auto* data = NodeData(Selections(i)); data && data->GetDataRef())
            FSelections << data->GetDataRef();
}

void TMrvTreeView::RestoreSelections()
{
    QList<TTreeNode*> nodes;
    for (const auto& ref : std::as_const(FSelections))
        nodes << FindNodesByDataRef(ref);
    Select(nodes);
}

void TMrvTreeView::SortChildren(TTreeNode* node)
{
    Items().SortChildren(node, NodeOrder());
}

void TMrvTreeView::Sort()
{
    Items().CustomSort(NodeOrder());
}
