#include "visual/TTreeNodes.h"

#include "visual/TImageList.h"

#include <algorithm>

TTreeNodes::TTreeNodes(QObject* parent)
    : QAbstractItemModel(parent)
    , FRoot(new TTreeNode(this, nullptr))
{
}

TTreeNodes::~TTreeNodes() = default;

TTreeNode* TTreeNodes::Item(int absoluteIndex) const
{
    auto* walk = absoluteIndex < 0 ? nullptr : GetFirstNode();
    for (int i = 0; walk && i < absoluteIndex; ++i)
        walk = walk->GetNext();
    return walk;
}

TTreeNode* TTreeNodes::GetLastNode() const
{
    return FRoot->HasChildren() ? FRoot->LastBelow() : nullptr;
}

TTreeNode* TTreeNodes::AddChildObject(TTreeNode* parent, const QString& text, TObject* data)
{
    auto* holder = parent ? parent : FRoot.get();
    return Insert(holder, holder->Count(), text, data);
}

TTreeNode* TTreeNodes::AddChildObjectFirst(TTreeNode* parent, const QString& text, TObject* data)
{
    return Insert(parent ? parent : FRoot.get(), 0, text, data);
}

TTreeNode* TTreeNodes::InsertObject(TTreeNode* before, const QString& text, TObject* data)
{
    return Insert(before->FParent, before->Index(), text, data);
}

TTreeNode* TTreeNodes::Insert(TTreeNode* parent, int position, const QString& text, TObject* data)
{
    if (!FResetting)
        beginInsertRows(IndexOf(parent), position, position);
    auto node = std::unique_ptr<TTreeNode>(new TTreeNode(this, parent));
    node->FText = text;
    node->FData = data;
    node->FIndex = position;
    parent->FIndexesStale |= position != parent->Count();
    auto* made = node.get();
    parent->FChildren.insert(parent->FChildren.begin() + position, std::move(node));
    ++FCount;
    Touch(parent);
    if (!FResetting)
        endInsertRows();
    return made;
}

namespace {

int CountBelow(const TTreeNode* node)
{
    int count = 1;
    for (int i = 0; i < node->Count(); ++i)
        count += CountBelow(node->Item(i));
    return count;
}

bool IsAtOrBelow(const TTreeNode* node, const TTreeNode* ancestor)
{
    while (node && node != ancestor)
        node = node->Parent();
    return node != nullptr;
}

}

void TTreeNodes::Remove(TTreeNode* node)
{
    if (FView)
        FView->NodeDeletion(node);
    auto* parent = node->FParent;
    if (parent->Count() == 1)
        parent->SetExpanded(false);
    const int position = node->Index();
    if (!FResetting)
        beginRemoveRows(IndexOf(parent), position, position);
    FCount -= CountBelow(node);
    std::erase_if(FUnsorted, [node](const TTreeNode* unsorted) { return IsAtOrBelow(unsorted, node); });
    const auto gone = std::move(parent->FChildren[size_t(position)]);
    parent->FChildren.erase(parent->FChildren.begin() + position);
    parent->FIndexesStale = true;
    if (!FResetting)
        endRemoveRows();
}

void TTreeNodes::RemoveChildren(TTreeNode* node)
{
    while (node->HasChildren())
        Remove(node->GetLastChild());
}

void TTreeNodes::Clear()
{
    const bool already = FResetting;
    if (!already)
        beginResetModel();
    if (FView)
        for (const auto& child : FRoot->FChildren)
            FView->NodeDeletion(child.get());
    FRoot->FChildren.clear();
    FUnsorted.clear();
    FRoot->FUnsorted = false;
    FCount = 0;
    if (!already)
        endResetModel();
}

void TTreeNodes::Move(TTreeNode* node, TTreeNode* parent, int position)
{
    auto* from = node->FParent;
    const int start = node->Index();
    if (from == parent && (position == start || position == start + 1))
        return;
    if (from != parent && from->Count() == 1)
        from->SetExpanded(false);
    if (!FResetting && !beginMoveRows(IndexOf(from), start, start, IndexOf(parent), position))
        return;
    auto held = std::move(from->FChildren[size_t(start)]);
    from->FChildren.erase(from->FChildren.begin() + start);
    const int place = from == parent && position > start ? position - 1 : position;
    held->FParent = parent;
    parent->FChildren.insert(parent->FChildren.begin() + place, std::move(held));
    from->FIndexesStale = true;
    parent->FIndexesStale = true;
    Touch(parent);
    if (!FResetting)
        endMoveRows();
}

