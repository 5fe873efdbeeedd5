#include "designer/FormSurface.h"

#include "designer/Designer.h"
#include "rtl/Guard.h"
#include "rtl/TInterfacedObject.h"
#include "services/Host.h"
#include "services/Module.h"

#include <QEvent>
#include <QPaintEvent>
#include <QPainter>

// Hears what the designers tell, for one surface; knows when that is gone.
class FormSurface::Listener : public Implements<TInterfacedObject, IDesignNotification> {
public:
    explicit Listener(FormSurface& surface)
        : FSurface(&surface)
    {
    }
    void Forget() { FSurface = nullptr; }

    void ItemDeleted(const InterfacePtr<IDesigner>& designer, TPersistent*) override { Note(designer); }
    void ItemInserted(const InterfacePtr<IDesigner>& designer, TPersistent*) override { Note(designer); }
    void ItemsModified(const InterfacePtr<IDesigner>& designer) override { Note(designer); }
    void SelectionChanged(const InterfacePtr<IDesigner>& designer, const InterfacePtr<IDesignerSelections>&) override
    {
        if (IsOurs(designer))
            FSurface->HearSelection();
    }
    void DesignerOpened(const InterfacePtr<IDesigner>& designer, bool) override { Note(designer); }
    void DesignerClosed(const InterfacePtr<IDesigner>& designer, bool) override { Note(designer); }

private:
    bool IsOurs(const InterfacePtr<IDesigner>& designer) const
    {
        return FSurface && designer.get() == static_cast<IDesigner*>(&FSurface->FModule.TheDesigner());
    }
    // A grid shows the fields of a dataset on another form, too.
    void Note(const InterfacePtr<IDesigner>&)
    {
        if (FSurface)
            FSurface->Invalidate();
    }
    FormSurface* FSurface;
};

FormSurface::FormSurface(Host& host, const PackageList& packages, Module& module, QWidget* parent)
    : QWidget(parent)
    , FHost(host)
    , FModule(module)
    , FPicture(packages)
{
    setObjectName(QStringLiteral("FormSurface"));
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAcceptDrops(true);
    setAccessibleName(module.FormName());
    FListener = New<Listener>(*this);
    RegisterDesignNotification(FListener);
}

FormSurface::~FormSurface()
{
    static_cast<Listener*>(FListener.get())->Forget();
    UnregisterDesignNotification(FListener);
}

Designer* FormSurface::Live() const
{
    return FModule.HasDesigner() && FModule.TheDesigner().Root() ? &FModule.TheDesigner() : nullptr;
}

void FormSurface::NeedLayout() const
{
    if (!std::exchange(FLayoutIsOld, false))
        return;
    const auto* designer = Live();
    FPicture.Make(designer ? designer->Root() : nullptr);
}

void FormSurface::Invalidate()
{
    FLayoutIsOld = true;
    // Until the next layout no component that may go is looked at.
    FPicture.Layout.Clear();
    updateGeometry();
    update();
}

QSize FormSurface::sizeHint() const
{
    NeedLayout();
    return FPicture.Size();
}

QRect FormSurface::RectOf(const TPersistent& component) const
{
    NeedLayout();
    if (&component == FPicture.Layout.Root())
        return FPicture.ClientRect();
    const auto* item = FPicture.Layout.Find(&component);
    return item ? item->Rect.translated(FPicture.ClientOrigin()) : QRect();
}

QList<TComponent*> FormSurface::Selected() const
{
    QList<TComponent*> components;
    for (auto* item : Live() ? Live()->Selection() : QList<TPersistent*>())
        if (auto* component = dynamic_cast<TComponent*>(item))
            components << component;
    return components;
}

bool FormSurface::HasComponentsSelected() const
{
    const auto selected = Selected();
    return !selected.isEmpty() && !(selected.size() == 1 && selected[0] == Live()->Root());
}

