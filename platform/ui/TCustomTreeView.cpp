#include "ui/TCustomTreeView.h"

#include "rtl/Guard.h"
#include "visual/TImageList.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QStyledItemDelegate>

// Draws a node with the font that the view gives it.
class NodeDelegate : public QStyledItemDelegate {
public:
    explicit NodeDelegate(TCustomTreeView* view)
        : QStyledItemDelegate(view)
        , FView(*view)
    {
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        const auto font = FView.NodeFont(FView.Items().NodeOf(index));
        option->font.setBold(font.Bold);
        if (font.Color != clDefault)
            option->palette.setColor(QPalette::Text, ToQColor(font.Color, option->palette));
    }

private:
    TCustomTreeView& FView;
};

TCustomTreeView::TCustomTreeView(QWidget* parent)
    : QTreeView(parent)
    , FItems(new TTreeNodes(this))
{
    setModel(FItems);
    FItems->SetView(this);
    setItemDelegate(new NodeDelegate(this));
    setHeaderHidden(true);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setDragEnabled(true);
    setAcceptDrops(true);
    setDropIndicatorShown(false);
    setUniformRowHeights(true);
    setExpandsOnDoubleClick(false);
    connect(this, &QTreeView::expanded, this,
        [this](const QModelIndex& index) { FItems->NoteExpanded(FItems->NodeOf(index), true); });
    connect(this, &QTreeView::collapsed, this,
        [this](const QModelIndex& index) { FItems->NoteExpanded(FItems->NodeOf(index), false); });
    connect(FItems, &QAbstractItemModel::modelAboutToBeReset, this, [this] { FRestoring = true; });
    connect(FItems, &QAbstractItemModel::modelReset, this, &TCustomTreeView::RestoreAfterReset);
}

TCustomTreeView::~TCustomTreeView()
{
    FItems->SetView(nullptr);
}

void TCustomTreeView::SetImages(TImageList* images)
{
    FItems->SetImages(images);
    if (images)
        setIconSize({ images->Width(), images->Height() });
}

TTreeNode* TCustomTreeView::FocusedNode() const
{
    return FItems->NodeOf(currentIndex());
}

TTreeNode* TCustomTreeView::Selected() const
{
    auto* node = FocusedNode();
    return node && node->Selected() ? node : nullptr;
}

void TCustomTreeView::Select(TTreeNode* node, TShiftState shift)
{
    if (!node) {
        ClearSelection(false);
        return;
    }
    const auto flag = shift.testFlag(ssCtrl) ? QItemSelectionModel::Select : QItemSelectionModel::ClearAndSelect;
    selectionModel()->setCurrentIndex(FItems->IndexOf(node), flag | QItemSelectionModel::Rows);
}

void TCustomTreeView::Select(const QList<TTreeNode*>& nodes)
{
    QItemSelection selection;
    for (const auto* node : nodes) {
        const auto index = FItems->IndexOf(node);
        selection.select(index, index);
    }
    if (!nodes.isEmpty())
        selectionModel()->setCurrentIndex(FItems->IndexOf(nodes.last()), QItemSelectionModel::NoUpdate);
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

void TCustomTreeView::ClearSelection(bool keepPrimary)
{
    auto* primary = Selected();
    if (keepPrimary && primary)
        Select(primary);
    else
        selectionModel()->clearSelection();
}

TTreeNode* TCustomTreeView::GetNodeAt(int x, int y) const
{
    return FItems->NodeOf(indexAt({ x, y }));
}

void TCustomTreeView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected)
{
    QTreeView::selectionChanged(selected, deselected);
    if (FRestoring)
        return;
    for (const auto& index : deselected.indexes()) {
        auto* node = FItems->NodeOf(index);
        FItems->NoteSelected(node, false);
        FSelected.removeOne(node);
    }
    for (const auto& index : selected.indexes()) {
        auto* node = FItems->NodeOf(index);
        if (node->Selected())
            continue;
        FItems->NoteSelected(node, true);
        FSelected << node;
    }
    AtEventBorder([this] { Change(Selected()); });
}

void TCustomTreeView::Change(TTreeNode*) { }

