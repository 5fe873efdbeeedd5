#include "toolwindow/MrvTreeView.h"

#include "rtl/Guard.h"
#include "rtl/TResourceStream.h"
#include "support/MrvTreeNodes.h"
#include "visual/TBitmap.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QToolButton>

TMrvTreeView::TMrvTreeView(QWidget* parent)
    : TCustomTreeView(parent)
    , FSpeedButton(new QToolButton(viewport()))
{
    FSpeedButton->setFixedSize(16, 17);
    FSpeedButton->setFocusPolicy(Qt::NoFocus);
    TBitmap glyph;
    glyph.LoadFromResourceName(QStringLiteral(":/package/%1").arg(int(RT_BITMAP)), QStringLiteral("#101"));
    FSpeedButton->setIcon(QPixmap::fromImage(glyph.ToImage()));
    FSpeedButton->hide();
    connect(FSpeedButton, &QToolButton::clicked, this, [this] { AtEventBorder([this] { DoItemButtonClick(); }); });
}

TMrvTreeView::~TMrvTreeView()
{
    FOnBeforeChange = nullptr;
    FOnAfterChange = nullptr;
    FOnNodeDeletion = nullptr;
    Clear();
}

void TMrvTreeView::Change(TTreeNode* node)
{
    if (FOnBeforeChange)
        FOnBeforeChange(this, GetSelectedNode(), node);
    TCustomTreeView::Change(node);
    FTopItem = Items().NodeOf(indexAt({ 0, 0 }));
    if (FOnAfterChange)
        FOnAfterChange(this, GetSelectedNode(), node);
}

void TMrvTreeView::DoContextPopup(QPoint position, bool& handled)
{
    TCustomTreeView::DoContextPopup(position, handled);
    auto* node = GetSelectedNode();
    if (!node)
        return;
    node->SetFocused(true);
    if (FOnAfterChange)
        FOnAfterChange(this, nullptr, node);
}

TTreeNode* TMrvTreeView::GetSelectedNode() const
{
    if (auto* node = Selected())
        return node;
    return SelectionCount() == 1 ? Selections(0) : nullptr;
}

TTreeNode* TMrvTreeView::InternalGetNodeAt(QPoint position) const
{
    auto* node = GetNodeAt(position.x(), position.y());
    if (!node)
        return nullptr;
    const int left = NodeRect(node, false).left();
    const int right = NodeRect(node, true).right();
    return position.x() >= left && position.x() <= right ? node : nullptr;
}

// A plain press on a field keeps a selection of several whole, so that it can be dragged; on anything else it leaves
// one.
QItemSelectionModel::SelectionFlags TMrvTreeView::selectionCommand(const QModelIndex& index, const QEvent* event) const
{
    const bool isMouse = event
        && (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonRelease
            || event->type() == QEvent::MouseMove);
    if (!isMouse)
        return TCustomTreeView::selectionCommand(index, event);
    const auto* mouse = static_cast<const QMouseEvent*>(event);
    if (mouse->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier))
        return TCustomTreeView::selectionCommand(index, event);
    if (event->type() != QEvent::MouseButtonPress)
        return QItemSelectionModel::NoUpdate;
    const auto* node = Items().NodeOf(index);
    const auto type = NodeType(node);
    if (node && node->Selected() && (type == ndtField || type == ndtFieldDef))
        return QItemSelectionModel::NoUpdate;
    return node ? QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows : QItemSelectionModel::NoUpdate;
}

void TMrvTreeView::FocusIfVisible()
{
    if (isVisible())
        setFocus(Qt::MouseFocusReason);
}

void TMrvTreeView::mousePressEvent(QMouseEvent* event)
{
    AtEventBorder([&] {
        if (event->button() == Qt::RightButton)
            RightButtonDown(event);
        else
            LeftButtonDown(event);
    });
}

void TMrvTreeView::LeftButtonDown(QMouseEvent* event)
{
    TCustomTreeView::mousePressEvent(event);
    const bool extends = event->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier);
    const bool hit = InternalGetNodeAt(event->position().toPoint()) != nullptr;
    const bool one = SelectionCount() == 1;
    ButtonMoveTo(one && (hit || extends) ? Selections(0) : nullptr);
    if (FOnSelectComponent)
        FOnSelectComponent(this);
    FocusIfVisible();
}

void TMrvTreeView::RightButtonDown(QMouseEvent* event)
{
    const auto position = event->position().toPoint();
    ClearSelection(false);
    if (auto* node = GetNodeAt(position.x(), position.y()))
        Select(node);
    if (FOnSelectComponent)
        FOnSelectComponent(this);
    FocusIfVisible();
}

