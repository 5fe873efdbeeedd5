#include "ui/ItemMenu.h"

#include "ui/TPopupMenu.h"
#include "visual/TMenuItem.h"

#include <QMouseEvent>
#include <QStyleOptionMenuItem>

namespace {

// The popup menu that a menu is, or that it hangs on as a submenu; nil if there is none.
const TPopupMenu* popupOf(const QWidget* menu)
{
    for (; menu != nullptr; menu = menu->parentWidget()) {
        if (const auto* popup = qobject_cast<const TPopupMenu*>(menu))
            return popup;
    }
    return nullptr;
}

}

void ItemMenu::mouseReleaseEvent(QMouseEvent* event)
{
    const auto* popup = popupOf(this);
    if (popup == nullptr || popup->TrackButton() == tbRightButton || event->button() == Qt::LeftButton)
        QMenu::mouseReleaseEvent(event);
}

void ItemMenu::initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const
{
    QMenu::initStyleOption(option, action);
    const auto* item = qobject_cast<const TMenuItem*>(action);
    if (item == nullptr)
        return;
    if (item->RadioItem() && item->Checked())
        option->checkType = QStyleOptionMenuItem::Exclusive;
    option->font.setBold(option->font.bold() || item->Default());
}