// A reset takes the view's own record of what was expanded and selected; the nodes still know.
void TCustomTreeView::RestoreAfterReset()
{
    FSelected.clear();
    QItemSelection selection;
    scheduleDelayedItemsLayout();
    for (auto* node = FItems->GetFirstNode(); node; node = node->GetNext()) {
        if (node->Expanded())
            setExpanded(FItems->IndexOf(node), true);
        if (!node->Selected())
            continue;
        FSelected << node;
        selection.select(FItems->IndexOf(node), FItems->IndexOf(node));
    }
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    FRestoring = false;
}

void TCustomTreeView::NodeExpanded(TTreeNode* node, bool expanded)
{
    setExpanded(FItems->IndexOf(node), expanded);
}

void TCustomTreeView::SelectOnly(TTreeNode* node)
{
    Select(node);
}

void TCustomTreeView::Deselect(TTreeNode* node)
{
    selectionModel()->select(FItems->IndexOf(node), QItemSelectionModel::Deselect);
}

void TCustomTreeView::FocusNode(TTreeNode* node)
{
    selectionModel()->setCurrentIndex(FItems->IndexOf(node), QItemSelectionModel::NoUpdate);
}

QRect TCustomTreeView::NodeRect(const TTreeNode* node, bool textOnly) const
{
    const auto row = visualRect(FItems->IndexOf(node));
    if (!row.isValid() || !textOnly)
        return row;
    const int margin = style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 1;
    const bool hasImage = FItems->Images() && node->ImageIndex() >= 0;
    auto font = this->font();
    font.setBold(NodeFont(node).Bold);
    const int left = row.left() + (hasImage ? iconSize().width() + 2 * margin : 0);
    return { left, row.top(), QFontMetrics(font).horizontalAdvance(node->Text()) + 2 * margin, row.height() };
}

void TCustomTreeView::UpdatesHeld(bool held)
{
    setUpdatesEnabled(!held);
}

void TCustomTreeView::NodeDeletion(TTreeNode*) { }

void TCustomTreeView::NodeTextChanged(TTreeNode*, const QString&) { }

TNodeFont TCustomTreeView::NodeFont(const TTreeNode*) const
{
    return {};
}

void TCustomTreeView::DoContextPopup(QPoint position, bool& handled)
{
    if (OnContextPopup)
        OnContextPopup(position, handled);
}

void TCustomTreeView::contextMenuEvent(QContextMenuEvent* event)
{
    bool handled = false;
    AtEventBorder([&] { DoContextPopup(event->pos(), handled); });
    // What is not handled goes on to the form, which shows its own menu.
    event->setAccepted(handled);
}

QString TCustomTreeView::NodeKind(const TTreeNode*) const
{
    return {};
}

TDragObject* TCustomTreeView::StartDragObject()
{
    return nullptr;
}

Qt::DropAction TCustomTreeView::ExecDrag(QDrag* drag)
{
    return drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::CopyAction);
}

void TCustomTreeView::startDrag(Qt::DropActions)
{
    TDragObject* object = nullptr;
    AtEventBorder([&] { object = StartDragObject(); });
    if (!object)
        return;
    auto* drag = new QDrag(this);
    drag->setMimeData(new TDragObjectData(object));
    const auto action = ExecDrag(drag);
    AtEventBorder([&] { object->Finished(drag->target(), 0, 0, action != Qt::IgnoreAction); });
}

TDragObject* TCustomTreeView::DragObjectOf(const QDropEvent* event) const
{
    const auto* data = qobject_cast<const TDragObjectData*>(event->mimeData());
    return data ? data->Object() : nullptr;
}

bool TCustomTreeView::DragOver(TDragObject*, QPoint)
{
    return false;
}

void TCustomTreeView::DragDrop(TDragObject*, QPoint) { }

void TCustomTreeView::dragEnterEvent(QDragEnterEvent* event)
{
    event->setAccepted(DragObjectOf(event) != nullptr);
}

void TCustomTreeView::dragMoveEvent(QDragMoveEvent* event)
{
    bool accepted = false;
    if (auto* object = DragObjectOf(event))
        AtEventBorder([&] { accepted = DragOver(object, event->position().toPoint()); });
    event->setAccepted(accepted);
}

void TCustomTreeView::dropEvent(QDropEvent* event)
{
    auto* object = DragObjectOf(event);
    if (!object)
        return;
    AtEventBorder([&] { DragDrop(object, event->position().toPoint()); });
    event->acceptProposedAction();
}
