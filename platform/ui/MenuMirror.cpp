#include "ui/MenuMirror.h"

#include "ui/ItemMenu.h"
#include "visual/TMenuItem.h"

MenuMirror::MenuMirror(TMenuItem& from, QWidget& to, MakeMenu makeMenu)
    : QObject(&to)
    , FFrom(from)
    , FTo(to)
    , FMakeMenu(std::move(makeMenu))
{
    connect(&from, &TMenuItem::ItemInserted, this, &MenuMirror::Show);
    connect(&from, &TMenuItem::ItemRemoved, this, &MenuMirror::Hide);
    for (int i = 0; i < from.Count(); ++i)
        Show(i, from.Items(i));
}

void MenuMirror::Show(int index, TMenuItem* item)
{
    FTo.insertAction(FFrom.Items(index + 1), item);
    connect(item, &TMenuItem::ItemInserted, this, [this, item] { GiveSubMenu(item); });
    connect(item, &TMenuItem::ItemRemoved, this, [item] {
        if (item->Count() == 0)
            delete item->menu();
    });
    if (item->Count() > 0)
        GiveSubMenu(item);
}

void MenuMirror::Hide(TMenuItem* item)
{
    disconnect(item, nullptr, this, nullptr);
    delete item->menu();
    FTo.removeAction(item);
}

void MenuMirror::GiveSubMenu(TMenuItem* item)
{
    if (item->menu() != nullptr)
        return;
    auto* menu = FMakeMenu ? FMakeMenu(&FTo) : new ItemMenu(&FTo);
    item->setMenu(menu);
    new MenuMirror(*item, *menu, FMakeMenu);
}
