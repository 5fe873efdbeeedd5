#include "designer/FormSurface.h"

#include "classes/Forms.h"
#include "design/DataControls.h"
#include "designer/Designer.h"
#include "services/Host.h"
#include "services/Module.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>

#include <array>

// Mouse and keys on a surface: select, move, resize.

std::optional<FormSurface::Handle> FormSurface::HandleAt(QPoint point) const
{
    const auto selected = Selected();
    if (selected.size() != 1 || FormLayout::IsPlacedIcon(*selected[0]))
        return {};
    const auto rect = RectOf(*selected[0]);
    if (rect.isEmpty())
        return {};
    for (const auto& [handle, square] : HandleRects(rect, selected[0] == Live()->Root()))
        if (square.adjusted(-1, -1, 1, 1).contains(point))
            return handle;
    return {};
}

void FormSurface::ShowCursor(QPoint point)
{
    const auto handle = HandleAt(point);
    if (!handle)
        return unsetCursor();
    if (!handle->Horizontal)
        return setCursor(Qt::SizeVerCursor);
    if (!handle->Vertical)
        return setCursor(Qt::SizeHorCursor);
    setCursor(handle->Horizontal == handle->Vertical ? Qt::SizeFDiagCursor : Qt::SizeBDiagCursor);
}

void FormSurface::mousePressEvent(QMouseEvent* event)
{
    setFocus(Qt::MouseFocusReason);
    NeedLayout();
    if (!Live())
        return;
    FStart = FNow = event->position().toPoint();
    FKeys = event->modifiers();
    const auto handle = event->button() == Qt::LeftButton ? HandleAt(FStart) : std::nullopt;
    if (handle) {
        FHandle = *handle;
        FGesture = Gesture::Resize;
        return;
    }
    if (const auto* page = FPicture.Layout.TabAt(ToClient(FStart)); page && event->button() == Qt::LeftButton) {
        FPicture.Layout.ShowPage(*page);
        Select({ page->GetParentComponent() });
        Invalidate();
        return;
    }
    if (auto* component = FPicture.Layout.At(ToClient(FStart)))
        PressOn(*component, *event);
    else
        Select({});
}

void FormSurface::PressOn(TComponent& component, const QMouseEvent& event)
{
    const bool isRoot = &component == Live()->Root();
    const bool adds = event.modifiers() & (Qt::ControlModifier | Qt::ShiftModifier);
    auto selected = Selected();
    if (event.button() != Qt::LeftButton) {
        if (!selected.contains(&component))
            Select({ &component });
        return;
    }
    if (isRoot) {
        FBandIn = &component;
        FGesture = Gesture::Band;
        if (!adds)
            Select({});
        return;
    }
    if (adds) {
        if (!selected.removeOne(&component))
            selected << &component;
        selected.removeOne(Live()->Root());
        Select(selected);
        return;
    }
    FClickedSelected = selected.size() > 1 && selected.contains(&component) ? &component : nullptr;
    if (!selected.contains(&component))
        Select({ &component });
    FGesture = Gesture::Pressed;
}

void FormSurface::mouseMoveEvent(QMouseEvent* event)
{
    FNow = event->position().toPoint();
    FKeys = event->modifiers();
    if (FGesture == Gesture::None) {
        ShowCursor(FNow);
        return;
    }
    if (FGesture == Gesture::Pressed && (FNow - FStart).manhattanLength() >= QApplication::startDragDistance())
        FGesture = Gesture::Move;
    update();
}

// By whole steps of the grid; freely with Alt.
QPoint FormSurface::Snapped(QPoint by, Qt::KeyboardModifiers keys) const
{
    if (keys & Qt::AltModifier)
        return by;
    const auto step = [](int value) { return qRound(double(value) / GridStep) * GridStep; };
    return { step(by.x()), step(by.y()) };
}

QRect FormSurface::Resized(const QRect& rect, Qt::KeyboardModifiers keys) const
{
    const auto by = Snapped(FNow - FStart, keys);
    auto resized = rect;
    if (FHandle.Horizontal < 0)
        resized.setLeft(std::min(rect.left() + by.x(), rect.right()));
    if (FHandle.Horizontal > 0)
        resized.setRight(std::max(rect.right() + by.x(), rect.left()));
    if (FHandle.Vertical < 0)
        resized.setTop(std::min(rect.top() + by.y(), rect.bottom()));
    if (FHandle.Vertical > 0)
        resized.setBottom(std::max(rect.bottom() + by.y(), rect.top()));
    return resized;
}

void FormSurface::mouseReleaseEvent(QMouseEvent* event)
{
    FNow = event->position().toPoint();
    FKeys = event->modifiers();
    const auto gesture = std::exchange(FGesture, Gesture::None);
    update();
    if (gesture == Gesture::Band)
        return FinishBand(FKeys);
    if (gesture == Gesture::Move)
        return MoveSelection(Snapped(FNow - FStart, FKeys));
    if (gesture == Gesture::Resize)
        return Place(
            QStringLiteral("Resize"), [this](const TComponent&, const QRect& place) { return Resized(place, FKeys); });
    auto* clicked = FClickedSelected.get();
    FClickedSelected = nullptr;
    if (gesture == Gesture::Pressed && clicked)
        Select({ clicked });
}