void FormSurface::Select(const QList<TComponent*>& components)
{
    auto* designer = Live();
    if (!designer)
        return;
    const auto list = CreateSelectionList();
    for (auto* component : components)
        list->Add(component);
    if (components.isEmpty())
        list->Add(designer->Root());
    designer->SetSelections(list);
}

// Somebody selected something: it is to be seen.
void FormSurface::HearSelection()
{
    for (auto* component : Selected())
        if (FPicture.Layout.Reveal(*component))
            Invalidate();
    update();
    Q_EMIT SelectionChanged();
}

bool FormSurface::event(QEvent* event)
{
    bool handled = false;
    AtEventBorder([&] { handled = QWidget::event(event); });
    return handled;
}

void FormSurface::paintEvent(QPaintEvent* event)
{
    NeedLayout();
    QPainter painter(this);
    painter.fillRect(event->rect(), palette().color(QPalette::Window).darker(105));
    FPicture.Paint(painter, event->rect(), palette(), true);
    if (!Live())
        return;
    PaintSelection(painter);
    PaintGesture(painter);
}

QList<std::pair<FormSurface::Handle, QRect>> FormSurface::HandleRects(const QRect& rect, bool isRoot)
{
    QList<std::pair<Handle, QRect>> handles;
    for (int vertical = -1; vertical <= 1; ++vertical)
        for (int horizontal = -1; horizontal <= 1; ++horizontal) {
            if ((!horizontal && !vertical) || (isRoot && (horizontal < 0 || vertical < 0)))
                continue;
            const auto center = rect.center();
            const QPoint at(horizontal < 0 ? rect.left()
                    : horizontal > 0       ? rect.right()
                                           : center.x(),
                vertical < 0       ? rect.top()
                    : vertical > 0 ? rect.bottom()
                                   : center.y());
            handles << std::pair(Handle { horizontal, vertical }, QRect(at - QPoint(3, 3), QSize(7, 7)));
        }
    return handles;
}

void FormSurface::PaintHandles(QPainter& painter, const QRect& rect, bool isRoot)
{
    painter.setPen(palette().color(QPalette::Highlight));
    painter.setBrush(palette().color(QPalette::Base));
    for (const auto& [handle, square] : HandleRects(rect, isRoot))
        painter.drawRect(square.adjusted(0, 0, -1, -1));
}

void FormSurface::PaintSelection(QPainter& painter)
{
    const auto selected = Selected();
    const auto color = palette().color(QPalette::Highlight);
    for (const auto* component : selected) {
        const auto rect = RectOf(*component);
        if (rect.isEmpty())
            continue;
        painter.setPen(QPen(color, 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(rect.adjusted(0, 0, -1, -1));
        if (selected.size() == 1 && !FormLayout::IsPlacedIcon(*component))
            PaintHandles(painter, rect, component == Live()->Root());
        else
            for (const auto& corner : { rect.topLeft(), rect.topRight(), rect.bottomLeft(), rect.bottomRight() })
                painter.fillRect(QRect(corner - QPoint(2, 2), QSize(5, 5)), color);
    }
    if (const auto* target = FDropTarget.get()) {
        painter.setPen(QPen(color, 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(RectOf(*target).adjusted(1, 1, -2, -2));
    }
}

void FormSurface::PaintGesture(QPainter& painter)
{
    auto color = palette().color(QPalette::Highlight);
    painter.setPen(QPen(color, 1, Qt::DashLine));
    color.setAlpha(30);
    painter.setBrush(color);
    if (FGesture == Gesture::Band) {
        painter.drawRect(QRect(FStart, FNow).normalized());
        return;
    }
    if (FGesture != Gesture::Move && FGesture != Gesture::Resize)
        return;
    const auto by = Snapped(FNow - FStart, FKeys);
    for (const auto* component : Selected()) {
        const auto rect = RectOf(*component);
        painter.drawRect(
            (FGesture == Gesture::Move ? rect.translated(by) : Resized(rect, FKeys)).adjusted(0, 0, -1, -1));
    }
}
