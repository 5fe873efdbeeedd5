#include "visual/TMainMenu.h"

TMainMenu::TMainMenu(QObject* owner)
    : QObject(owner)
{
}

TMainMenu::~TMainMenu()
{
    FreeItems();
}