void FormSurface::FinishBand(Qt::KeyboardModifiers keys)
{
    const auto band = QRect(FStart, FNow).normalized();
    if (band.width() < 4 && band.height() < 4)
        return;
    NeedLayout();
    auto found = FPicture.Layout.Within(band.translated(-FPicture.ClientOrigin()));
    if (keys & (Qt::ControlModifier | Qt::ShiftModifier))
        for (auto* component : Selected())
            if (!found.contains(component) && component != Live()->Root())
                found << component;
    Select(found);
}

void FormSurface::CancelGesture()
{
    FGesture = Gesture::None;
    update();
}

void FormSurface::Place(const QString& title, const std::function<QRect(const TComponent&, const QRect&)>& place)
{
    auto* designer = Live();
    if (!designer)
        return;
    UndoStack::Gesture gesture(FHost.Undo(), title);
    bool changed = false;
    for (auto* component : Selected()) {
        const auto old = FPicture.Layout.PlaceOf(*component);
        const auto now = place(*component, old);
        if (old == now)
            continue;
        FPicture.Layout.SetPlaceOf(*component, now);
        changed = true;
    }
    if (changed)
        designer->Modified();
    Invalidate();
}

void FormSurface::MoveSelection(QPoint by)
{
    if (by.isNull() || !Live())
        return;
    const auto* root = Live()->Root();
    const auto selected = Selected();
    Place(QStringLiteral("Move"), [&](const TComponent& component, const QRect& place) {
        // What stands on a control that moves goes along with it.
        for (const auto* walk = component.GetParentComponent(); walk; walk = walk->GetParentComponent())
            if (walk != root && selected.contains(walk))
                return place;
        return &component == root ? place : place.translated(by);
    });
}

void FormSurface::ResizeSelection(QSize by)
{
    Place(QStringLiteral("Resize"), [by](const TComponent& component, const QRect& place) {
        const auto size = (place.size() + by).expandedTo({ 1, 1 });
        return FormLayout::IsPlacedIcon(component) ? place : QRect(place.topLeft(), size);
    });
}

void FormSurface::DeleteSelection()
{
    if (Live() && HasComponentsSelected())
        Live()->DeleteSelection();
}

void FormSurface::SelectAll()
{
    NeedLayout();
    QList<TComponent*> all;
    for (const auto& item : FPicture.Layout.Items())
        if (auto* component = item.Component.get();
            component && (item.IsIcon || component->GetParentComponent() == FPicture.Layout.Root()))
            all << component;
    Select(all);
}

void FormSurface::SelectParent()
{
    const auto selected = Selected();
    if (!Live() || selected.isEmpty())
        return;
    auto* parent = selected[0]->GetParentComponent();
    Select({ parent ? parent : Live()->Root() });
}

void FormSurface::SelectNext(int step)
{
    NeedLayout();
    const auto& items = FPicture.Layout.Items();
    if (items.isEmpty())
        return;
    const auto selected = Selected();
    const auto* from = selected.isEmpty() ? nullptr : FPicture.Layout.Find(selected[0]);
    const auto count = items.size();
    const auto index = from ? (from - items.constData() + step + count) % count : step > 0 ? 0 : count - 1;
    Select({ items[index].Component.get() });
}

namespace {

struct ArrowRow {
    int Key;
    int X;
    int Y;
};

constexpr std::array Arrows { ArrowRow { Qt::Key_Left, -1, 0 }, ArrowRow { Qt::Key_Right, 1, 0 },
    ArrowRow { Qt::Key_Up, 0, -1 }, ArrowRow { Qt::Key_Down, 0, 1 } };

}

// Arrows go by a pixel, with Ctrl by a step of the grid; with Shift they resize.
bool FormSurface::HandleKey(const QKeyEvent& event)
{
    for (const auto& arrow : Arrows) {
        if (event.key() != arrow.Key)
            continue;
        const int step = event.modifiers() & Qt::ControlModifier ? GridStep : 1;
        if (event.modifiers() & Qt::ShiftModifier)
            ResizeSelection({ arrow.X * step, arrow.Y * step });
        else
            MoveSelection(QPoint(arrow.X, arrow.Y) * step);
        return true;
    }
    switch (event.key()) {
    case Qt::Key_Delete:
        DeleteSelection();
        return true;
    case Qt::Key_Escape:
        FGesture == Gesture::None ? SelectParent() : CancelGesture();
        return true;
    case Qt::Key_F2:
        RenameSelection();
        return true;
    case Qt::Key_Tab:
        SelectNext(1);
        return true;
    case Qt::Key_Backtab:
        SelectNext(-1);
        return true;
    default:
        break;
    }
    if (!event.matches(QKeySequence::SelectAll))
        return false;
    SelectAll();
    return true;
}

void FormSurface::keyPressEvent(QKeyEvent* event)
{
    if (!Live() || !HandleKey(*event))
        QWidget::keyPressEvent(event);
}
