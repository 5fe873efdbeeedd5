#include "ui/ItemMenu.h"

#include "visual/TMenuItem.h"

#include <QStyleOptionMenuItem>

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