void TMrvTreeView::mouseDoubleClickEvent(QMouseEvent* event)
{
    FBeginDrag = false;
    AtEventBorder([&] {
        if (InternalGetNodeAt(event->position().toPoint()) && FOnDblClickEvent)
            FOnDblClickEvent(this);
        else
            TCustomTreeView::mouseDoubleClickEvent(event);
        FocusIfVisible();
    });
    FBeginDrag = false;
}

void TMrvTreeView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_F1) {
        AtEventBorder([] { TMrvUtils::ShowHelp(10001); });
        return;
    }
    TCustomTreeView::keyPressEvent(event);
    const bool extends = event->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier);
    if (SelectionCount() > 1 && !extends)
        ClearSelection(true);
}

void TMrvTreeView::keyReleaseEvent(QKeyEvent* event)
{
    TCustomTreeView::keyReleaseEvent(event);
    const bool moves = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down;
    if (moves && FOnSelectComponent)
        AtEventBorder([this] { FOnSelectComponent(this); });
}

void TMrvTreeView::resizeEvent(QResizeEvent* event)
{
    TCustomTreeView::resizeEvent(event);
    AtEventBorder([this] { ButtonMoveTo(GetSelectedNode()); });
}

void TMrvTreeView::scrollContentsBy(int dx, int dy)
{
    TCustomTreeView::scrollContentsBy(dx, dy);
    AtEventBorder([this] { ButtonMoveTo(GetSelectedNode()); });
}

void TMrvTreeView::paintEvent(QPaintEvent* event)
{
    TCustomTreeView::paintEvent(event);
    FTopItem = Items().NodeOf(indexAt({ 0, 0 }));
    OnDrawItem();
}

// The button follows scrolling and expansion: it moves whenever the tree is drawn.
void TMrvTreeView::OnDrawItem()
{
    if (std::exchange(FDrawing, true))
        return;
    AtEventBorder([this] {
        ButtonMoveTo(SelectionCount() > 1 ? nullptr : SelectionCount() == 1 ? Selections(0) : GetSelectedNode());
    });
    FDrawing = false;
}

TNodeFont TMrvTreeView::NodeFont(const TTreeNode* node) const
{
    switch (NodeType(node)) {
    case ndtFieldDef:
        return { 0x808080, false };
    case ndtRoot:
        return { clDefault, true };
    default:
        return {};
    }
}

bool TMrvTreeView::ButtonStands(const QRect& text, int width) const
{
    const auto button = FSpeedButton->geometry();
    if (!FSpeedButton->isVisible() || button.top() != text.top() - 1)
        return false;
    const int right = text.right() + 1;
    const bool besideText = button.left() == right && right + button.width() < width;
    const bool atTheEdge = button.right() + 1 == width && button.left() <= right;
    return besideText || atTheEdge;
}

bool TMrvTreeView::TakesButton(const TTreeNode* node) const
{
    const auto* data = NodeData(node);
    if (!data)
        return false;
    const auto type = data->GetNodeType();
    if (type != ndtDataSet && type != ndtField && type != ndtFieldDef)
        return false;
    const auto fieldDef = type == ndtFieldDef ? InterfaceCast<IMrvFieldDefAttr>(data->GetDataRef()) : nullptr;
    return (!fieldDef || fieldDef->EnableCreateControl()) && TMrvUtils::IsDataSetDescendant(data->GetDataRef());
}

void TMrvTreeView::ButtonMoveTo(TTreeNode* node)
{
    if (!node || !FEnabledMoveButton) {
        if (FSpeedButton->isVisible())
            FSpeedButton->hide();
        return;
    }
    const auto text = node->DisplayRect(true);
    const int width = viewport()->width();
    if (ButtonStands(text, width) && TakesButton(node))
        return;
    if (FSpeedButton->isVisible())
        FSpeedButton->hide();
    if (!text.isValid())
        return;
    const int right = text.right() + 1;
    const int left = right + FSpeedButton->width() < width ? right : width - FSpeedButton->width();
    FSpeedButton->move(left, text.top() - 1);
    if (TakesButton(node) && text.left() + 20 < left)
        FSpeedButton->show();
}

void TMrvTreeView::DoItemButtonClick()
{
    if (FOnItemButtonClick)
        FOnItemButtonClick(FSpeedButton, GetSelectedNode());
}