void TTreeNodes::Touch(TTreeNode* parent)
{
    if (parent->FUnsorted)
        return;
    parent->FUnsorted = true;
    FUnsorted.push_back(parent);
}

void TTreeNodes::TextChanged(TTreeNode* node, const QString& oldText)
{
    Touch(node->FParent);
    if (FView)
        FView->NodeTextChanged(node, oldText);
    if (FResetting)
        return;
    const auto place = IndexOf(node);
    Q_EMIT dataChanged(place, place, { Qt::DisplayRole });
}

void TTreeNodes::BeginUpdate()
{
    if (FUpdateCount++ > 0)
        return;
    if (FView)
        FView->UpdatesHeld(true);
    if (FCount > 1)
        return;
    beginResetModel();
    FResetting = true;
}

void TTreeNodes::EndUpdate()
{
    if (FUpdateCount == 0 || --FUpdateCount > 0)
        return;
    if (std::exchange(FResetting, false))
        endResetModel();
    if (FView)
        FView->UpdatesHeld(false);
}

void TTreeNodes::CustomSort(const Compare& compare)
{
    SortEach(std::exchange(FUnsorted, {}), compare);
}

void TTreeNodes::SortChildren(TTreeNode* node, const Compare& compare)
{
    if (!node->FUnsorted)
        return;
    // It is mostly the last that was touched.
    const auto place = std::find(FUnsorted.rbegin(), FUnsorted.rend(), node);
    FUnsorted.erase(std::next(place).base());
    SortEach({ node }, compare);
}

// Children mostly come in their order already; nobody is told of those.
void TTreeNodes::SortEach(std::vector<TTreeNode*> nodes, const Compare& compare)
{
    const auto isBefore = [&compare](const auto& a, const auto& b) { return compare(a.get(), b.get()) < 0; };
    std::erase_if(nodes, [&](TTreeNode* node) {
        node->FUnsorted = false;
        return std::is_sorted(node->FChildren.begin(), node->FChildren.end(), isBefore);
    });
    if (nodes.empty())
        return;
    QModelIndexList before;
    QList<TTreeNode*> shown;
    if (!FResetting) {
        Q_EMIT layoutAboutToBeChanged();
        before = persistentIndexList();
        for (const auto& place : before)
            shown << NodeOf(place);
    }
    for (auto* node : nodes) {
        std::stable_sort(node->FChildren.begin(), node->FChildren.end(), isBefore);
        node->FIndexesStale = true;
    }
    if (FResetting)
        return;
    QModelIndexList after;
    for (auto* node : shown)
        after << IndexOf(node);
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged();
}

void TTreeNodes::SetImages(TImageList* images)
{
    FImages = images;
}

TImageList* TTreeNodes::Images() const
{
    return static_cast<TImageList*>(FImages.data());
}

TTreeNode* TTreeNodes::NodeOf(const QModelIndex& index) const
{
    return index.isValid() ? static_cast<TTreeNode*>(index.internalPointer()) : nullptr;
}

QModelIndex TTreeNodes::IndexOf(const TTreeNode* node) const
{
    if (!node || node == FRoot.get())
        return {};
    return createIndex(node->Index(), 0, const_cast<TTreeNode*>(node));
}

QModelIndex TTreeNodes::index(int row, int column, const QModelIndex& parent) const
{
    const auto* holder = parent.isValid() ? NodeOf(parent) : FRoot.get();
    const auto* node = column == 0 ? holder->Item(row) : nullptr;
    return node ? createIndex(row, 0, const_cast<TTreeNode*>(node)) : QModelIndex();
}

QModelIndex TTreeNodes::parent(const QModelIndex& index) const
{
    const auto* node = NodeOf(index);
    return node ? IndexOf(node->FParent) : QModelIndex();
}

int TTreeNodes::rowCount(const QModelIndex& parent) const
{
    if (parent.column() > 0)
        return 0;
    return parent.isValid() ? NodeOf(parent)->Count() : FRoot->Count();
}

bool TTreeNodes::hasChildren(const QModelIndex& parent) const
{
    return rowCount(parent) > 0;
}

QVariant TTreeNodes::data(const QModelIndex& index, int role) const
{
    const auto* node = NodeOf(index);
    if (!node)
        return {};
    if (role == Qt::DisplayRole)
        return node->Text();
    const auto* images = Images();
    if (role == Qt::DecorationRole && images && node->ImageIndex() >= 0)
        return images->Icon(node->Selected() ? node->SelectedIndex() : node->ImageIndex());
    return {};
}

Qt::ItemFlags TTreeNodes::flags(const QModelIndex& index) const
{
    return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled | Qt::ItemIsDropEnabled
                           : Qt::ItemIsDropEnabled;
}
