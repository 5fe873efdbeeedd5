#pragma once

#include "design/DesignIntf.h"
#include "designer/FormPicture.h"

#include <QWidget>

#include <optional>

class Designer;
class Host;
class Module;
class TDragObject;
class TMenuItem;

// The form of a module as a person sees and edits it: select by click and rubber band, move, resize, delete, rename,
// drop. It shows what the designer holds and changes nothing but through it; each gesture is one step of undo. Its
// selection is the designer's.
//
// Belongs to its parent widget; after the module has closed it shows nothing.
class FormSurface : public QWidget {
    Q_OBJECT
public:
    FormSurface(Host& host, const PackageList& packages, Module& module, QWidget* parent = nullptr);
    ~FormSurface() override;

    static constexpr int GridStep = 8;

    Module& TheModule() const { return FModule; }
    // The component's rectangle in the widget; empty for one that is not to be seen.
    QRect RectOf(const TPersistent& component) const;
    // The point of the widget that is that point of the root's client area.
    QPoint FromClient(QPoint client) const { return client + FPicture.ClientOrigin(); }
    QPoint ToClient(QPoint point) const { return point - FPicture.ClientOrigin(); }
    bool HasComponentsSelected() const;

    // The form changed: everything is placed anew before it is next painted.
    void Invalidate();
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

public Q_SLOTS:
    void DeleteSelection();
    void SelectAll();
    void SelectParent();
    // Selects the component after the selected one, in the order of painting.
    void SelectNext(int step);
    // Asks for a name, and gives it to the selected component.
    void RenameSelection();
    void MoveSelection(QPoint by);
    void ResizeSelection(QSize by);

Q_SIGNALS:
    void SelectionChanged();
    // A double click on a component that offers nothing: its unit is wanted.
    void SourceWanted();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    // Tab goes from component to component.
    bool focusNextPrevChild(bool) override { return false; }
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    // Asks for a new name; nothing when the user wants none.
    virtual std::optional<QString> AskForName(const QString& oldName);

private:
    class Listener;
    enum class Gesture { None, Pressed, Move, Resize, Band };
    // The edges that a handle moves.
    struct Handle {
        int Horizontal = 0;
        int Vertical = 0;
    };

    Designer* Live() const;
    void NeedLayout() const;
    QList<TComponent*> Selected() const;
    void Select(const QList<TComponent*>& components);
    void HearSelection();

    void PaintSelection(QPainter& painter);
    void PaintHandles(QPainter& painter, const QRect& rect, bool isRoot);
    void PaintGesture(QPainter& painter);
    static QList<std::pair<Handle, QRect>> HandleRects(const QRect& rect, bool isRoot);

    std::optional<Handle> HandleAt(QPoint point) const;
    void ShowCursor(QPoint point);
    void PressOn(TComponent& component, const QMouseEvent& event);
    QPoint Snapped(QPoint by, Qt::KeyboardModifiers keys) const;
    QRect Resized(const QRect& rect, Qt::KeyboardModifiers keys) const;
    void FinishBand(Qt::KeyboardModifiers keys);
    void CancelGesture();
    // Gives the selected components other places, as one gesture.
    void Place(const QString& title, const std::function<QRect(const TComponent&, const QRect&)>& place);

    TDragObject* DragObjectOf(const QDropEvent& event) const;
    bool HandleKey(const QKeyEvent& event);
    void FillMenu(TMenuItem& menu, TComponent& component);

    Host& FHost;
    Module& FModule;
    mutable FormPicture FPicture;
    mutable bool FLayoutIsOld = true;
    InterfacePtr<IDesignNotification> FListener;

    Gesture FGesture = Gesture::None;
    QPoint FStart;
    QPoint FNow;
    Qt::KeyboardModifiers FKeys;
    Handle FHandle;
    WeakRef<TComponent> FBandIn;
    // A component that a click without a drag leaves as the only one selected.
    WeakRef<TComponent> FClickedSelected;
    WeakRef<TComponent> FDropTarget;
};
