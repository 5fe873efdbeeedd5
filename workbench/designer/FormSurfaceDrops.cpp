#include "designer/FormSurface.h"

#include "designer/ComponentMenu.h"
#include "designer/Designer.h"
#include "rtl/Guard.h"
#include "services/Host.h"
#include "services/Module.h"
#include "ui/TPopupMenu.h"

#include <QContextMenuEvent>
#include <QDragEnterEvent>
#include <QInputDialog>
#include <QMouseEvent>

// Drops on a surface, its menu, and names.

TDragObject* FormSurface::DragObjectOf(const QDropEvent& event) const
{
    const auto* data = qobject_cast<const TDragObjectData*>(event.mimeData());
    return Live() && data ? data->Object() : nullptr;
}

void FormSurface::dragEnterEvent(QDragEnterEvent* event)
{
    if (DragObjectOf(*event))
        event->acceptProposedAction();
}

void FormSurface::dragMoveEvent(QDragMoveEvent* event)
{
    NeedLayout();
    auto* object = DragObjectOf(*event);
    auto* target = object ? FPicture.Layout.ControlAt(ToClient(event->position().toPoint())) : nullptr;
    bool accepted = false;
    if (target) {
        const auto at = event->position().toPoint() - RectOf(*target).topLeft();
        AtEventBorder([&] { accepted = FHost.AcceptsDrop(*Live(), target, *object, at.x(), at.y()); });
    }
    FDropTarget = accepted ? target : nullptr;
    update();
    event->setAccepted(accepted);
    if (accepted)
        event->acceptProposedAction();
}

void FormSurface::dragLeaveEvent(QDragLeaveEvent*)
{
    FDropTarget = nullptr;
    update();
}

// What the drop raises was rolled back; it is shown once the drag is over.
void FormSurface::dropEvent(QDropEvent* event)
{
    NeedLayout();
    FDropTarget = nullptr;
    auto* object = DragObjectOf(*event);
    auto* target = object ? FPicture.Layout.ControlAt(ToClient(event->position().toPoint())) : nullptr;
    if (!target)
        return;
    const auto at = event->position().toPoint() - RectOf(*target).topLeft();
    bool dropped = false;
    try {
        dropped = FHost.DropOnDesigner(*Live(), target, *object, at.x(), at.y());
        // The press that began the drag asked for the form of what was dragged; now the work is here.
        if (dropped)
            FModule.BringToFront(Module::View::Form);
    } catch (const EAbort&) {
    } catch (const Exception& exception) {
        QMetaObject::invokeMethod(
            this, [exception] { ShowException(exception); }, Qt::QueuedConnection);
    }
    event->setAccepted(dropped);
    if (dropped) {
        event->acceptProposedAction();
        setFocus(Qt::OtherFocusReason);
    }
    Invalidate();
}

void FormSurface::FillMenu(TMenuItem& menu, TComponent& component)
{
    const auto add = [&menu](const QString& caption, bool enabled, std::function<void()> work) {
        auto* item = new TMenuItem;
        item->SetCaption(caption);
        item->SetEnabled(enabled);
        if (work)
            item->OnClick = [work = std::move(work)](QObject*) { AtEventBorder(work); };
        menu.Add(item);
    };
    ComponentMenu::Fill(menu, component, &FModule.TheDesigner());
    if (menu.Count() > 0)
        add(QStringLiteral("-"), true, {});
    const bool hasComponents = HasComponentsSelected();
    add(tr("&Delete\tDel"), hasComponents, [this] { DeleteSelection(); });
    add(tr("&Rename...\tF2"), Selected().size() == 1, [this] { RenameSelection(); });
    add(tr("Select &All\tCtrl+A"), true, [this] { SelectAll(); });
    add(tr("Select &Parent\tEsc"), hasComponents, [this] { SelectParent(); });
}

void FormSurface::contextMenuEvent(QContextMenuEvent* event)
{
    const auto selected = Selected();
    if (!Live())
        return;
    // Stays while it is open and until the entry that was chosen has run.
    auto* menu = new TPopupMenu(this);
    connect(menu, &QMenu::aboutToHide, menu, &QObject::deleteLater);
    FillMenu(menu->Items(), selected.isEmpty() ? *Live()->Root() : *selected[0]);
    menu->Popup(event->globalPos().x(), event->globalPos().y());
}

void FormSurface::mouseDoubleClickEvent(QMouseEvent* event)
{
    NeedLayout();
    FGesture = Gesture::None;
    auto* component = Live() ? FPicture.Layout.At(ToClient(event->position().toPoint())) : nullptr;
    if (!component)
        return;
    const auto editor = GetComponentEditor(component, &FModule.TheDesigner());
    if (editor && editor->GetVerbCount() > 0)
        editor->Edit();
    else
        Q_EMIT SourceWanted();
}

std::optional<QString> FormSurface::AskForName(const QString& oldName)
{
    bool accepted = false;
    const auto name = QInputDialog::getText(
        this, tr("Rename"), tr("New name of %1:").arg(oldName), QLineEdit::Normal, oldName, &accepted);
    return accepted && name != oldName ? std::optional(name.trimmed()) : std::nullopt;
}

void FormSurface::RenameSelection()
{
    const auto selected = Selected();
    if (selected.size() != 1)
        return;
    const WeakRef<TComponent> component(selected[0]);
    const auto name = AskForName(component->Name());
    if (name && component && Live())
        Live()->RenameComponent(*component.get(), *name);
}
