#include "ui/TPopupMenu.h"

#include "ui/MenuMirror.h"

TPopupMenu::TPopupMenu(QWidget* owner)
    : ItemMenu(owner)
{
    new MenuMirror(Items(), *this, [this](QWidget* parent) { return CreateSubMenu(parent); });
}

TPopupMenu::~TPopupMenu()
{
    FreeItems();
}

void TPopupMenu::Popup(int x, int y)
{
    SetPopupPoint({ x, y });
    DoPopup();
    Track();
}

void TPopupMenu::DoPopup()
{
    if (OnPopup)
        OnPopup(this);
}

void TPopupMenu::Track()
{
    if (Items().Count() == 0)
        return;
    auto alignment = FAlignment;
    if (isRightToLeft() && alignment != paCenter)
        alignment = alignment == paLeft ? paRight : paLeft;
    auto corner = FPopupPoint;
    if (alignment == paRight)
        corner.rx() -= sizeHint().width();
    if (alignment == paCenter)
        corner.rx() -= sizeHint().width() / 2;
    popup(corner);
}

QMenu* TPopupMenu::CreateSubMenu(QWidget* parent)
{
    return new ItemMenu(parent);
}
